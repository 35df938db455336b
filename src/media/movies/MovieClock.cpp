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
/// Where a clock does not jump, a longer pause, an hour, is damage.
constexpr Microseconds longestPause = 3600000000;
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

void MovieClock::addTrack(MediaKind kind, const Kind& track) {
  tracks_.at(static_cast<std::size_t>(kind)) = {.kind = track};
}

PacketTimes MovieClock::next(MediaKind kind, const AVPacket& packet) {
  const auto index = static_cast<std::size_t>(kind);
  Track& track = tracks_.at(index);
  const auto decodeStamp = inMicroseconds(packet.dts, track.kind.timeBase);
  const auto presentationStamp = inMicroseconds(packet.pts, track.kind.timeBase);
  Microseconds duration = inMicroseconds(packet.duration, track.kind.timeBase).value_or(0);
  if (duration <= 0) duration = track.kind.nominal.count();

  Microseconds stamp = track.hasStarted ? track.decode + track.step - track.offset : 0;
  if (decodeStamp) {
    stamp = *decodeStamp;
  } else if (presentationStamp && (kind == MediaKind::audio || !track.hasStarted)) {
    stamp = *presentationStamp - track.kind.delay * duration;
  }
  // No picture is shown before it is decoded.
  if (presentationStamp) stamp = std::min(stamp, *presentationStamp);
  if (track.hasStarted) followJump(track, tracks_.at(1 - index), stamp);

  Microseconds decode = stamp + track.offset;
  if (track.hasStarted) decode = std::max(decode, track.decode + 1);
  if (duration <= 0 && track.hasStarted) duration = decode - track.decode;
  const Microseconds presentation = std::max(decode, presentationStamp.value_or(stamp) + track.offset);
  track.step = duration;
  track.decode = decode;
  track.hasStarted = true;
  using std::chrono::microseconds;
  return {microseconds(decode), microseconds(presentation), microseconds(duration)};
}

void MovieClock::followJump(Track& track, const Track& other, Microseconds stamp) const {
  const Microseconds decode = stamp + track.offset;
  const Microseconds expected = track.decode + track.step;
  const bool isBack = decode < track.decode - furthestBack;
  const bool isAhead = decode > expected + (track.kind.mayJump ? furthestAhead : longestPause);
  if (!isBack && !isAhead) return;
  const bool explained = other.hasStarted && std::abs(stamp + other.offset - expected) <= sameJump;
  track.offset = explained ? other.offset : expected - stamp;
}

}  // namespace vellora
