#include "media/movies/NalUnits.h"

#include <algorithm>
#include <cstring>

#include "media/movies/SequenceParameters.h"

namespace vellora {
namespace {

using Bytes = std::span<const std::uint8_t>;
using Set = std::vector<std::uint8_t>;

/// A record counts its H.264 sequence parameter sets with five bits, and more sets than this are damage.
constexpr std::size_t mostSets = 31;

/// The position of the next 00 00 01 from `from` on, or the size.
std::size_t findStartCode(Bytes stream, std::size_t from) {
  const std::size_t size = stream.size();
  std::size_t i = from;
  while (i + 2 < size) {
    if (stream[i + 2] > 1) {
      i += 3;
    } else if (stream[i + 2] == 1) {
      if (stream[i] == 0 && stream[i + 1] == 0) return i;
      i += 3;
    } else {
      ++i;
    }
  }
  return size;
}

/// Big-endian.
std::size_t numberIn(Bytes bytes) {
  std::size_t value = 0;
  for (const std::uint8_t byte : bytes) value = value << 8 | byte;
  return value;
}

void keep(std::vector<Set>& sets, Bytes unit) {
  const auto same = [&](const Set& set) { return std::ranges::equal(set, unit); };
  if (sets.size() < mostSets && unit.size() <= 0xFFFF && std::ranges::none_of(sets, same)) {
    sets.emplace_back(unit.begin(), unit.end());
  }
}

void put16(Set& to, std::size_t value) {
  to.push_back(static_cast<std::uint8_t>(value >> 8));
  to.push_back(static_cast<std::uint8_t>(value));
}

void putSets(Set& to, const std::vector<Set>& sets) {
  for (const Set& set : sets) {
    put16(to, set.size());
    to.insert(to.end(), set.begin(), set.end());
  }
}

std::optional<Set> avcConfiguration(const ParameterSets& sets) {
  const auto format = readH264Format(sets.sequence.front());
  if (!format) return std::nullopt;
  const Set& first = sets.sequence.front();
  Set record{1, first[1], first[2], first[3], 0xFF, static_cast<std::uint8_t>(0xE0U | sets.sequence.size())};
  putSets(record, sets.sequence);
  record.push_back(static_cast<std::uint8_t>(sets.picture.size()));
  putSets(record, sets.picture);
  if (format->hasHighFields) {
    record.push_back(static_cast<std::uint8_t>(0xFCU | format->chroma));
    record.push_back(static_cast<std::uint8_t>(0xF8U | (format->lumaBits - 8)));
    record.push_back(static_cast<std::uint8_t>(0xF8U | (format->chromaBits - 8)));
    record.push_back(0);  // sequence parameter set extensions
  }
  return record;
}

std::optional<Set> hevcConfiguration(const ParameterSets& sets) {
  const auto format = readHevcFormat(sets.sequence.front());
  if (!format) return std::nullopt;
  Set record{1};
  record.insert(record.end(), format->profileTierLevel.begin(), format->profileTierLevel.end());
  put16(record, 0xF000);   // min_spatial_segmentation_idc: not known
  record.push_back(0xFC);  // parallelismType: not known
  record.push_back(static_cast<std::uint8_t>(0xFCU | format->chroma));
  record.push_back(static_cast<std::uint8_t>(0xF8U | (format->lumaBits - 8)));
  record.push_back(static_cast<std::uint8_t>(0xF8U | (format->chromaBits - 8)));
  put16(record, 0);  // avgFrameRate: not known
  record.push_back(
      static_cast<std::uint8_t>(format->temporalLayers << 3 | (format->isTemporalIdNested ? 4U : 0U) | 3U));
  record.push_back(3);
  const auto putArray = [&](unsigned type, const std::vector<Set>& array) {
    record.push_back(static_cast<std::uint8_t>(type));  // array_completeness 0: the stream may repeat them
    put16(record, array.size());
    putSets(record, array);
  };
  putArray(32, sets.video);
  putArray(33, sets.sequence);
  putArray(34, sets.picture);
  return record;
}

}  // namespace

NalRole roleOf(Bytes unit, NalCodec codec) {
  if (unit.empty()) return NalRole::delimiter;
  if (codec == NalCodec::h264) {
    switch (unit[0] & 0x1F) {
      case 7:
        return NalRole::sequenceParameters;
      case 8:
        return NalRole::pictureParameters;
      case 9:
        return NalRole::delimiter;
      default:
        return NalRole::other;
    }
  }
  switch (unit[0] >> 1 & 0x3F) {
    case 32:
      return NalRole::videoParameters;
    case 33:
      return NalRole::sequenceParameters;
    case 34:
      return NalRole::pictureParameters;
    case 35:
      return NalRole::delimiter;
    default:
      return NalRole::other;
  }
}

void splitByteStream(Bytes stream, std::vector<Bytes>& units) {
  std::size_t start = findStartCode(stream, 0);
  while (start < stream.size()) {
    const std::size_t begin = start + 3;
    const std::size_t next = findStartCode(stream, begin);
    std::size_t end = next;
    while (end > begin && stream[end - 1] == 0) --end;
    if (end > begin) units.push_back(stream.subspan(begin, end - begin));
    start = next;
  }
}

bool splitLengthPrefixed(Bytes data, int lengthBytes, std::vector<Bytes>& units) {
  const auto prefix = static_cast<std::size_t>(lengthBytes);
  while (!data.empty()) {
    if (data.size() < prefix) return false;
    const std::size_t length = numberIn(data.first(prefix));
    if (length > data.size() - prefix) return false;
    units.push_back(data.subspan(prefix, length));
    data = data.subspan(prefix + length);
  }
  return true;
}

std::vector<Bytes> unitsOfConfiguration(Bytes record, NalCodec codec) {
  std::vector<Bytes> units;
  const auto take = [&](std::size_t count) {
    const Bytes taken = record.first(std::min(count, record.size()));
    record = record.subspan(taken.size());
    return taken;
  };
  const auto takeUnits = [&](std::size_t count) {
    for (std::size_t i = 0; i < count && !record.empty(); ++i) units.push_back(take(numberIn(take(2))));
  };
  if (codec == NalCodec::h264) {
    take(5);
    takeUnits(numberIn(take(1)) & 31);
    takeUnits(numberIn(take(1)));
  } else {
    take(22);
    const std::size_t arrays = numberIn(take(1));
    for (std::size_t i = 0; i < arrays && !record.empty(); ++i) {
      take(1);
      takeUnits(numberIn(take(2)));
    }
  }
  return units;
}

void ParameterSets::collect(std::span<const Bytes> units, NalCodec codec) {
  for (const Bytes unit : units) {
    switch (roleOf(unit, codec)) {
      case NalRole::videoParameters:
        keep(video, unit);
        break;
      case NalRole::sequenceParameters:
        keep(sequence, unit);
        break;
      case NalRole::pictureParameters:
        keep(picture, unit);
        break;
      case NalRole::delimiter:
      case NalRole::other:
        break;
    }
  }
}

bool ParameterSets::areComplete(NalCodec codec) const {
  return !sequence.empty() && !picture.empty() && (codec == NalCodec::h264 || !video.empty());
}

std::optional<Set> ParameterSets::configuration(NalCodec codec) const {
  if (!areComplete(codec)) return std::nullopt;
  return codec == NalCodec::h264 ? avcConfiguration(*this) : hevcConfiguration(*this);
}

}  // namespace vellora
