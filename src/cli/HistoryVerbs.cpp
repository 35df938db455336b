#include <algorithm>

#include <QCoreApplication>
#include <QDir>

#include "base/Json.h"
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

/// The number a person gave, or 1; nothing after saying what is wrong with it.
std::optional<int> numberIn(const Invocation& invocation) {
  if (invocation.arguments.empty()) return 1;
  bool ok = false;
  const int number = QString::fromStdString(invocation.arguments[0]).toInt(&ok);
  if (ok && number >= 1) return number;
  printError(QStringLiteral("N is a number of the list, from 1"));
  return std::nullopt;
}

/// What one capture holds, for people: "3 arrows" and so on.
QStringList describe(const SessionDocument& document) {
  static constexpr const char* names[Annotation::kindCount] = {"arrow", "box",     "ellipse",   "line", "text",
                                                               "blur",  "counter", "magnifier", "pen"};
  int counts[Annotation::kindCount] = {};
  for (const AnnotationPtr& annotation : document.annotations) ++counts[static_cast<int>(annotation->kind)];
  QStringList lines{
      QStringLiteral("captured\t%1").arg(document.capturedAt.toDateTime().toString(Qt::ISODate)),
      QStringLiteral("saved\t%1").arg(document.savedAt.toDateTime().toString(Qt::ISODate)),
      QStringLiteral("pixels\t%1 × %2").arg(document.pixelWidth).arg(document.pixelHeight),
      QStringLiteral("pieces\t%1").arg(document.pieces.size()),
  };
  for (int kind = 0; kind < Annotation::kindCount; ++kind) {
    if (counts[kind] > 0) lines << QStringLiteral("%1\t%2").arg(QLatin1StringView(names[kind])).arg(counts[kind]);
  }
  lines << QStringLiteral("backdrop\t%1").arg(document.backdrop.enabled ? QStringLiteral("on") : QStringLiteral("off"));
  return lines;
}

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

int showFromHistory(const Invocation& invocation) {
  const auto number = numberIn(invocation);
  if (!number) return WrongUsage;
  const History history;
  const auto& items = history.store.items();
  if (*number > static_cast<int>(items.size())) {
    printError(QStringLiteral("the history holds %1 captures").arg(items.size()));
    return Failed;
  }
  const SessionStore::Item& item = items[static_cast<std::size_t>(*number) - 1];
  const auto document = sessionFolder::readDocument(item.directory);
  if (!document) {
    printError(QStringLiteral("%1 can no longer be read").arg(item.directory));
    return Failed;
  }
  if (invocation.json) {
    const auto text = json::parse(encode(*document));
    printJson({{"number", *number}, {"folder", item.directory.toStdString()}, {"document", text ? *text : Json()}});
    return Done;
  }
  printLine(QStringLiteral("folder\t%1").arg(item.directory));
  for (const QString& line : describe(*document)) printLine(line);
  return Done;
}

int reopenFromHistory(const Invocation& invocation) {
  const auto wanted = numberIn(invocation);
  if (!wanted) return WrongUsage;
  const int number = *wanted;
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
