#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>

#include "media/movies/LibavPointers.h"
#include "media/movies/MediaReader.h"
#include "media/movies/MovieClock.h"

namespace vellora {

struct QueuedPacket {
  PacketPointer packet;
  MediaKind kind = MediaKind::video;
  PacketTimes times;
};

/// Puts the packets of two tracks into one order, that of their decode times, and lets the first one decode at 0. Holds
/// back what it needs to know the order, up to a limit: a file that keeps its tracks further apart comes in the order
/// of the file where the limit is reached.
class Interleaver {
 public:
  static constexpr std::chrono::microseconds mostTime = std::chrono::seconds(10);
  static constexpr std::size_t mostBytes = std::size_t{64} << 20;  ///< with what holding a packet costs

  void expect(MediaKind kind) { track(kind).isExpected = true; }
  /// Packets of one kind come with growing decode times.
  void push(QueuedPacket packet);
  /// No packet of this kind follows.
  void finish(MediaKind kind) { track(kind).isExpected = false; }
  void finish();

  /// Whether pop() knows what comes next, that the end is reached included.
  bool isReady() const;
  bool hasFirst(MediaKind kind) const { return !track(kind).packets.empty(); }
  /// The next packet; nothing when none is held.
  std::optional<QueuedPacket> pop();

 private:
  struct Track {
    std::deque<QueuedPacket> packets;
    bool isExpected = false;
    std::chrono::microseconds last{-1};  // decode time given out
  };

  Track& track(MediaKind kind) { return tracks_.at(static_cast<std::size_t>(kind)); }
  const Track& track(MediaKind kind) const { return tracks_.at(static_cast<std::size_t>(kind)); }

  std::array<Track, 2> tracks_;
  std::size_t bytes_ = 0;
  std::optional<std::chrono::microseconds> origin_;
};

}  // namespace vellora
