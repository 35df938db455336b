#pragma once

#include <chrono>
#include <cstdio>
#include <string>

#include "cli/publish/FilePublisher.h"

namespace vellora {

/// "00:12  6.1 Mbit/s  queue 120 ms  dropped 0"
std::string liveText(const PublishProgress& progress, double bitsPerSecond);
/// "00:12", "1:00:12"
std::string mediaTimeText(std::chrono::microseconds time);

/// How far a stream has come while it runs: on a terminal one line that is rewritten every second, elsewhere (a log) a
/// line of its own every ten seconds.
class LiveLine {
 public:
  using Time = std::chrono::steady_clock::time_point;

  explicit LiveLine(std::FILE* output);
  /// When to call `show` again.
  std::chrono::seconds interval() const;
  /// The bit rate is that since the last call.
  void show(const PublishProgress& progress, Time now);
  /// Takes a rewritten line away again, so that what follows begins on an empty one.
  void clear();

 private:
  std::FILE* output_;
  bool isTerminal_;
  bool isShown_ = false;
  Time lastTime_;
  std::uint64_t lastBytes_ = 0;
};

}  // namespace vellora
