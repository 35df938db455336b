#include "media/pictures/PngFilters.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace vellora {
namespace {

constexpr int filters = 5;

std::uint8_t paeth(int left, int up, int upLeft) {
  const int estimate = left + up - upLeft;
  const int byLeft = std::abs(estimate - left);
  const int byUp = std::abs(estimate - up);
  const int byUpLeft = std::abs(estimate - upLeft);
  if (byLeft <= byUp && byLeft <= byUpLeft) return static_cast<std::uint8_t>(left);
  return static_cast<std::uint8_t>(byUp <= byUpLeft ? up : upLeft);
}

/// `above` is a row of zeros for the first one.
void filterRow(int filter, const std::uint8_t* row, const std::uint8_t* above, std::size_t bytes, std::size_t back,
               std::uint8_t* to) {
  const auto each = [&](auto predicted) {
    const std::size_t start = std::min(back, bytes);
    for (std::size_t i = 0; i < start; ++i) to[i] = static_cast<std::uint8_t>(row[i] - predicted(0, above[i], 0));
    for (std::size_t i = start; i < bytes; ++i)
      to[i] = static_cast<std::uint8_t>(row[i] - predicted(row[i - back], above[i], above[i - back]));
  };
  switch (filter) {
    case 0:
      std::memcpy(to, row, bytes);
      return;
    case 1:
      return each([](int left, int, int) { return left; });
    case 2:
      return each([](int, int up, int) { return up; });
    case 3:
      return each([](int left, int up, int) { return (left + up) / 2; });
    default:
      return each([](int left, int up, int upLeft) { return static_cast<int>(paeth(left, up, upLeft)); });
  }
}

double sumOf(const std::vector<std::uint8_t>& row) {
  std::uint64_t sum = 0;
  for (const std::uint8_t byte : row) sum += static_cast<std::uint64_t>(std::min<int>(byte, 256 - byte));
  return static_cast<double>(sum);
}

double entropyOf(const std::vector<std::uint8_t>& row) {
  std::array<std::uint32_t, 256> counts{};
  for (const std::uint8_t byte : row) ++counts[byte];
  double bits = 0;
  for (const std::uint32_t count : counts)
    if (count != 0) bits -= count * std::log2(static_cast<double>(count) / static_cast<double>(row.size()));
  return bits;
}

/// Counts different pairs by marking them with the number of the row's trial, so that nothing has to be cleared.
class PairCounter {
 public:
  double count(const std::vector<std::uint8_t>& row) {
    ++trial_;
    int different = 0;
    for (std::size_t i = 1; i < row.size(); ++i) {
      std::uint32_t& mark = marks_[static_cast<std::size_t>(row[i - 1] << 8 | row[i])];
      if (mark == trial_) continue;
      mark = trial_;
      ++different;
    }
    return different;
  }

 private:
  std::vector<std::uint32_t> marks_ = std::vector<std::uint32_t>(65536);
  std::uint32_t trial_ = 0;
};

}  // namespace

std::vector<std::uint8_t> filteredRows(const PngRows& rows, PngFilterChoice choice) {
  std::vector<std::uint8_t> result((rows.rowBytes + 1) * static_cast<std::size_t>(rows.height));
  const std::vector<std::uint8_t> zeros(rows.rowBytes);
  std::vector<std::uint8_t> trial(rows.rowBytes);
  PairCounter pairs;
  const auto cost = [&] {
    if (choice == PngFilterChoice::leastSum) return sumOf(trial);
    return choice == PngFilterChoice::entropy ? entropyOf(trial) : pairs.count(trial);
  };
  std::uint8_t* to = result.data();
  for (int y = 0; y < rows.height; ++y, to += rows.rowBytes + 1) {
    const std::uint8_t* above = y == 0 ? zeros.data() : rows.row(y - 1);
    if (choice <= PngFilterChoice::paeth) {
      to[0] = static_cast<std::uint8_t>(choice);
      filterRow(to[0], rows.row(y), above, rows.rowBytes, rows.pixelBytes, to + 1);
      continue;
    }
    double least = std::numeric_limits<double>::infinity();
    for (int filter = 0; filter < filters; ++filter) {
      filterRow(filter, rows.row(y), above, rows.rowBytes, rows.pixelBytes, trial.data());
      const double bits = cost();
      if (bits >= least) continue;
      least = bits;
      to[0] = static_cast<std::uint8_t>(filter);
      std::copy(trial.begin(), trial.end(), to + 1);
    }
  }
  return result;
}

}  // namespace vellora
