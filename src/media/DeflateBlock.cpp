#include "media/DeflateBlock.h"

#include <algorithm>
#include <bit>

#include "media/HuffmanCode.h"

namespace vellora {
namespace {

constexpr std::size_t endOfBlock = 256;
constexpr std::uint32_t longestMatch = 258, shortestMatch = 3;
// Four literals of this length and the seven bits pending before them fit 64 bits.
constexpr int literalCodeLimit = 14;
constexpr int distanceCodeLimit = 15;
constexpr int lengthCodeLimit = 7;

struct LengthSymbol {
  std::uint16_t symbol;
  std::uint8_t extraBits;
  std::uint8_t extra;
};

constexpr auto lengthSymbols = [] {
  std::array<LengthSymbol, longestMatch + 1> table{};
  std::uint32_t length = shortestMatch;
  for (std::uint16_t symbol = 257; symbol < 285; ++symbol) {
    const int extraBits = symbol < 261 ? 0 : (symbol - 261) / 4;
    for (std::uint32_t extra = 0; extra < (1U << extraBits); ++extra, ++length) {
      if (length < longestMatch) {
        table[length] = {symbol, static_cast<std::uint8_t>(extraBits), static_cast<std::uint8_t>(extra)};
      }
    }
  }
  table[longestMatch] = {285, 0, 0};
  return table;
}();

/// Of a distance less one (RFC 1951, 3.2.5).
struct DistanceSymbol {
  explicit DistanceSymbol(std::uint32_t distance) {
    if (distance < 4) {
      symbol = distance;
      return;
    }
    const auto top = static_cast<std::uint32_t>(std::bit_width(distance)) - 1;
    extraBits = top - 1;
    symbol = 2 * top + (distance >> extraBits & 1);
    extra = distance & ((1U << extraBits) - 1);
  }
  std::uint32_t symbol = 0;
  std::uint32_t extraBits = 0;
  std::uint32_t extra = 0;
};

/// Calls `part` for the pieces of at most 258 bytes that make up a match; none is shorter than 3.
template <class F>
inline void splitMatch(std::uint32_t length, F part) {
  while (length > longestMatch) {
    const std::uint32_t piece = length < longestMatch + shortestMatch ? longestMatch - shortestMatch : longestMatch;
    part(piece);
    length -= piece;
  }
  part(length);
}

/// Writes bits lowest first. The place must have eight spare bytes behind what is written.
class BitWriter {
 public:
  BitWriter(std::byte* place, std::uint64_t bits, unsigned count) : place_(place), bits_(bits), count_(count) {}

  void add(std::uint64_t value, unsigned count) {
    bits_ |= value << count_;
    count_ += count;
  }
  /// Moves whole bytes out; at most seven bits stay, so that 57 more fit.
  void settle() {
    static_assert(std::endian::native == std::endian::little);
    std::memcpy(place_, &bits_, sizeof(bits_));
    const unsigned bytes = count_ >> 3;
    place_ += bytes;
    bits_ = bytes == 8 ? 0 : bits_ >> (bytes * 8);
    count_ &= 7;
  }
  std::byte* place() const { return place_; }
  std::uint64_t bits() const { return bits_; }
  unsigned count() const { return count_; }

 private:
  std::byte* place_;
  std::uint64_t bits_;
  unsigned count_;
};

/// The code lengths of both alphabets in the form of RFC 1951, 3.2.7: run lengths, themselves coded.
class BlockHeader {
 public:
  BlockHeader(std::span<const std::uint8_t> literalLengths, std::span<const std::uint8_t> distanceLengths) {
    literals_ = trimmed(literalLengths, 257);
    distances_ = trimmed(distanceLengths, 1);
    std::array<std::uint8_t, 320> all{};
    std::copy_n(literalLengths.begin(), literals_, all.begin());
    std::copy_n(distanceLengths.begin(), distances_, all.begin() + static_cast<std::ptrdiff_t>(literals_));
    pack({all.data(), literals_ + distances_});
    findCodeLengths(counts_, lengths_, lengthCodeLimit);
    assignCodes(lengths_, codes_);
  }

