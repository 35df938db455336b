#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vellora::test {

/// A network of its own with nothing but a loopback device, which can be made slow, lossy or dead without disturbing
/// anybody. Needs root: without it `create` fails the running test and returns null. It goes with the object.
class NetworkNamespace {
 public:
  static std::unique_ptr<NetworkNamespace> create();
  ~NetworkNamespace();
  NetworkNamespace(const NetworkNamespace&) = delete;
  NetworkNamespace& operator=(const NetworkNamespace&) = delete;

  /// Words before a command that is to run within.
  std::vector<std::string> prefix() const { return {"ip", "netns", "exec", name_}; }
  /// Everything that passes leaves at `kilobits` a second; can be changed at any time.
  void limitRate(int kilobits);
  /// Packets that come in for `port` are dropped: all of them, or that many of a hundred, by chance.
  void drop(int port, int ofHundred = 100);
  /// How many were dropped.
  long droppedPackets() const;

 private:
  explicit NetworkNamespace(std::string name) : name_(std::move(name)) {}
  /// What the command says; fails the running test when it fails.
  std::optional<std::string> run(const std::vector<std::string>& command, const std::string& input = {}) const;

  std::string name_;
  bool isLimited_ = false;
};

}  // namespace vellora::test
