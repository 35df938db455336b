#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "real/PublishRun.h"

namespace vellora::test {

/// Every packet of one port of the loopback device, from when `start` returns until `stop`, for a protocol analyzer
/// others wrote. Needs the right to capture: without it `start` fails the running test and returns null.
class WireCapture {
 public:
  static std::unique_ptr<WireCapture> start(std::uint16_t port);

  /// Waits until all packets sent so far are in the file.
  void stop();
  /// A line for each packet that `filter` shows, with the `fields` separated by tabs and their values by commas. Bytes
  /// of the port are read as RTMP.
  std::vector<std::string> lines(const std::string& filter, const std::vector<std::string>& fields) const;

 private:
  WireCapture() = default;
  bool isCaptured(const std::string& text) const;
  void sendMarker(const std::string& text) const;

  TemporaryFolder folder_;
  std::uint16_t port_ = 0;
  std::unique_ptr<ChildProcess> process_;
};

}  // namespace vellora::test
