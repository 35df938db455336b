#pragma once

#include <memory>
#include <string>
#include <vector>

#include "support/ChildProcess.h"

namespace vellora::test {

/// A sound server of the test's own, on sockets in a folder of its own, with a silent output named "speakers" and the
/// microphone "mic". While it lives, the test program itself finds it too. Nothing is skipped: when it does not start,
/// `start` fails the running test and returns null.
class PulseServer {
 public:
  static std::unique_ptr<PulseServer> start();
  ~PulseServer();

  const std::string& folder() const { return folder_; }
  /// What is written there, 48,000 frames a second of 16-bit mono, is heard by the microphone.
  std::string microphonePipe() const { return folder_ + "/mic.fifo"; }
  /// Runs pactl; what it prints. Fails the running test when that fails.
  std::string control(const std::vector<std::string>& arguments) const;
  /// Runs another client beside the test.
  std::unique_ptr<ChildProcess> spawn(const std::vector<std::string>& command) const;
  /// Ends the server as a crash would.
  void kill();
  /// SIGSTOP makes a server that no longer answers, SIGCONT ends that.
  void signal(int number) const { server_->signal(number); }
  /// Starts it again.
  bool restart();

 private:
  PulseServer() = default;

  std::string folder_;
  Environment environment_;
  std::unique_ptr<ChildProcess> server_;
};

/// Writes a microphone's sound at the pace of the host clock while it lives: silence with a click each half second.
class ClickingMicrophone {
 public:
  explicit ClickingMicrophone(const std::string& pipe);
  ~ClickingMicrophone();

  /// The host times at which the clicks so far began at the microphone.
  std::vector<double> clicks() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace vellora::test
