#include "rtmp/wire/RTMPHandshake.h"

#include <sys/random.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <limits>
#include <span>

namespace vellora {
namespace {

void putSeconds(std::uint8_t* target, double seconds) {
  using Limits = std::numeric_limits<std::int32_t>;
  const double clamped = std::isnan(seconds) ? 0 : std::clamp<double>(seconds, Limits::min(), Limits::max());
  const auto bits = static_cast<std::uint32_t>(static_cast<std::int32_t>(clamped));
  for (int i = 0; i < 4; ++i) target[i] = static_cast<std::uint8_t>(bits >> (24 - 8 * i));
}

void fillRandomly(std::span<std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t filled = getrandom(bytes.data(), bytes.size(), 0);
    if (filled < 0 && errno != EINTR) return;  // a kernel without it: zeros do as well, nobody relies on these bytes
    bytes = bytes.subspan(static_cast<std::size_t>(std::max<ssize_t>(filled, 0)));
  }
}

}  // namespace

Bytes RTMPHandshake::c0c1packet() const {
  Bytes packet(1 + packetSize);
  packet[0] = protocolVersion;
  putSeconds(&packet[1], timestamp);
  fillRandomly(std::span(packet).subspan(9));
  return packet;
}

Bytes RTMPHandshake::c2packet(double now) {
  if (inputBuffer.size() < 1 + packetSize) return {};
  const auto end = inputBuffer.begin() + 1 + packetSize;
  Bytes packet(inputBuffer.begin() + 1, end);
  putSeconds(&packet[4], now - timestamp);
  inputBuffer.erase(inputBuffer.begin(), end);
  return packet;
}

}  // namespace vellora
