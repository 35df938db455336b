#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vellora {

/// Collects samples of all tracks for the next fragment of a movie.
class FragmentBuilder {
 public:
  explicit FragmentBuilder(std::size_t tracks) : tracks_(tracks) {}

  /// Samples of a track come with growing decode times. A sample lasts until the next one; the last one in a fragment
  /// `duration`, until the next fragment says better.
  void add(std::size_t track, std::span<const std::uint8_t> data, std::int64_t decodeTime, std::uint32_t duration,
           bool isKey);
  bool isEmpty() const { return bytes_ == 0; }
  /// Of all samples.
  std::size_t bytes() const { return bytes_; }

  /// "moof" and "mdat" with all that was added (ISO/IEC 14496-12, 8.8); starts anew after it. The bytes are valid until
  /// the next call.
  std::span<const std::uint8_t> build();

 private:
  struct Sample {
    std::uint32_t size = 0;
    std::uint32_t duration = 0;
    bool isKey = true;
  };
  struct Track {
    std::vector<Sample> samples;
    std::vector<std::uint8_t> data;
    std::int64_t firstTime = 0;  ///< when the first sample is decoded
    std::int64_t lastTime = 0;
  };

  std::vector<Track> tracks_;
  std::size_t bytes_ = 0;
  std::uint32_t number_ = 0;  // of the fragment
  std::vector<std::uint8_t> built_;
};

}  // namespace vellora
