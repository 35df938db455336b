#include "media/movies/MovieClock.h"

#include <algorithm>
#include <cstdlib>

namespace vellora {
namespace {

using Microseconds = std::int64_t;

constexpr AVRational microsecond{1, 1000000};
/// Time stamps further back than this are a clock that started anew, nearer ones are small faults.
constexpr Microseconds furthestBack = 1000000;
constexpr Microseconds furthestAhead = 10000000;
/// How well one track's jump has to explain the other's.
constexpr Microseconds sameJump = 1000000;
/// Beyond this, about 30 years, a time stamp is no time. Leaves room to add.
constexpr Microseconds mostTime = 1000000000000000;

std::optional<Microseconds> inMicroseconds(std::int64_t stamp, AVRational timeBase) {
  if (stamp == AV_NOPTS_VALUE) return std::nullopt;
  const Microseconds time = av_rescale_q(stamp, timeBase, microsecond);
  if (time < -mostTime || time > mostTime) return std::nullopt;
  return time;
}

}  // namespace

void MovieClock::addTrack(MediaKind kind, AVRational timeBase, std::chrono::microseconds nominal, bool mayJump) {
  Track& track = tracks_.at(static_cast<std::size_t>(kind));
  track = {};
  track.timeBase = timeBase;
  track.nominal = nominal.count();
  track.mayJump = mayJump;
}

PacketTimes MovieClock::next(MediaKind kind, const AVPacket& packet) {
  const auto index = static_cast<std::size_t>(kind);
  Track& track = tracks_.at(index);
  const auto decodeStamp = inMicroseconds(packet.dts, track.timeBase);
  const auto presentationStamp = inMicroseconds(packet.pts, track.timeBase);
  const auto length = inMicroseconds(packet.duration, track.timeBase);

  const Microseconds expected = track.hasStarted ? track.decode + track.step : 0;
  Microseconds stamp = expected - track.offset;
  if (decodeStamp) {
    stamp = *decodeStamp;
  } else if (presentationStamp) {
    // A picture may be shown long after it is decoded, but not before.
    stamp = kind == MediaKind::audio || !track.hasStarted ? *presentationStamp : std::min(stamp, *presentationStamp);
  }
  // Some files present before they decode: then decoding has to be earlier.
  if (presentationStamp) stamp = std::min(stamp, *presentationStamp);
  if (track.hasStarted) followJump(track, tracks_.at(1 - index), stamp);

  PacketTimes times;
  Microseconds decode = stamp + track.offset;
  if (track.hasStarted) decode = std::max(decode, track.decode + 1);
  const Microseconds presentation = std::max(decode, presentationStamp ? *presentationStamp + track.offset : decode);
  Microseconds duration = length.value_or(0);
  if (duration <= 0) duration = track.nominal > 0 ? track.nominal : track.step;
  track.step = duration;
  track.decode = decode;
  track.hasStarted = true;
  times.decode = std::chrono::microseconds(decode);
  times.presentation = std::chrono::microseconds(presentation);
  times.duration = std::chrono::microseconds(duration);
  return times;
}

void MovieClock::followJump(Track& track, const Track& other, Microseconds stamp) const {
  const Microseconds decode = stamp + track.offset;
  const Microseconds expected = track.decode + track.step;
  const bool isBack = decode < track.decode - furthestBack;
  const bool isAhead = track.mayJump && decode > expected + furthestAhead;
  if (!isBack && !isAhead) return;
  const bool explained = other.hasStarted && std::abs(stamp + other.offset - expected) <= sameJump;
  track.offset = explained ? other.offset : expected - stamp;
}

}  // namespace vellora
