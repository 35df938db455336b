#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>
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

  /// How many pixels, and which bits of a word, have to agree where it is looked up.
  static constexpr std::size_t keyPixels = sizeof(Pixel) == 1 ? 5 : 2;
  static constexpr std::uint64_t keyBits = ~std::uint64_t{0} >> (64 - 8 * sizeof(Pixel) * keyPixels);

  /// An earlier place with the same pixels.
  struct Seen {
    std::size_t pixels = 0;
    std::uint32_t distance = 0;
  };
  /// Where the pixels at `x` were seen last, if they still are in the window; remembers this place.
  Seen lookUp(const Pixel* row, std::uint32_t rowNumber, std::size_t x);

  static std::uint64_t word(const Pixel* pixels) {
    std::uint64_t value = 0;
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
inline typename PixelMatcher<Pixel>::Seen PixelMatcher<Pixel>::lookUp(const Pixel* row, std::uint32_t rowNumber,
                                                                      std::size_t x) {
  const std::uint64_t key = word(row + x) & keyBits;
  const std::uint32_t here = rowNumber + static_cast<std::uint32_t>(x);
  const std::uint32_t candidate = std::exchange(last_[hash(key)], here);
  if (candidate < first_ || candidate >= here) return {};
  const Pixel* const there = pixels_.data() + (candidate - first_);
  if ((word(there) & keyBits) != key) return {};
  const std::size_t back = here - candidate;
  const std::size_t rowsBack = back <= x ? 0 : 1 + (back - x - 1) / width_;
  const std::size_t distance = back * bytesPerPixel_ + rowsBack;
  if (distance > windowBytes) return {};
  // A match ends with either row: the filter bytes between rows are not its business.
  const std::size_t column = x + rowsBack * width_ - back;
  return {common(row + x, there, width_ - std::max(x, column)), static_cast<std::uint32_t>(distance)};
}

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
    const Seen earlier = rest >= keyPixels ? lookUp(row, rowNumber, x) : Seen{};
    if (earlier.pixels >= leastFar && earlier.pixels > left + 1 && earlier.pixels > up) {
      take(earlier.pixels, earlier.distance);
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
