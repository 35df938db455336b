#include <QDir>

#include "cli/DesktopProgram.h"
#include "cli/Verbs.h"

namespace vellora::cli {
namespace {

QString pathFrom(const std::string& word) {
  return QDir::cleanPath(QDir::current().absoluteFilePath(QString::fromStdString(word)));
}

}  // namespace

int compress(const Invocation& invocation) {
  QStringList words;
  for (const char* flag : {"--recursive", "--keep-metadata", "--keep-dates"})
    if (invocation.has(flag)) words << QString::fromLatin1(flag);
  for (const char* option : {"--format", "--quality", "--max-edge", "--jobs"})
    if (const auto value = invocation.value(option))
      words << QString::fromLatin1(option) << QString::fromStdString(*value);
  if (const auto folder = invocation.value("--output-folder"))
    words << QStringLiteral("--output-folder") << pathFrom(*folder);
  if (invocation.json) words << QStringLiteral("--json");
  words << QStringLiteral("--");
  for (const std::string& path : invocation.arguments) words << pathFrom(path);
  return becomeCompressProgram(words);
}

}  // namespace vellora::cli
