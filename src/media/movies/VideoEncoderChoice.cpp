#include "media/movies/VideoEncoderChoice.h"

#include <algorithm>
#include <limits>

#include "media/movies/VideoEncoder.h"

namespace vellora {
namespace {

bool fits(std::int64_t size) {
  return size > 0 && size <= std::numeric_limits<std::int32_t>::max();
}

bool opens(const VideoEncoderChoice& choice, std::int64_t width, std::int64_t height) {
  if (!fits(width) || !fits(height)) return false;
  return VideoEncoder::open(choice, {.width = static_cast<int>(width), .height = static_cast<int>(height)}) != nullptr;
}

}  // namespace

VideoEncoderChoice VideoEncoderChoice::make(std::int64_t width, std::int64_t height) {
  const auto encoders = knownVideoEncoders();
  const auto found = std::ranges::find_if(
      encoders, [&](const VideoEncoderChoice& choice) { return choice.isHardware && opens(choice, width, height); });
  return found != encoders.end() ? *found : encoders.back();
}

std::int64_t VideoEncoderChoice::bitRate(Codec codec, int width, int height) {
  return std::int64_t{width} * height * (codec == Codec::hevc ? 4 : 8);
}

bool hasHardwareHEVCEncoder(std::int64_t width, std::int64_t height) {
  return std::ranges::any_of(knownVideoEncoders(), [&](const VideoEncoderChoice& choice) {
    return choice.isHardware && choice.codec == VideoEncoderChoice::Codec::hevc && opens(choice, width, height);
  });
}

}  // namespace vellora