  void write(BitWriter& out) const {
    static constexpr std::array<std::uint8_t, 19> order{16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                        11, 4,  12, 3, 13, 2, 14, 1, 15};
    std::size_t used = order.size();
    while (used > 4 && lengths_[order[used - 1]] == 0) --used;
    out.add(0b100, 3);  // not the last block; own codes
    out.add(literals_ - 257, 5);
    out.add(distances_ - 1, 5);
    out.add(used - 4, 4);
    out.settle();
    for (std::size_t i = 0; i < used; ++i) {
      out.add(lengths_[order[i]], 3);
      out.settle();
    }
    for (std::size_t i = 0; i < runs_; ++i) {
      const Run& run = packed_[i];
      out.add(codes_[run.symbol], lengths_[run.symbol]);
      out.add(run.extra, run.symbol == 16 ? 2 : run.symbol == 17 ? 3 : run.symbol == 18 ? 7 : 0);
      out.settle();
    }
  }

 private:
  struct Run {
    std::uint8_t symbol;
    std::uint8_t extra;
  };

  static std::size_t trimmed(std::span<const std::uint8_t> lengths, std::size_t least) {
    std::size_t size = lengths.size();
    while (size > least && lengths[size - 1] == 0) --size;
    return size;
  }

  void add(std::uint8_t symbol, std::size_t extra) {
    packed_[runs_++] = {symbol, static_cast<std::uint8_t>(extra)};
    ++counts_[symbol];
  }

  void pack(std::span<const std::uint8_t> all) {
    for (std::size_t i = 0; i < all.size();) {
      const std::uint8_t length = all[i];
      std::size_t run = 1;
      while (i + run < all.size() && all[i + run] == length) ++run;
      i += run;
      if (length == 0) {
        for (; run >= 11; run -= std::min<std::size_t>(run, 138)) add(18, std::min<std::size_t>(run, 138) - 11);
        if (run >= 3) {
          add(17, run - 3);
          run = 0;
        }
      } else {
        add(length, 0);
        --run;
        for (; run >= 3; run -= std::min<std::size_t>(run, 6)) add(16, std::min<std::size_t>(run, 6) - 3);
      }
      for (; run > 0; --run) add(length, 0);
    }
  }

  std::size_t literals_ = 0;
  std::size_t distances_ = 0;
  std::array<Run, 320> packed_{};
  std::size_t runs_ = 0;
  std::array<std::uint32_t, 19> counts_{};
  std::array<std::uint8_t, 19> lengths_{};
  std::array<std::uint16_t, 19> codes_{};
};

}  // namespace

template <class Pixel>
void DeflateBlock<Pixel>::count() {
  // One table per byte of a pixel, so that equal bytes in a row do not wait for each other's counts.
  std::array<std::array<std::uint32_t, 256>, 4> bytes{};
  if constexpr (sizeof(Pixel) == 1) {
    for (std::size_t i = 0; i < literals_.size(); ++i) ++bytes[i & 3][literals_[i]];
  } else if (bytesPerPixel_ == 3) {
    for (const Pixel pixel : literals_) {
      ++bytes[0][pixel & 0xFF];
      ++bytes[1][pixel >> 8 & 0xFF];
      ++bytes[2][pixel >> 16 & 0xFF];
    }
  } else {
    for (const Pixel pixel : literals_) {
      ++bytes[0][pixel & 0xFF];
      ++bytes[1][pixel >> 8 & 0xFF];
      ++bytes[2][pixel >> 16 & 0xFF];
      ++bytes[3][pixel >> 24];
    }
  }
  literalCounts_.fill(0);
  distanceCounts_.fill(0);
  for (std::size_t value = 0; value < 256; ++value) {
    literalCounts_[value] = bytes[0][value] + bytes[1][value] + bytes[2][value] + bytes[3][value];
  }
  literalCounts_[endOfBlock] = 1;
  for (const DeflateStep& step : steps_) {
    if (step.filter != DeflateStep::noFilter) ++literalCounts_[step.filter];
    if (step.length == 0) continue;
    std::uint32_t pieces = 0;
    splitMatch(step.length, [&](std::uint32_t length) {
      ++literalCounts_[lengthSymbols[length].symbol];
      ++pieces;
    });
    distanceCounts_[DistanceSymbol(step.distance).symbol] += pieces;
  }
  // A code of a single symbol is legal but some readers stumble over it.
  for (std::size_t symbol = 0; symbol < 2; ++symbol) distanceCounts_[symbol] = std::max(distanceCounts_[symbol], 1U);
}

template <class Pixel>
std::uint64_t DeflateBlock<Pixel>::contentBits() const {
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < literalSymbols; ++i) {
    const std::uint64_t extra = i < 265 || i == 285 ? 0 : (i - 261) / 4;
    bits += literalCounts_[i] * (literalLengths_[i] + extra);
  }
  for (std::size_t i = 0; i < distanceSymbols; ++i) {
    const std::uint64_t extra = i < 4 ? 0 : i / 2 - 1;
    bits += distanceCounts_[i] * (distanceLengths_[i] + extra);
  }
  return bits;
}

