#include "media/PngUnfilter.h"

#include <cstdlib>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace vellora {
namespace {

enum Filter : std::uint8_t { None = 0, Sub = 1, Up = 2, Average = 3, Paeth = 4 };

constexpr std::uint32_t opaque = 0xFF000000U;

std::uint8_t paeth(int left, int above, int corner) {
  const int toLeft = std::abs(above - corner), toAbove = std::abs(left - corner);
  const int toCorner = std::abs(left + above - 2 * corner);
  if (toLeft <= toAbove && toLeft <= toCorner) return static_cast<std::uint8_t>(left);
  return static_cast<std::uint8_t>(toAbove <= toCorner ? above : corner);
}

#ifdef __SSE2__

/// Four bytes with which a filter calculates side by side, in lanes of 16 bits: the way from one pixel to the next is
/// short.
class Pixel {
 public:
  explicit Pixel(std::uint32_t word)
      : lanes_(_mm_unpacklo_epi8(_mm_cvtsi32_si128(static_cast<int>(word)), _mm_setzero_si128())) {}

  std::uint32_t word() const { return static_cast<std::uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(lanes_, lanes_))); }
  Pixel operator+(Pixel other) const { return Pixel(_mm_add_epi8(lanes_, other.lanes_)); }

  static Pixel average(Pixel a, Pixel b) { return Pixel(_mm_srli_epi16(_mm_add_epi16(a.lanes_, b.lanes_), 1)); }

  /// Left + above - corner is nearest to the lesser of left and above where the corner is beyond the greater one, to
  /// the greater where it is beyond the lesser, and to the corner where that is between them. With ties as PNG has
  /// them, that is to ask on which sides of them 3 corner - left - above lies.
  static Pixel paeth(Pixel left, Pixel above, Pixel corner) {
    const __m128i c = corner.lanes_, threefold = _mm_add_epi16(c, _mm_add_epi16(c, c));
    const __m128i threshold = _mm_sub_epi16(_mm_sub_epi16(threefold, above.lanes_), left.lanes_);
    const __m128i least = _mm_min_epi16(left.lanes_, above.lanes_), most = _mm_max_epi16(left.lanes_, above.lanes_);
    const __m128i isNotLeast = _mm_cmpgt_epi16(most, threshold), isNotMost = _mm_cmpgt_epi16(threshold, least);
    const __m128i leastOrCorner = _mm_or_si128(_mm_andnot_si128(isNotLeast, least), _mm_and_si128(isNotLeast, c));
    return Pixel(_mm_or_si128(_mm_andnot_si128(isNotMost, most), _mm_and_si128(isNotMost, leastOrCorner)));
  }

 private:
  explicit Pixel(__m128i lanes) : lanes_(lanes) {}

  __m128i lanes_;
};

#else

/// Four bytes with which a filter calculates side by side.
class Pixel {
 public:
  explicit Pixel(std::uint32_t word) : word_(word) {}

  std::uint32_t word() const { return word_; }
  Pixel operator+(Pixel other) const {
    constexpr std::uint32_t low = 0x7F7F7F7FU;
    return Pixel(((word_ & low) + (other.word_ & low)) ^ ((word_ ^ other.word_) & ~low));
  }

  static Pixel average(Pixel a, Pixel b) {
    return Pixel((a.word_ & b.word_) + ((a.word_ ^ b.word_) >> 1 & 0x7F7F7F7FU));
  }

  static Pixel paeth(Pixel left, Pixel above, Pixel corner) {
    std::uint32_t word = 0;
    for (int shift = 0; shift < 32; shift += 8) {
      const auto part = [shift](Pixel pixel) { return static_cast<int>(pixel.word_ >> shift & 0xFF); };
      word |= std::uint32_t{vellora::paeth(part(left), part(above), part(corner))} << shift;
    }
    return Pixel(word);
  }

 private:
  std::uint32_t word_;
};

#endif

/// Reads red, green, blue as a word with blue lowest. The byte before them, which always exists, is the fourth.
struct RgbReader {
  const std::byte* filtered;  // at the filter byte
  /// What lies outside the picture: the filters then make the fourth byte of every pixel 255 from a difference of 0.
  static constexpr std::uint32_t outside = opaque;
  std::uint32_t difference(std::size_t x) const { return word(x) & ~opaque; }
  std::uint32_t unfiltered(std::size_t x) const { return word(x) | opaque; }

 private:
  std::uint32_t word(std::size_t x) const {
    std::uint32_t bytes;
    std::memcpy(&bytes, filtered + 3 * x, sizeof(bytes));
    return __builtin_bswap32(bytes);
  }
};

struct RgbaReader {
  const std::byte* filtered;
  static constexpr std::uint32_t outside = 0;
  std::uint32_t difference(std::size_t x) const {
    std::uint32_t bytes;
    std::memcpy(&bytes, filtered + 1 + 4 * x, sizeof(bytes));
    const std::uint32_t reversed = __builtin_bswap32(bytes);  // alpha, blue, green, red from the lowest byte on
    return reversed >> 8 | reversed << 24;
  }
  std::uint32_t unfiltered(std::size_t x) const { return difference(x); }
};

