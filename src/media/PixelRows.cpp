#include "media/PixelRows.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace vellora {
namespace {

std::uint32_t wordAt(const std::byte* source, std::size_t index) {
  std::uint32_t word = 0;
  std::memcpy(&word, source + index * sizeof(word), sizeof(word));
  return word;
}

constexpr std::uint32_t redAndBlueSwapped(std::uint32_t word) {
  return (word >> 16 & 0xFF) | (word & 0xFF00) | (word & 0xFF) << 16;
}

/// 255 / alpha in 16.16 fixed point, rounded up: exact to the nearest for every premultiplied value.
constexpr auto reciprocals = [] {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t alpha = 1; alpha < 256; ++alpha) table[alpha] = ((255U << 16) + alpha - 1) / alpha;
  return table;
}();

std::uint32_t undone(std::uint32_t value, std::uint32_t reciprocal) {
  const std::uint32_t result = (value * reciprocal + 0x8000) >> 16;
  return result > 255 ? 255 : result;
}

/// Branch-free, in 16 bits, so that compilers make vector code of the loop over it. Of equals the left one goes before
/// the one above, and that before the corner.
std::uint8_t paeth(std::int16_t left, std::int16_t above, std::int16_t corner) {
  const auto toLeft = static_cast<std::int16_t>(above - corner), toAbove = static_cast<std::int16_t>(left - corner);
  const auto toCorner = static_cast<std::int16_t>(std::abs(toLeft + toAbove));
  const auto farLeft = static_cast<std::int16_t>(std::abs(toLeft)),
             farAbove = static_cast<std::int16_t>(std::abs(toAbove));
  const std::int16_t other = farAbove <= toCorner ? above : corner;
  const std::int16_t nearest = std::min(farAbove, toCorner);
  return static_cast<std::uint8_t>(farLeft <= nearest ? left : other);
}

}  // namespace

void readOpaqueRow(const std::byte* source, std::span<std::uint32_t> row) {
  for (std::size_t x = 0; x < row.size(); ++x) row[x] = redAndBlueSwapped(wordAt(source, x));
}

void readPremultipliedRow(const std::byte* source, std::span<std::uint32_t> row) {
  for (std::size_t x = 0; x < row.size(); ++x) {
    const std::uint32_t word = wordAt(source, x);
    const std::uint32_t alpha = word >> 24;
    if (alpha == 0) {
      row[x] = 0;
    } else if (alpha == 255) {
      row[x] = redAndBlueSwapped(word) | 0xFF000000U;
    } else {
      const std::uint32_t reciprocal = reciprocals[alpha];
      row[x] = undone(word >> 16 & 0xFF, reciprocal) | undone(word >> 8 & 0xFF, reciprocal) << 8 |
               undone(word & 0xFF, reciprocal) << 16 | alpha << 24;
    }
  }
}

bool samePixels(const std::byte* a, const std::byte* b, std::size_t width, std::uint32_t mask) {
  // Steps long enough for wide registers, short enough to stop early.
  constexpr std::size_t step = 64;
  std::size_t x = 0;
  for (; x + step <= width; x += step) {
    std::uint32_t difference = 0;
    for (std::size_t i = 0; i < step; ++i) difference |= wordAt(a, x + i) ^ wordAt(b, x + i);
    if ((difference & mask) != 0) return false;
  }
  for (; x < width; ++x) {
    if (((wordAt(a, x) ^ wordAt(b, x)) & mask) != 0) return false;
  }
  return true;
}

bool isSolidRow(const std::byte* source, std::size_t width) {
  std::uint32_t common = 0xFF000000U;
  for (std::size_t x = 0; x < width; ++x) common &= wordAt(source, x);
  return common == 0xFF000000U;
}

void premultiplyRow(std::span<const std::uint32_t> row, std::byte* target) {
  std::size_t x = 0;
  // x / 255 to the nearest is (y + y / 256) / 256 with y = x + 128, for every product x of two bytes.
#ifdef __SSE2__
  const __m128i zero = _mm_setzero_si128();
  const __m128i alphaPlace = _mm_set1_epi64x(static_cast<long long>(0xFFFF000000000000ULL));
  const __m128i full = _mm_set1_epi16(255), half = _mm_set1_epi16(128);
  const auto multiplied = [&](__m128i pixels) {
    __m128i factor = _mm_shufflehi_epi16(_mm_shufflelo_epi16(pixels, 0xFF), 0xFF);
    factor = _mm_or_si128(_mm_andnot_si128(alphaPlace, factor), _mm_and_si128(alphaPlace, full));
    const __m128i product = _mm_add_epi16(_mm_mullo_epi16(pixels, factor), half);
    return _mm_srli_epi16(_mm_add_epi16(product, _mm_srli_epi16(product, 8)), 8);
  };
  for (; x + 4 <= row.size(); x += 4) {
    const __m128i pixels = _mm_loadu_si128(reinterpret_cast<const __m128i*>(&row[x]));
    const __m128i low = multiplied(_mm_unpacklo_epi8(pixels, zero)), high = multiplied(_mm_unpackhi_epi8(pixels, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target + x * 4), _mm_packus_epi16(low, high));
  }
#endif
  for (; x < row.size(); ++x) {
    const std::uint32_t alpha = row[x] >> 24;
    std::uint32_t word = alpha << 24;
    for (int shift = 0; shift < 24; shift += 8) {
      const std::uint32_t product = (row[x] >> shift & 0xFF) * alpha + 128;
      word |= ((product + (product >> 8)) >> 8) << shift;
    }
    std::memcpy(target + x * 4, &word, sizeof(word));
  }
}

void filterRow(RowFilter filter, std::span<const std::uint32_t> row, std::span<const std::uint32_t> above,
               std::span<std::uint32_t> filtered) {
  // The three rows never overlap; without that promise bytes may alias anything, and nothing is vectorised.
  const auto* __restrict now = reinterpret_cast<const std::uint8_t*>(row.data());
  const auto* __restrict over = reinterpret_cast<const std::uint8_t*>(above.data());
  auto* __restrict out = reinterpret_cast<std::uint8_t*>(filtered.data());
  const std::size_t bytes = row.size_bytes();
  constexpr std::size_t pixel = sizeof(std::uint32_t);
  switch (filter) {
    case RowFilter::None:
      std::memcpy(out, now, bytes);
      break;
    case RowFilter::Sub:
      std::memcpy(out, now, pixel);
      for (std::size_t i = pixel; i < bytes; ++i) out[i] = static_cast<std::uint8_t>(now[i] - now[i - pixel]);
      break;
    case RowFilter::Up:
      for (std::size_t i = 0; i < bytes; ++i) out[i] = static_cast<std::uint8_t>(now[i] - over[i]);
      break;
    case RowFilter::Paeth:
      for (std::size_t i = 0; i < pixel; ++i) out[i] = static_cast<std::uint8_t>(now[i] - over[i]);
      for (std::size_t i = pixel; i < bytes; ++i) {
        out[i] = static_cast<std::uint8_t>(now[i] - paeth(now[i - pixel], over[i], over[i - pixel]));
      }
      break;
  }
}

}  // namespace vellora
