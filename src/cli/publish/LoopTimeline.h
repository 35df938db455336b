#pragma once

#include <array>
#include <chrono>

#include "media/movies/MediaReader.h"

namespace vellora {

/// Times on one line for a file that is played again and again: every pass starts where the longer track of the one
/// before ended.
class LoopTimeline {
 public:
  /// `frameRate` of the video, 0 when not known: how long a frame lasts that does not say.
  explicit LoopTimeline(double frameRate);

  /// `packet` with its times moved to the present pass.
  MediaPacket place(MediaPacket packet);
  /// The packets that follow are those of another pass.
  void startAgain();
  /// Where what was placed so far ends.
  std::chrono::microseconds end() const { return end_; }

 private:
  std::chrono::microseconds videoFrameDuration_;
  std::chrono::microseconds offset_{};
  std::chrono::microseconds end_{};
};

}  // namespace vellora
