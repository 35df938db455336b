#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "base/Json.h"
#include "support/ChildProcess.h"

namespace vellora::test {

/// A temporary folder that goes with the object.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

std::string contentsOf(const std::filesystem::path& file);

/// One run of `vellora publish`, with a profile of its own.
class PublishRun {
 public:
  struct Options {
    std::string input{};                ///< on standard input
    std::vector<std::string> prefix{};  ///< words before the command, "ip netns exec NAME"
    Environment environment{};
  };

  explicit PublishRun(std::vector<std::string> arguments) : PublishRun(std::move(arguments), Options()) {}
  PublishRun(std::vector<std::string> arguments, const Options& options);

  /// As Ctrl-C does.
  void interrupt();
  /// All of it once the program has ended. After `seconds` it is ended by force: the exit code is -2 then.
  Finished finish(double seconds = 20);
  pid_t pid() const { return process_->pid(); }
  bool isRunning() { return process_->isRunning(); }
  std::string output() const { return contentsOf(folder_ / "output"); }
  std::string errors() const { return contentsOf(folder_ / "errors"); }

 private:
  TemporaryFolder folder_;
  std::unique_ptr<ChildProcess> process_;
};

/// The objects of a text that has one on each line. What is not JSON fails the running test.
std::vector<Json> jsonLines(const std::string& text);

}  // namespace vellora::test