template <class Pixel>
bool DeflateBlock<Pixel>::flush(ByteBuffer& out, PendingBits& pending) {
  if (steps_.empty()) return true;
  count();
  findCodeLengths(literalCounts_, literalLengths_, literalCodeLimit);
  findCodeLengths(distanceCounts_, distanceLengths_, distanceCodeLimit);
  std::array<std::uint16_t, literalSymbols> literalCodes{};
  std::array<std::uint16_t, distanceSymbols> distanceCodes{};
  assignCodes(literalLengths_, literalCodes);
  assignCodes(distanceLengths_, distanceCodes);

  constexpr std::size_t headerBound = 512, spare = 8;
  std::byte* place = out.reserve(headerBound + static_cast<std::size_t>(contentBits() / 8) + 1 + spare);
  if (place == nullptr) return false;
  BitWriter bits(place, pending.bits, pending.count);
  BlockHeader(literalLengths_, distanceLengths_).write(bits);

  struct Code {
    std::uint32_t bits;
    std::uint32_t count;
  };
  std::array<Code, 256> literal{};
  for (std::size_t i = 0; i < literal.size(); ++i) literal[i] = {literalCodes[i], literalLengths_[i]};
  std::array<Code, longestMatch + 1> length{};
  for (std::size_t i = shortestMatch; i <= longestMatch; ++i) {
    const LengthSymbol& symbol = lengthSymbols[i];
    const std::uint32_t codeBits = literalLengths_[symbol.symbol];
    length[i] = {literalCodes[symbol.symbol] | static_cast<std::uint32_t>(symbol.extra) << codeBits,
                 codeBits + symbol.extraBits};
  }

  const Pixel* next = literals_.data();
  for (const DeflateStep& step : steps_) {
    if (step.filter != DeflateStep::noFilter) {
      bits.add(literal[step.filter].bits, literal[step.filter].count);
      bits.settle();
    }
    for (const Pixel* const end = next + step.literals; next != end; ++next) {
      const Pixel pixel = *next;
      bits.add(literal[pixel & 0xFF].bits, literal[pixel & 0xFF].count);
      if constexpr (sizeof(Pixel) == 4) {
        bits.add(literal[pixel >> 8 & 0xFF].bits, literal[pixel >> 8 & 0xFF].count);
        bits.add(literal[pixel >> 16 & 0xFF].bits, literal[pixel >> 16 & 0xFF].count);
        if (bytesPerPixel_ == 4) bits.add(literal[pixel >> 24].bits, literal[pixel >> 24].count);
      }
      bits.settle();
    }
    if (step.length == 0) continue;
    const DistanceSymbol symbol(step.distance);
    const std::uint32_t distanceBits = distanceLengths_[symbol.symbol];
    const std::uint32_t distance = distanceCodes[symbol.symbol] | symbol.extra << distanceBits;
    splitMatch(step.length, [&](std::uint32_t piece) {
      bits.add(length[piece].bits, length[piece].count);
      bits.add(distance, distanceBits + symbol.extraBits);
      bits.settle();
    });
  }
  bits.add(literalCodes[endOfBlock], literalLengths_[endOfBlock]);
  bits.settle();
  out.commit(static_cast<std::size_t>(bits.place() - place));
  pending = {bits.bits(), bits.count()};
  steps_.clear();
  literals_.clear();
  return true;
}

template class DeflateBlock<std::uint32_t>;
template class DeflateBlock<std::uint8_t>;

bool endDeflateRun(ByteBuffer& out, std::uint64_t bits, unsigned count, bool last) {
  constexpr std::size_t bound = 16;
  std::byte* place = out.reserve(bound);
  if (place == nullptr) return false;
  BitWriter writer(place, bits, count);
  writer.add(last ? 1 : 0, 3);
  const unsigned odd = writer.count() & 7;
  writer.add(0, odd == 0 ? 0 : 8 - odd);
  writer.settle();
  writer.add(0xFFFF0000, 32);  // no bytes, and the complement of that count
  writer.settle();
  out.commit(static_cast<std::size_t>(writer.place() - place));
  return true;
}

}  // namespace vellora
