#include "media/RowFilterChooser.h"

#include <array>
#include <cmath>
#include <cstring>

namespace vellora {
namespace {

constexpr int rowsPerTrial = 8;
/// What a match costs, in bits: a length code and a distance code, and the bits that follow a far distance.
constexpr std::uint32_t nearMatchBits = 8, aboveMatchBits = 20, seenMatchBits = 18;
/// What each further 258 bytes of it cost.
constexpr std::uint32_t nearFurtherBits = 2, aboveFurtherBits = 16;
/// How much better than staying, or than no filter, another one has to look: a change of filter hides the rows above
/// from the matcher, and unfiltered rows repeat more than one row shows.
constexpr double changeFactor = 1.25;

/// n × log2 n
double bitsOf(std::uint32_t n) {
  return n == 0 ? 0.0 : n * std::log2(static_cast<double>(n));
}

std::size_t hash(const std::uint32_t* pixels) {
  std::uint64_t word = 0;
  std::memcpy(&word, pixels, sizeof(word));
  constexpr int hashBits = 10;
  return (word * 0x9E3779B185EBCA87ULL) >> (64 - hashBits);
}

/// The length of what two places have in common, at most `limit` pixels.
std::size_t common(const std::uint32_t* a, const std::uint32_t* b, std::size_t limit) {
  std::size_t n = 0;
  while (n < limit && a[n] == b[n]) ++n;
  return n;
}

}  // namespace

RowFilterChooser::RowFilterChooser(std::size_t width, int bytesPerPixel)
    : bytesPerPixel_(static_cast<std::uint32_t>(bytesPerPixel)), filtered_(width + 1), filteredAbove_(width + 1) {}

double RowFilterChooser::estimate(std::span<const std::uint32_t> row, std::span<const std::uint32_t> above) const {
  std::array<std::array<std::uint32_t, 256>, 4> counts{};
  std::array<std::uint16_t, 1024> seen{};
  const std::size_t width = row.size();
  const std::size_t further = 258 / bytesPerPixel_;
  std::size_t matchBits = 0;
  std::uint32_t literals = 0;
  for (std::size_t x = 0; x < width;) {
    const std::uint32_t now = row[x];
    const std::size_t rest = width - x;
    const std::size_t left = x > 0 && now == row[x - 1] ? common(&row[x], &row[x - 1], rest) : 0;
    const std::size_t up = common(&row[x], &above[x], rest);
    if (left < 8 && up < 8 && rest > 1) {
      std::uint16_t& slot = seen[hash(&row[x])];
      const std::size_t candidate = slot;
      slot = static_cast<std::uint16_t>(x);
      const std::size_t same = candidate < x ? common(&row[x], &row[candidate], rest) : 0;
      if (same >= 2 && same > left + 1 && same > up) {
        matchBits += seenMatchBits;
        x += same;
        continue;
      }
    }
    if (left > 0 && left + 2 >= up) {
      matchBits += nearMatchBits + left / further * nearFurtherBits;
      x += left;
    } else if (up >= 2) {
      matchBits += aboveMatchBits + up / further * aboveFurtherBits;
      x += up;
    } else {
      for (std::size_t byte = 0; byte < counts.size(); ++byte) ++counts[byte][now >> (8 * byte) & 0xFF];
      ++literals;
      ++x;
    }
  }
  if (literals == 0) return static_cast<double>(matchBits);
  double saved = 0;
  for (std::size_t value = 0; value < 256; ++value) {
    std::uint32_t n = counts[0][value] + counts[1][value] + counts[2][value];
    if (bytesPerPixel_ == 4) n += counts[3][value];
    saved += bitsOf(n);
  }
  return static_cast<double>(matchBits) + bitsOf(literals * bytesPerPixel_) - saved;
}

RowFilter RowFilterChooser::choose(std::span<const std::uint32_t> row, std::span<const std::uint32_t> above,
                                   std::span<const std::uint32_t> second) {
  if (untilTrial_ > 0) {
    --untilTrial_;
    return choice_;
  }
  untilTrial_ = rowsPerTrial - 1;
  const std::span filtered(filtered_.data(), row.size()), filteredAbove(filteredAbove_.data(), row.size());
  const RowFilter before = choice_;
  double best = 0;
  for (const RowFilter filter : {RowFilter::None, RowFilter::Sub, RowFilter::Up, RowFilter::Paeth}) {
    filterRow(filter, row, above, filtered);
    filterRow(filter, above, second, filteredAbove);
    double bits = estimate(filtered, filteredAbove);
    if (filter != before && filter != RowFilter::None) bits *= changeFactor;
    if (filter == RowFilter::None || bits < best) {
      best = bits;
      choice_ = filter;
    }
  }
  return choice_;
}

}  // namespace vellora
