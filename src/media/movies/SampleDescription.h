#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vellora {

/// What a movie says of pictures in H.264 or HEVC. They are coded with even sizes; only the part that is shown counts.
struct VideoDescription {
  bool isHevc = false;
  int width = 0;  ///< shown, in pixels
  int height = 0;
  std::span<const std::uint8_t> configuration;  ///< avcC or hvcC
};

/// What a movie says of sound in AAC.
struct SoundDescription {
  int channels = 1;
  int sampleRate = 0;
  std::int64_t bitRate = 0;
  std::span<const std::uint8_t> configuration;  ///< AudioSpecificConfig, at most 64 bytes
};

/// "stsd" boxes as QuickTime has them (QuickTime File Format Specification, "Sample Description Atoms"). Pictures are
/// tagged as BT.709.
std::vector<std::uint8_t> sampleDescription(const VideoDescription& video);
std::vector<std::uint8_t> sampleDescription(const SoundDescription& sound);

}  // namespace vellora
