#include <algorithm>

#include <QCoreApplication>
#include <QDir>

#include "base/QtRunLoop.h"
#include "cli/DesktopProgram.h"
#include "cli/Terminal.h"
#include "cli/Verbs.h"
#include "editor/SessionStore.h"
#include "platform/linux/desktop/InstanceClient.h"
#include "platform/linux/desktop/XdgFileNames.h"

namespace vellora::cli {
namespace {

/// The history on disk, with the event loop its results come back through.
struct History {
  int argc = 1;
  char name[8] = "vellora";
  char* argv[2] = {name, nullptr};
  QCoreApplication application{argc, argv};
  QtRunLoop runLoop;
  SessionStore store{SessionStore::defaultDirectory(XdgFileNames().applicationSupport()), runLoop,
                     [](const QString&) { return std::nullopt; }};
};

}  // namespace

int listHistory(const Invocation& invocation) {
  const History history;
  Json list = Json::array();
  int number = 0;
  for (const SessionStore::Item& item : history.store.items()) {
    ++number;
    list.push_back({{"number", number},
                    {"id", item.id().toStdString()},
                    {"folder", item.directory.toStdString()},
                    {"width", item.pixelWidth},
                    {"height", item.pixelHeight},
                    {"savedAt", item.savedAt.toDateTime().toUTC().toString(Qt::ISODateWithMs).toStdString()}});
    if (!invocation.json) {
      printLine(QStringLiteral("%1\t%2 × %3\t%4\t%5")
                    .arg(number)
                    .arg(item.pixelWidth)
                    .arg(item.pixelHeight)
                    .arg(item.savedAt.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")), item.directory));
    }
  }
  if (invocation.json) printJson({{"sessions", list}});
  return Done;
}

int reopenFromHistory(const Invocation& invocation) {
  int number = 1;
  if (!invocation.arguments.empty()) {
    bool ok = false;
    number = QString::fromStdString(invocation.arguments[0]).toInt(&ok);
    if (!ok || number < 1) {
      printError(QStringLiteral("N is a number of the list, from 1"));
      return WrongUsage;
    }
  }
  const auto count = static_cast<int>(History().store.items().size());
  if (number > count) {
    printError(QStringLiteral("the history holds %1 captures").arg(count));
    return Failed;
  }
  const QStringList command{QStringLiteral("reopen"), QString::number(number)};
  InstanceClient instance;
  if (const auto outcome = instance.run(command, QDir::currentPath())) {
    if (!outcome->standardError.isEmpty()) printError(outcome->standardError);
    return outcome->exitCode;
  }
  return becomeDesktopProgram({QStringLiteral("--reopen"), QString::number(number)});
}

int clearHistory(const Invocation& invocation) {
  History history;
  const std::size_t count = history.store.items().size();
  history.store.clear();
  history.store.waitForPendingWrites();
  if (invocation.json) printJson({{"removed", count}});
  return Done;
}

}  // namespace vellora::cli
