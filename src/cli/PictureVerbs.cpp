#include <QDir>

#include "cli/DesktopProgram.h"
#include "cli/Terminal.h"
#include "cli/Verbs.h"
#include "platform/linux/desktop/InstanceClient.h"

namespace vellora::cli {
namespace {

QString pathFrom(const std::string& word) {
  return QDir::cleanPath(QDir::current().absoluteFilePath(QString::fromStdString(word)));
}

/// The words vellora-render understands after its verb; nothing after saying what is wrong.
std::optional<QStringList> renderWords(const Invocation& invocation) {
  QString scale = QStringLiteral("0");
  if (const auto wanted = invocation.value("--scale")) {
    bool ok = false;
    scale = QString::fromStdString(*wanted);
    const double number = scale.toDouble(&ok);
    if (!ok || !(number >= 0.01 && number <= 64)) {
      printError(QStringLiteral("--scale takes a number from 0.01 to 64"));
      return std::nullopt;
    }
  }
  return QStringList{pathFrom(*invocation.value("--output")), scale,
                     invocation.json ? QStringLiteral("json") : QStringLiteral("text")};
}

}  // namespace

int edit(const Invocation& invocation) {
  QStringList command{QStringLiteral("edit")};
  for (const std::string& word : invocation.arguments) command << pathFrom(word);
  InstanceClient instance;
  if (const auto outcome = instance.run(command, QDir::currentPath())) {
    if (!outcome->standardError.isEmpty()) printError(outcome->standardError);
    return outcome->exitCode;
  }
  command.first().prepend(QStringLiteral("--"));
  return becomeDesktopProgram(command);
}

int render(const Invocation& invocation) {
  const auto words = renderWords(invocation);
  if (!words) return WrongUsage;
  return becomeRenderProgram(QStringList{QStringLiteral("render"), pathFrom(invocation.arguments[0])} + *words);
}

int annotate(const Invocation& invocation) {
  const auto words = renderWords(invocation);
  if (!words) return WrongUsage;
  return becomeRenderProgram(QStringList{QStringLiteral("annotate"), pathFrom(invocation.arguments[0]),
                                         pathFrom(*invocation.value("--document"))} +
                             *words);
}

}  // namespace vellora::cli
