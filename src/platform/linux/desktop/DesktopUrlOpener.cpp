#include "platform/linux/desktop/DesktopUrlOpener.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "base/Log.h"
#include "platform/linux/desktop/SessionBus.h"

namespace vellora {
namespace {

bool open(const QUrl& url) {
  const QString address = QString::fromLatin1(url.toEncoded());
  const struct {
    QString program;
    QStringList arguments;
  } openers[] = {{QStringLiteral("xdg-open"), {address}}, {QStringLiteral("gio"), {QStringLiteral("open"), address}}};
  for (const auto& [program, arguments] : openers) {
    if (QStandardPaths::findExecutable(program).isEmpty()) continue;
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    if (process.startDetached()) return true;
  }
  log::warning(QStringLiteral("nothing could open %1").arg(address));
  return false;
}

}  // namespace

bool DesktopUrlOpener::openFile(const QString& path) {
  const QFileInfo info(path);
  return info.exists() && open(QUrl::fromLocalFile(info.absoluteFilePath()));
}

bool DesktopUrlOpener::openUrl(const QString& url) {
  const QUrl parsed(url, QUrl::StrictMode);
  static const QStringList schemes{QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("mailto"),
                                   QStringLiteral("file")};
  return parsed.isValid() && schemes.contains(parsed.scheme()) && open(parsed);
}

bool DesktopUrlOpener::reveal(const QString& path) {
  const QFileInfo info(path);
  if (!info.exists()) return false;
  const QUrl folder = QUrl::fromLocalFile(info.absolutePath());
  if (!sessionBus::isReachable()) return open(folder);
  QDBusMessage message = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
      QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
  message.setArguments(
      {QStringList{QUrl::fromLocalFile(info.absoluteFilePath()).toString(QUrl::FullyEncoded)}, QString()});
  auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message));
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, folder] {
    if (const QDBusPendingReply<> reply = *watcher; reply.isError()) open(folder);
    watcher->deleteLater();
  });
  return true;
}

}  // namespace vellora
