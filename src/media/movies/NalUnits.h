#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vellora {

enum class NalCodec { h264, hevc };

/// What a NAL unit is, as far as containers care.
enum class NalRole { videoParameters, sequenceParameters, pictureParameters, delimiter, other };

/// The role a NAL unit's header gives it (ITU-T H.264 table 7-1, H.265 table 7-1). An empty unit is a delimiter.
NalRole roleOf(std::span<const std::uint8_t> unit, NalCodec codec);

/// Appends the units of a byte stream (H.264 and H.265, annex B) to `units`, without start codes and trailing zeros.
void splitByteStream(std::span<const std::uint8_t> stream, std::vector<std::span<const std::uint8_t>>& units);

/// Appends length-prefixed units to `units`; false when they do not fill `data` exactly.
bool splitLengthPrefixed(std::span<const std::uint8_t> data, int lengthBytes,
                         std::vector<std::span<const std::uint8_t>>& units);

/// The parameter sets in an avcC or hvcC record, as far as it can be read.
std::vector<std::span<const std::uint8_t>> unitsOfConfiguration(std::span<const std::uint8_t> record, NalCodec codec);

/// The parameter sets a decoder needs before the first picture.
struct ParameterSets {
  std::vector<std::vector<std::uint8_t>> video;  ///< HEVC only
  std::vector<std::vector<std::uint8_t>> sequence;
  std::vector<std::vector<std::uint8_t>> picture;

  /// Takes the parameter sets among `units`, one of each content.
  void collect(std::span<const std::span<const std::uint8_t>> units, NalCodec codec);
  bool areComplete(NalCodec codec) const;
  /// The avcC or hvcC record (ISO/IEC 14496-15, 5.3.3.1 and 8.3.3.1) for units with four-byte lengths; nothing when the
  /// sets are incomplete or cannot be read.
  std::optional<std::vector<std::uint8_t>> configuration(NalCodec codec) const;
};

}  // namespace vellora