template <class Reader>
bool unfilter(Reader reader, const std::uint32_t* above, std::uint32_t* row, std::size_t width) {
  Pixel left(Reader::outside), corner(Reader::outside);
  switch (std::to_integer<std::uint8_t>(*reader.filtered)) {
    case None:
      for (std::size_t x = 0; x < width; ++x) row[x] = reader.unfiltered(x);
      return true;
    case Sub:
      for (std::size_t x = 0; x < width; ++x) row[x] = (left = Pixel(reader.difference(x)) + left).word();
      return true;
    case Up:
      for (std::size_t x = 0; x < width; ++x) row[x] = (Pixel(reader.difference(x)) + Pixel(above[x])).word();
      return true;
    case Average:
      for (std::size_t x = 0; x < width; ++x) {
        left = Pixel(reader.difference(x)) + Pixel::average(left, Pixel(above[x]));
        row[x] = left.word();
      }
      return true;
    case Paeth:
      for (std::size_t x = 0; x < width; ++x) {
        const Pixel over(above[x]);
        left = Pixel(reader.difference(x)) + Pixel::paeth(left, over, corner);
        corner = over;
        row[x] = left.word();
      }
      return true;
    default:
      return false;
  }
}

std::uint32_t wordAt(const void* bytes) {
  std::uint32_t word;
  std::memcpy(&word, bytes, sizeof(word));
  return word;
}

template <Filter filter>
Pixel predicted(Pixel left, Pixel above, Pixel corner) {
  if constexpr (filter == Sub) return left;
  if constexpr (filter == Average) return Pixel::average(left, above);
  if constexpr (filter == Paeth) return Pixel::paeth(left, above, corner);
}

/// Pixels of 3 or 4 bytes. Of 3, words hold a byte of the next, which is written again with it.
template <Filter filter, std::size_t distance>
void unfilterPixels(const std::byte* differences, std::span<const std::uint8_t> above, std::span<std::uint8_t> row) {
  Pixel left(0), corner(0);
  const auto step = [&](std::uint32_t difference, std::uint32_t over) {
    const Pixel aboveIt(over);
    left = Pixel(difference) + predicted<filter>(left, aboveIt, corner);
    corner = aboveIt;
    return left.word();
  };
  std::size_t at = 0;
  for (; at + sizeof(std::uint32_t) <= row.size(); at += distance) {
    const std::uint32_t word = step(wordAt(differences + at), wordAt(&above[at]));
    std::memcpy(&row[at], &word, sizeof(word));
  }
  if (at == row.size()) return;
  std::uint32_t difference = 0, over = 0;
  std::memcpy(&difference, differences + at, distance);
  std::memcpy(&over, &above[at], distance);
  const std::uint32_t word = step(difference, over);
  std::memcpy(&row[at], &word, distance);
}

template <Filter filter>
void unfilterAny(const std::byte* differences, std::span<const std::uint8_t> above, std::span<std::uint8_t> row,
                 std::size_t distance) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    const int left = i < distance ? 0 : row[i - distance], corner = i < distance ? 0 : above[i - distance];
    int sum = std::to_integer<int>(differences[i]);
    if constexpr (filter == Sub) sum += left;
    if constexpr (filter == Average) sum += (left + above[i]) / 2;
    if constexpr (filter == Paeth) sum += paeth(left, above[i], corner);
    row[i] = static_cast<std::uint8_t>(sum);
  }
}

template <Filter filter>
void unfilter(const std::byte* differences, std::span<const std::uint8_t> above, std::span<std::uint8_t> row,
              std::size_t distance) {
  if (distance == 3) return unfilterPixels<filter, 3>(differences, above, row);
  if (distance == 4) return unfilterPixels<filter, 4>(differences, above, row);
  unfilterAny<filter>(differences, above, row, distance);
}

void addAbove(const std::byte* differences, std::span<const std::uint8_t> above, std::span<std::uint8_t> row) {
  using Block = std::uint8_t __attribute__((vector_size(16)));
  std::size_t at = 0;
  for (; at + sizeof(Block) <= row.size(); at += sizeof(Block)) {
    Block sum, over;
    std::memcpy(&sum, differences + at, sizeof(sum));
    std::memcpy(&over, &above[at], sizeof(over));
    sum += over;
    std::memcpy(&row[at], &sum, sizeof(sum));
  }
  for (; at < row.size(); ++at) {
    row[at] = static_cast<std::uint8_t>(std::to_integer<int>(differences[at]) + above[at]);
  }
}

}  // namespace

bool unfilterRgb(const std::byte* filtered, const std::uint32_t* above, std::uint32_t* row, std::size_t width) {
  return unfilter(RgbReader{filtered}, above, row, width);
}

bool unfilterRgba(const std::byte* filtered, const std::uint32_t* above, std::uint32_t* row, std::size_t width) {
  return unfilter(RgbaReader{filtered}, above, row, width);
}

bool unfilterBytes(const std::byte* filtered, std::span<const std::uint8_t> above, std::span<std::uint8_t> row,
                   std::size_t distance) {
  const std::byte* const differences = filtered + 1;
  switch (std::to_integer<std::uint8_t>(*filtered)) {
    case None:
      std::memmove(row.data(), differences, row.size());
      return true;
    case Sub:
      unfilter<Sub>(differences, above, row, distance);
      return true;
    case Up:
      addAbove(differences, above, row);
      return true;
    case Average:
      unfilter<Average>(differences, above, row, distance);
      return true;
    case Paeth:
      unfilter<Paeth>(differences, above, row, distance);
      return true;
    default:
      return false;
  }
}

}  // namespace vellora
