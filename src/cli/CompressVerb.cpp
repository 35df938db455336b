#include <filesystem>

#include <QDir>

#include "cli/DesktopProgram.h"
#include "cli/Terminal.h"
#include "cli/Verbs.h"
#include "platform/linux/desktop/InstanceClient.h"

namespace vellora::cli {
namespace {

/// Names of files are bytes, not always text.
std::string pathFrom(const std::string& word) {
  std::error_code error;
  const std::filesystem::path path = std::filesystem::absolute(word, error).lexically_normal();
  return error ? word : path.string();
}

int openCompressor(const Invocation& invocation) {
  QStringList command{QStringLiteral("compress")};
  for (const std::string& word : invocation.arguments) command << QString::fromStdString(pathFrom(word));
  InstanceClient instance;
  if (const auto outcome = instance.run(command, QDir::currentPath())) {
    if (!outcome->standardError.isEmpty()) printError(outcome->standardError);
    return outcome->exitCode;
  }
  command.first().prepend(QStringLiteral("--"));
  return becomeDesktopProgram(command);
}

}  // namespace

int compress(const Invocation& invocation) {
  if (invocation.has("--window")) return openCompressor(invocation);
  if (invocation.arguments.empty()) {
    printError(QStringLiteral("compress needs a picture or a folder; --window opens the window"));
    return WrongUsage;
  }
  std::vector<std::string> words;
  for (const char* flag : {"--recursive", "--keep-metadata", "--keep-dates"}) {
    if (invocation.has(flag)) words.emplace_back(flag);
  }
  for (const char* option : {"--format", "--quality", "--max-edge", "--jobs"}) {
    if (const auto value = invocation.value(option)) words.insert(words.end(), {option, *value});
  }
  if (const auto folder = invocation.value("--output-folder")) {
    words.insert(words.end(), {"--output-folder", pathFrom(*folder)});
  }
  if (invocation.json) words.emplace_back("--json");
  words.emplace_back("--");
  for (const std::string& path : invocation.arguments) words.push_back(pathFrom(path));
  return becomeCompressProgram(words);
}

}  // namespace vellora::cli
