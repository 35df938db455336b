#include "cli/publish/LoopTimeline.h"

#include <algorithm>

namespace vellora {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::microseconds unknownVideoFrame = 40ms;
constexpr std::chrono::microseconds unknownAudioFrame = 20ms;

}  // namespace

LoopTimeline::LoopTimeline(double frameRate)
    : videoFrameDuration_(frameRate >= 1 && frameRate <= 1000
                              ? std::chrono::microseconds(static_cast<std::int64_t>(1e6 / frameRate))
                              : unknownVideoFrame) {}

MediaPacket LoopTimeline::place(MediaPacket packet) {
  packet.decodeTime += offset_;
  packet.presentationTime += offset_;
  const auto duration = packet.duration > 0us             ? packet.duration
                        : packet.kind == MediaKind::video ? videoFrameDuration_
                                                          : unknownAudioFrame;
  end_ = std::max(end_, std::max(packet.decodeTime, packet.presentationTime) + duration);
  return packet;
}

void LoopTimeline::startAgain() {
  offset_ = end_;
}

}  // namespace vellora
