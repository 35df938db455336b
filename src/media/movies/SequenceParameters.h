#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace vellora {

/// What an avcC record repeats of a sequence parameter set (ITU-T H.264, 7.3.2.1.1).
struct H264Format {
  bool hasHighFields = false;  ///< a profile whose record says the three fields below
  unsigned chroma = 1;         ///< chroma_format_idc
  unsigned lumaBits = 8;
  unsigned chromaBits = 8;
};

/// What an hvcC record repeats of a sequence parameter set (ITU-T H.265, 7.3.2.2.1).
struct HevcFormat {
  std::array<std::uint8_t, 12> profileTierLevel{};  ///< general_profile_space to general_level_idc
  unsigned temporalLayers = 1;
  bool isTemporalIdNested = false;
  unsigned chroma = 1;
  unsigned lumaBits = 8;
  unsigned chromaBits = 8;
};

/// From a whole NAL unit, header included; nothing when it ends early or says what cannot be.
std::optional<H264Format> readH264Format(std::span<const std::uint8_t> unit);
std::optional<HevcFormat> readHevcFormat(std::span<const std::uint8_t> unit);

}  // namespace vellora
