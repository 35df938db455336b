#pragma once

#include <sys/types.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vellora::test {

/// What a program left behind when it ended.
struct Finished {
  int exitCode = -1;  ///< -1: could not be started, -2: ended by a signal or cut off after the time limit
  std::string output;
  std::string errors;
};

/// "NAME=value" entries that replace or extend the test's own environment.
using Environment = std::vector<std::string>;

/// A program a test runs beside itself. It is ended, by its process id, when this goes; it also dies with the test
/// program.
class ChildProcess {
 public:
  /// Where a started program's two outputs go.
  enum class Output { Inherit, Discard };

  /// Null when the program cannot be started. Descriptor `keep`, when not -1, stays open in the program under its
  /// number.
  static std::unique_ptr<ChildProcess> start(const std::vector<std::string>& command, const Environment& environment,
                                             Output output = Output::Discard, int keep = -1);
  /// SIGTERM, then SIGKILL after three seconds; waits for the end.
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t pid() const { return pid_; }
  bool isRunning();
  /// Waits until the program has ended by itself; its exit code, -2 when `seconds` have gone by or a signal ended it.
  int wait(double seconds);
  void signal(int number) const;

 private:
  explicit ChildProcess(pid_t pid) : pid_(pid) {}
  bool reap(bool block);

  pid_t pid_;
  bool ended_ = false;
  int status_ = 0;
};

/// Runs a program to its end with `input` on its standard input and collects what it writes.
Finished runProgram(const std::vector<std::string>& command, const Environment& environment,
                    std::string_view input = {}, double seconds = 20);

}  // namespace vellora::test
