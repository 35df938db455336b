#include <QDir>

#include "cli/DesktopProgram.h"
#include "cli/Verbs.h"

namespace vellora::cli {
namespace {

QString pathFrom(const std::string& word) {
  return QDir::cleanPath(QDir::current().absoluteFilePath(QString::fromStdString(word)));
}

}  // namespace

int publish(const Invocation& invocation) {
  QStringList words{pathFrom(invocation.arguments[0]), QString::fromStdString(invocation.arguments[1])};
  for (const char* flag : {"--loop", "--key-from-stdin", "--as-fast-as-possible"}) {
    if (invocation.has(flag)) words << QString::fromLatin1(flag);
  }
  if (const auto file = invocation.value("--ca-file")) words << QStringLiteral("--ca-file") << pathFrom(*file);
  if (const auto user = invocation.value("--user")) words << QStringLiteral("--user") << QString::fromStdString(*user);
  if (invocation.json) words << QStringLiteral("--json");
  return becomePublishProgram(words);
}

}  // namespace vellora::cli
