#include "real/PublishRun.h"

#include <gtest/gtest.h>
#include <signal.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

namespace vellora::test {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
  std::string name = (fs::temp_directory_path() / "vellora-publish-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    ADD_FAILURE() << "no temporary folder";
    return;
  }
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  if (!path_.empty()) fs::remove_all(path_, ignored);
}

std::string contentsOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

PublishRun::PublishRun(std::vector<std::string> arguments, const Options& options) {
  std::ofstream(folder_ / "input") << options.input;
  std::vector<std::string> command = options.prefix;
  // The shell gives way to the program, which so keeps its process id.
  for (const std::string& word :
       {std::string("sh"), std::string("-c"),
        std::string(R"(dir=$1; shift; exec "$@" <"$dir/input" >"$dir/output" 2>"$dir/errors")"), std::string("sh"),
        (folder_ / "").string(), std::string(VELLORA_BIN_DIR "/vellora"), std::string("publish")}) {
    command.push_back(word);
  }
  command.insert(command.end(), arguments.begin(), arguments.end());
  Environment environment = options.environment;
  environment.push_back("HOME=" + (folder_ / "").string());
  environment.push_back("XDG_RUNTIME_DIR=" + (folder_ / "").string());
  process_ = ChildProcess::start(command, environment);
}

void PublishRun::interrupt() {
  process_->signal(SIGINT);
}

Finished PublishRun::finish(double seconds) {
  Finished result;
  result.exitCode = process_->wait(seconds);
  if (process_->isRunning()) {
    process_->signal(SIGKILL);
    process_->wait(5);
  }
  result.output = output();
  result.errors = errors();
  return result;
}

std::vector<Json> jsonLines(const std::string& text) {
  std::vector<Json> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    Json value = Json::parse(line, nullptr, false);
    EXPECT_TRUE(value.is_object()) << line;
    lines.push_back(std::move(value));
  }
  return lines;
}

}  // namespace vellora::test
