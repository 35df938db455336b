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

/// Four bytes with which a filter calculates side by side.
class Pixel {
 public:
  explicit Pixel(std::uint32_t word) : bytes_(_mm_cvtsi32_si128(static_cast<int>(word))) {}

  std::uint32_t word() const { return static_cast<std::uint32_t>(_mm_cvtsi128_si32(bytes_)); }
  Pixel operator+(Pixel other) const { return Pixel(_mm_add_epi8(bytes_, other.bytes_)); }

  static Pixel average(Pixel a, Pixel b) {
    // The instruction rounds up, PNG down.
    const __m128i odd = _mm_and_si128(_mm_xor_si128(a.bytes_, b.bytes_), _mm_set1_epi8(1));
    return Pixel(_mm_sub_epi8(_mm_avg_epu8(a.bytes_, b.bytes_), odd));
  }

  static Pixel paeth(Pixel left, Pixel above, Pixel corner) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i a = _mm_unpacklo_epi8(left.bytes_, zero), b = _mm_unpacklo_epi8(above.bytes_, zero);
    const __m128i c = _mm_unpacklo_epi8(corner.bytes_, zero);
    const __m128i byLeft = _mm_sub_epi16(b, c), byAbove = _mm_sub_epi16(a, c);
    const __m128i toLeft = absolute(byLeft), toAbove = absolute(byAbove);
    const __m128i toCorner = absolute(_mm_add_epi16(byLeft, byAbove));
    const __m128i least = _mm_min_epi16(toCorner, _mm_min_epi16(toLeft, toAbove));
    const __m128i other = select(_mm_cmpeq_epi16(least, toAbove), b, c);
    const __m128i chosen = select(_mm_cmpeq_epi16(least, toLeft), a, other);
    return Pixel(_mm_packus_epi16(chosen, chosen));
  }

 private:
  explicit Pixel(__m128i bytes) : bytes_(bytes) {}
  static __m128i absolute(__m128i value) { return _mm_max_epi16(value, _mm_sub_epi16(_mm_setzero_si128(), value)); }
  static __m128i select(__m128i mask, __m128i yes, __m128i no) {
    return _mm_or_si128(_mm_and_si128(mask, yes), _mm_andnot_si128(mask, no));
  }

  __m128i bytes_;
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

}  // namespace

bool unfilterRgb(const std::byte* filtered, const std::uint32_t* above, std::uint32_t* row, std::size_t width) {
  return unfilter(RgbReader{filtered}, above, row, width);
}

bool unfilterRgba(const std::byte* filtered, const std::uint32_t* above, std::uint32_t* row, std::size_t width) {
  return unfilter(RgbaReader{filtered}, above, row, width);
}

bool unfilterBytes(const std::byte* filtered, std::span<const std::uint8_t> above, std::span<std::uint8_t> row,
                   std::size_t distance) {
  const auto filter = std::to_integer<std::uint8_t>(*filtered);
  std::memcpy(row.data(), filtered + 1, row.size());
  const auto add = [row](std::size_t at, int predicted) { row[at] = static_cast<std::uint8_t>(row[at] + predicted); };
  const auto left = [&](std::size_t at) { return at < distance ? 0 : int{row[at - distance]}; };
  switch (filter) {
    case None:
      return true;
    case Sub:
      for (std::size_t i = distance; i < row.size(); ++i) add(i, row[i - distance]);
      return true;
    case Up:
      for (std::size_t i = 0; i < row.size(); ++i) add(i, above[i]);
      return true;
    case Average:
      for (std::size_t i = 0; i < row.size(); ++i) add(i, (left(i) + above[i]) / 2);
      return true;
    case Paeth:
      for (std::size_t i = 0; i < row.size(); ++i) {
        add(i, paeth(left(i), above[i], i < distance ? 0 : above[i - distance]));
      }
      return true;
    default:
      return false;
  }
}

}  // namespace vellora
