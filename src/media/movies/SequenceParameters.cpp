#include "media/movies/SequenceParameters.h"

#include <algorithm>
#include <vector>

namespace vellora {
namespace {

/// Bits of a NAL unit's payload, the emulation prevention bytes taken out (ITU-T H.264, 7.4.1.1). Past the end: zeros,
/// and isOver().
class BitReader {
 public:
  explicit BitReader(std::span<const std::uint8_t> payload) {
    bytes_.reserve(payload.size());
    int zeros = 0;
    for (const std::uint8_t byte : payload) {
      if (zeros >= 2 && byte == 3) {
        zeros = 0;
        continue;
      }
      zeros = byte == 0 ? zeros + 1 : 0;
      bytes_.push_back(byte);
    }
  }

  unsigned bits(int count) {
    unsigned value = 0;
    for (int i = 0; i < count; ++i) value = value << 1 | bit();
    return value;
  }

  void skip(std::size_t count) { position_ += count; }

  /// ue(v), ITU-T H.264, 9.1.
  unsigned exponential() {
    int zeros = 0;
    while (zeros < 31 && bit() == 0) ++zeros;
    return (1U << zeros) - 1 + bits(zeros);
  }

  bool isOver() const { return position_ > bytes_.size() * 8; }

 private:
  unsigned bit() {
    const std::size_t byte = position_ / 8;
    const unsigned value = byte < bytes_.size() ? bytes_[byte] >> (7 - position_ % 8) & 1U : 0U;
    ++position_;
    return value;
  }

  std::vector<std::uint8_t> bytes_;
  std::size_t position_ = 0;
};

template <class Format>
bool readDepths(BitReader& reader, Format& format) {
  format.lumaBits = reader.exponential() + 8;
  format.chromaBits = reader.exponential() + 8;
  return !reader.isOver() && format.chroma <= 3 && format.lumaBits <= 15 && format.chromaBits <= 15;
}

}  // namespace

std::optional<H264Format> readH264Format(std::span<const std::uint8_t> unit) {
  if (unit.size() < 4) return std::nullopt;
  const unsigned profile = unit[1];
  constexpr std::array<unsigned, 3> plain{66, 77, 88};
  H264Format format;
  format.hasHighFields = std::ranges::find(plain, profile) == plain.end();
  if (!format.hasHighFields) return format;
  BitReader reader(unit.subspan(4));
  reader.exponential();  // seq_parameter_set_id
  format.chroma = reader.exponential();
  if (format.chroma == 3) reader.skip(1);  // separate_colour_plane_flag
  if (!readDepths(reader, format)) return std::nullopt;
  return format;
}

std::optional<HevcFormat> readHevcFormat(std::span<const std::uint8_t> unit) {
  if (unit.size() < 15) return std::nullopt;
  BitReader reader(unit.subspan(2));
  HevcFormat format;
  reader.skip(4);  // sps_video_parameter_set_id
  const unsigned subLayers = reader.bits(3);
  format.temporalLayers = subLayers + 1;
  format.isTemporalIdNested = reader.bits(1) != 0;
  for (std::uint8_t& byte : format.profileTierLevel) byte = static_cast<std::uint8_t>(reader.bits(8));

  std::array<bool, 8> profilePresent{};
  std::array<bool, 8> levelPresent{};
  for (unsigned i = 0; i < subLayers; ++i) {
    profilePresent[i] = reader.bits(1) != 0;
    levelPresent[i] = reader.bits(1) != 0;
  }
  if (subLayers > 0) reader.skip(2 * (8 - subLayers));
  for (unsigned i = 0; i < subLayers; ++i) {
    if (profilePresent[i]) reader.skip(88);
    if (levelPresent[i]) reader.skip(8);
  }

  reader.exponential();  // sps_seq_parameter_set_id
  format.chroma = reader.exponential();
  if (format.chroma == 3) reader.skip(1);
  reader.exponential();  // width
  reader.exponential();  // height
  if (reader.bits(1) != 0) {
    for (int i = 0; i < 4; ++i) reader.exponential();  // conformance window
  }
  if (!readDepths(reader, format)) return std::nullopt;
  return format;
}

}  // namespace vellora
