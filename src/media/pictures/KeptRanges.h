#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace vellora {

/// The parts of a file that matter, for blanking all others without moving anything.
class KeptRanges {
 public:
  using Range = std::pair<std::uint64_t, std::uint64_t>;  // the first byte, and the one behind the last

  void add(std::uint64_t at, std::uint64_t size) {
    if (size > 0) ranges_.emplace_back(at, at + size);
  }

  /// Puts them in order and joins what touches.
  void settle() {
    std::sort(ranges_.begin(), ranges_.end());
    std::vector<Range> joined;
    for (const Range& range : ranges_) {
      if (!joined.empty() && range.first <= joined.back().second) {
        joined.back().second = std::max(joined.back().second, range.second);
      } else {
        joined.push_back(range);
      }
    }
    ranges_ = std::move(joined);
  }

  /// Whether nothing of a part is kept; once settled.
  bool isFree(std::uint64_t at, std::uint64_t size) const {
    const auto next = firstEndingBehind(at);
    return next == ranges_.end() || next->first >= at + size;
  }

  /// Zeroes what is not kept between two places; once settled.
  void blankOthers(std::vector<std::byte>& file, std::uint64_t begin, std::uint64_t end) const {
    for (auto next = firstEndingBehind(begin); begin < end; ++next) {
      const std::uint64_t stop = next == ranges_.end() ? end : std::clamp(next->first, begin, end);
      std::fill(file.begin() + static_cast<std::ptrdiff_t>(begin), file.begin() + static_cast<std::ptrdiff_t>(stop),
                std::byte{0});
      if (next == ranges_.end()) return;
      begin = next->second;
    }
  }

 private:
  std::vector<Range>::const_iterator firstEndingBehind(std::uint64_t at) const {
    return std::upper_bound(ranges_.begin(), ranges_.end(), at,
                            [](std::uint64_t place, const Range& range) { return place < range.second; });
  }

  std::vector<Range> ranges_;
};

}  // namespace vellora
