#include <filesystem>

#include "cli/DesktopProgram.h"
#include "cli/Verbs.h"

namespace vellora::cli {
namespace {

/// Names of files are bytes, not always text.
std::string pathFrom(const std::string& word) {
  std::error_code error;
  const std::filesystem::path path = std::filesystem::absolute(word, error).lexically_normal();
  return error ? word : path.string();
}

}  // namespace

int compress(const Invocation& invocation) {
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
