#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "support/FlvFile.h"

namespace vellora::test {

/// Media files the tests publish, made once for a test program by an encoder others wrote.
namespace samples {
/// 4 s of 640x360 at 30 frames a second: H.264 with B-frames and a key frame each second, AAC, in MP4.
std::filesystem::path classic();
/// 2 s of HEVC ("hvc1") and Opus in MP4.
std::filesystem::path enhanced();
/// 2 s of VP9 and Vorbis in WebM, which no RTMP server takes as they are.
std::filesystem::path foreign();
/// 6 s of H.264 without B-frames at 3 Mbit/s, a key frame each half second, and AAC, in MP4.
std::filesystem::path heavy();
}  // namespace samples

/// One compressed frame as a demuxer others wrote finds it. Times in seconds.
struct MediaSample {
  double presentationTime = 0;
  double decodeTime = 0;
  bool isKeyFrame = false;
  std::string hash;  ///< SHA-256 of the data, hexadecimal
};

struct MediaTrackSamples {
  std::string codec;
  std::string configurationHash;
  std::vector<MediaSample> samples;
};

struct MediaContents {
  MediaTrackSamples video;
  MediaTrackSamples audio;
  static MediaContents of(const std::filesystem::path& file);
};

/// A tag body taken apart.
struct TagBody {
  enum class Kind { configuration, frame, end, other };
  Kind kind = Kind::other;
  std::string codec;  ///< "h264", "hevc", "aac", "opus"
  bool isKeyFrame = false;
  int compositionOffset = 0;  ///< milliseconds
  std::string hash;           ///< SHA-256 of the payload
  std::size_t size = 0;       ///< of the payload
};
TagBody takeApart(const FlvTag& tag);

struct Comparison {
  bool wholeFile = true;  ///< otherwise the first frames, without gaps, are enough
  bool times = true;      ///< decode times, which are the tags', are compared too
};
/// Fails the running test where `recorded` differs from what `sent` holds: configuration, count, order, key frames,
/// payload, composition offsets and decode times, the latter two to a millisecond of rounding.
void expectSame(const FlvFile& recorded, const MediaContents& sent, const Comparison& how = {});

}  // namespace vellora::test
