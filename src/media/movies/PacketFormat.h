#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "media/movies/LibavPointers.h"

namespace vellora {

/// Gives a track's packets the form a reader promises, whatever the container has: NAL units with lengths, AAC without
/// ADTS. What cannot be used on its own, such as pictures before the first parameter sets, is left out.
class PacketFormat {
 public:
  /// Null when memory is short.
  static std::unique_ptr<PacketFormat> create(const AVCodecParameters& codec);
  virtual ~PacketFormat() = default;

  /// Puts the packet into form in place. False: leave it out.
  virtual bool apply(AVPacket& packet) = 0;
  /// avcC, hvcC, AudioSpecificConfig or OpusHead; empty as long as it is not known.
  const std::vector<std::uint8_t>& configuration() const { return configuration_; }
  /// Whether a decoder can do nothing before it has the configuration.
  virtual bool needsConfiguration() const { return true; }

 protected:
  PacketFormat() = default;
  std::vector<std::uint8_t> configuration_;
};

}  // namespace vellora
