#include "media/movies/Interleaver.h"

#include <algorithm>
#include <utility>

namespace vellora {
namespace {

/// What holding any packet takes besides its bytes, about.
constexpr std::size_t packetCost = 512;

std::size_t costOf(const QueuedPacket& packet) {
  return packetCost + static_cast<std::size_t>(packet.packet->size);
}

}  // namespace

void Interleaver::push(QueuedPacket packet) {
  bytes_ += costOf(packet);
  track(packet.kind).packets.push_back(std::move(packet));
}

void Interleaver::finish() {
  for (Track& track : tracks_) track.isExpected = false;
}

bool Interleaver::isReady() const {
  const bool waits = std::ranges::any_of(tracks_, [](const Track& t) { return t.isExpected && t.packets.empty(); });
  if (!waits || bytes_ > mostBytes) return true;
  return std::ranges::any_of(tracks_, [](const Track& t) {
    return !t.packets.empty() && t.packets.back().times.decode - t.packets.front().times.decode > mostTime;
  });
}

std::optional<QueuedPacket> Interleaver::pop() {
  Track* first = nullptr;
  for (Track& track : tracks_) {
    if (track.packets.empty()) continue;
    if (first == nullptr || track.packets.front().times.decode < first->packets.front().times.decode) first = &track;
  }
  if (first == nullptr) return std::nullopt;
  QueuedPacket next = std::move(first->packets.front());
  first->packets.pop_front();
  bytes_ -= costOf(next);
  if (!origin_) origin_ = next.times.decode;
  // A track that came too late to be held may begin before the origin.
  const auto decode = std::max(next.times.decode - *origin_, first->last + std::chrono::microseconds(1));
  next.times.presentation = std::max(next.times.presentation - *origin_, decode);
  next.times.decode = decode;
  first->last = decode;
  return next;
}

}  // namespace vellora
