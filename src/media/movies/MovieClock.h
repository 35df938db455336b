#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>

#include "media/movies/LibavPointers.h"
#include "media/movies/MediaReader.h"

namespace vellora {

struct PacketTimes {
  std::chrono::microseconds decode{};
  std::chrono::microseconds presentation{};
  std::chrono::microseconds duration{};
};

/// Makes a file's time stamps what a player needs: decode times that grow, no presentation before decoding, no missing
/// ones. Where the clock of the file starts anew, the times go on from where they were, by the same amount in both
/// tracks.
class MovieClock {
 public:
  struct Kind {
    AVRational timeBase{1, 1000};
    std::chrono::microseconds nominal{};  ///< how long a packet lasts when the file does not say
    int delay = 0;                        ///< how many pictures are decoded before the first one is shown
    bool mayJump = false;                 ///< the format's clock may also leap ahead
  };

  void addTrack(MediaKind kind, const Kind& track);
  /// The times of the track's next packet, still from the file's own zero.
  PacketTimes next(MediaKind kind, const AVPacket& packet);

 private:
  struct Track {
    Kind kind;
    bool hasStarted = false;
    std::int64_t offset = 0;  // all microseconds
    std::int64_t decode = 0;
    std::int64_t step = 0;
  };

  void followJump(Track& track, const Track& other, std::int64_t stamp) const;

  std::array<Track, 2> tracks_;
};

}  // namespace vellora
