#pragma once

#include <cstdint>
#include <string>

namespace vellora {

/// Which encoder a movie of a certain size gets: HEVC where hardware takes that size, else H.264 by hardware, else by
/// software.
struct VideoEncoderChoice {
  enum class Codec { h264, hevc };
  Codec codec = Codec::h264;
  bool isHardware = false;
  std::string name{};  ///< as libav names it

  /// Opens encoders until one takes the size: some milliseconds, with graphics hardware some hundred. Any thread.
  static VideoEncoderChoice make(std::int64_t width, std::int64_t height);

  /// Bits per second: 4 for each pixel with HEVC, 8 with H.264.
  static std::int64_t bitRate(Codec codec, int width, int height);
  std::int64_t bitRate(int width, int height) const { return bitRate(codec, width, height); }
};

/// Whether an HEVC encoder of the hardware's really opens at this size. Sizes beyond 32 bits never qualify.
bool hasHardwareHEVCEncoder(std::int64_t width, std::int64_t height);

}  // namespace vellora
