#pragma once

#include <cstddef>
#include <cstdint>

#include "rtmp/wire/Bytes.h"

namespace vellora {

/// How far a connection is. The raw values are fixed.
enum class RTMPReadyState : std::uint8_t { uninitialized = 0, versionSent = 1, ackSent = 2, handshakeDone = 3 };

/// The simple handshake of the published protocol, without digests: the bytes of C0 to C2. What the server says in S1
/// and S2 is not validated. Times beyond 32 bits with sign leave as the nearest there is.
class RTMPHandshake {
 public:
  static constexpr std::uint8_t protocolVersion = 3;
  static constexpr std::size_t packetSize = 1536;

  /// Seconds since 1970; the time field of C1.
  double timestamp = 0;
  /// Received and not yet used.
  Bytes inputBuffer;

  /// C0 and C1, 1537 bytes.
  Bytes c0c1packet() const;
  /// C2, 1536 bytes, from the S0 and S1 at the start of `inputBuffer`, which are removed. `now`: seconds since 1970.
  /// Empty, and nothing is removed, while `inputBuffer` holds less.
  Bytes c2packet(double now);
};

}  // namespace vellora
