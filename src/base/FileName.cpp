#include "base/FileName.h"

#include <QDir>
#include <QFileInfo>
#include <QStringBuilder>

namespace vellora {
namespace {

constexpr qsizetype maximumNameBytes = 200;

QString cutToBytes(const QString& text, qsizetype limit) {
  QByteArray bytes = text.toUtf8();
  if (bytes.size() <= limit) return text;
  qsizetype end = limit;
  while (end > 0 && (static_cast<unsigned char>(bytes[end]) & 0xC0) == 0x80) --end;
  return QString::fromUtf8(bytes.left(end));
}

}  // namespace

QString sanitizedFileName(const QString& name) {
  QString result = name;
  for (QChar& c : result) {
    if (c == u'/' || c == u':' || c.category() == QChar::Other_Control) c = u'-';
  }
  result = cutToBytes(result, maximumNameBytes);
  if (result.isEmpty() || result == u"." || result == u"..") return QStringLiteral("-");
  return result;
}

QString numberedFileName(const QString& stem, const QString& extension, int attempt) {
  QString name = stem;
  if (attempt > 1) name += QStringLiteral(" (%1)").arg(attempt);
  if (!extension.isEmpty()) name += u'.' % extension;
  return name;
}

QString pathBelowHome(const QString& path, const QString& home) {
  if (home.isEmpty() || home == u"/") return path;
  if (path == home) return QStringLiteral("~");
  return path.startsWith(home + u'/') ? u'~' + path.mid(home.size()) : path;
}

QString freeFileName(const QString& folder, const QString& stem, const QString& extension) {
  const QDir dir(folder);
  for (int attempt = 1;; ++attempt) {
    QString name = numberedFileName(stem, extension, attempt);
    const QFileInfo info(dir.filePath(name));
    if (!info.exists() && !info.isSymLink()) return name;
  }
}

}  // namespace vellora
