#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <vector>

#include "media/DeflateBlock.h"

namespace vellora {

/// Finds repetitions in rows of pixels and hands them to deflate (RFC 1951, 3.2.3) as steps. Works on whole pixels, not
/// on bytes, and tries the three places where a screen repeats itself: the pixel to the left, the row above, and
/// wherever the next few pixels stood last. Rows go in through `place` and `match`, from the top to the bottom.
template <class Pixel>
class PixelMatcher {
 public:
  PixelMatcher(std::size_t width, int bytesPerPixel)
      : width_(width),
        bytesPerPixel_(static_cast<std::uint32_t>(bytesPerPixel)),
        rowBytes_(static_cast<std::uint32_t>(width) * bytesPerPixel_ + 1),
        windowRows_(windowBytes / rowBytes_ + 1),
        bufferRows_(windowRows_ + std::max<std::size_t>(windowRows_, 4)) {
    pixels_.resize(bufferRows_ * width_ + margin);
  }

  /// Forgets all rows.
  void restart() {
    rows_ = 0;
    first_ = 0;
    last_.fill(0);
  }

  /// Where the next row is to be written, `width` pixels. Valid until `match` or `passZeros`.
  Pixel* place() {
    if (rows_ == bufferRows_) {
      const std::size_t dropped = bufferRows_ - windowRows_;
      std::memmove(pixels_.data(), pixels_.data() + dropped * width_, windowRows_ * width_ * sizeof(Pixel));
      rows_ = windowRows_;
      first_ += static_cast<std::uint32_t>(dropped * width_);
    }
    return pixels_.data() + rows_ * width_;
  }

  /// Takes the row written at `place` in, its steps into `block`.
  void match(std::uint8_t filter, DeflateBlock<Pixel>& block);

  /// Takes a row in that is 0 throughout: no search.
  void passZeros(std::uint8_t filter, DeflateBlock<Pixel>& block) {
    Pixel* row = place();
    std::memset(row, 0, width_ * sizeof(Pixel));
    const auto rest = static_cast<std::uint32_t>((width_ - 1) * bytesPerPixel_);
    if (rest >= 3) {
      block.add({1, rest, static_cast<std::uint16_t>(bytesPerPixel_ - 1), filter}, row);
    } else {
      block.add({static_cast<std::uint32_t>(width_), 0, 0, filter}, row);
    }
    ++rows_;
  }

 private:
  static constexpr std::uint32_t windowBytes = 32768;
  static constexpr int hashBits = 12;
  static constexpr std::size_t margin = 16;  // words may be read beyond the last pixel
  static constexpr std::size_t perWord = 8 / sizeof(Pixel);
  /// The least lengths in pixels worth a match at the left neighbour, and farther away where the distance costs more.
  static constexpr std::size_t leastNear = sizeof(Pixel) == 1 ? 3 : 1;
  static constexpr std::size_t leastFar = sizeof(Pixel) == 1 ? 5 : 2;

  /// Which bytes of a word have to agree where it is looked up.
  static constexpr std::uint64_t keyBytes = sizeof(Pixel) == 1 ? 0xFF'FFFF'FFFFULL : ~std::uint64_t{0};

  static std::uint64_t word(const Pixel* pixels) {
    std::uint64_t value;
    std::memcpy(&value, pixels, sizeof(value));
    return value;
  }
  static std::size_t hash(std::uint64_t value) { return (value * 0x9E3779B185EBCA87ULL) >> (64 - hashBits); }

  /// How many of the next `limit` pixels are the same.
  static std::size_t common(const Pixel* a, const Pixel* b, std::size_t limit) {
    static_assert(std::endian::native == std::endian::little);
    std::size_t n = 0;
    while (n < limit) {
      const std::uint64_t difference = word(a + n) ^ word(b + n);
      if (difference != 0) {
        n += static_cast<std::size_t>(std::countr_zero(difference)) / (8 * sizeof(Pixel));
        return std::min(n, limit);
      }
      n += perWord;
    }
    return limit;
  }

  const std::size_t width_;
  const std::uint32_t bytesPerPixel_;
  const std::uint32_t rowBytes_;
  const std::size_t windowRows_;
  const std::size_t bufferRows_;
  std::vector<Pixel> pixels_;
  std::size_t rows_ = 0;                              ///< in the buffer
  std::uint32_t first_ = 0;                           ///< number, since the start, of the buffer's first pixel
  std::array<std::uint32_t, 1U << hashBits> last_{};  ///< where a word was seen last, as a pixel number
};

template <class Pixel>
void PixelMatcher<Pixel>::match(std::uint8_t filter, DeflateBlock<Pixel>& block) {
  const Pixel* const row = pixels_.data() + rows_ * width_;
  const std::uint32_t rowNumber = first_ + static_cast<std::uint32_t>(rows_ * width_);
  const bool hasAbove = rows_ > 0 && rowBytes_ <= windowBytes;
  const Pixel* const above = hasAbove ? row - width_ : row;

  std::size_t start = 0;  // of the literals not yet handed on
  std::size_t x = 0;
  const auto take = [&](std::size_t pixels, std::uint32_t distance) {
    block.add({static_cast<std::uint32_t>(x - start), static_cast<std::uint32_t>(pixels * bytesPerPixel_),
               static_cast<std::uint16_t>(distance - 1), filter},
              row + start);
    filter = DeflateStep::noFilter;
    x += pixels;
    start = x;
  };

  while (x < width_) {
    const Pixel now = row[x];
    const std::size_t rest = width_ - x;
    const std::size_t left = x > 0 && now == row[x - 1] ? common(row + x, row + x - 1, rest) : 0;
    const std::size_t up = hasAbove && now == above[x] ? common(row + x, above + x, rest) : 0;
    // The row above is farther away, its distance longer to write: it has to win by more than a pixel.
    if (left >= 8 && left + 2 >= up) {
      take(left, bytesPerPixel_);
      continue;
    }
    if (up >= 8) {
      take(up, rowBytes_);
      continue;
    }
    std::size_t seen = 0;
    std::uint32_t seenDistance = 0;
    const std::uint64_t next = word(row + x) & keyBytes;
    const std::uint32_t here = rowNumber + static_cast<std::uint32_t>(x);
    std::uint32_t& slot = last_[hash(next)];
    const std::uint32_t candidate = slot;
    slot = here;
    if (candidate >= first_ && candidate < here && (word(pixels_.data() + (candidate - first_)) & keyBytes) == next) {
      const auto back = here - candidate;
      const std::uint32_t rowsBack = back <= x ? 0 : 1 + static_cast<std::uint32_t>((back - x - 1) / width_);
      const std::uint32_t distance = back * bytesPerPixel_ + rowsBack;
      if (distance <= windowBytes) {
        const std::size_t column = x + rowsBack * width_ - back;
        seen = common(row + x, pixels_.data() + (candidate - first_), std::min(rest, width_ - column));
        seenDistance = distance;
      }
    }
    if (seen >= leastFar && seen > left + 1 && seen > up) {
      take(seen, seenDistance);
    } else if (left >= leastNear && left + 1 >= up) {
      take(left, bytesPerPixel_);
    } else if (up >= leastFar) {
      take(up, rowBytes_);
    } else {
      ++x;
    }
  }
  if (x > start || filter != DeflateStep::noFilter) {
    block.add({static_cast<std::uint32_t>(x - start), 0, 0, filter}, row + start);
  }
  ++rows_;
}

}  // namespace vellora
