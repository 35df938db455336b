#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "media/PixelRows.h"

namespace vellora {

/// Chooses the filter for rows of a picture. What filter is best depends on how the filtered bytes repeat, so each
/// filter is tried: a row is filtered with it and its length after matching and coding is estimated. Rows near each
/// other are of one kind; one is tried for several.
class RowFilterChooser {
 public:
  RowFilterChooser(std::size_t width, int bytesPerPixel);

  /// Forgets the choice: the next row is far away.
  void restart() {
    untilTrial_ = 0;
    choice_ = RowFilter::None;
  }

  /// The filter for `row`. `above` is the row over it and `second` the one over that.
  RowFilter choose(std::span<const std::uint32_t> row, std::span<const std::uint32_t> above,
                   std::span<const std::uint32_t> second);

 private:
  double estimate(std::span<const std::uint32_t> row, std::span<const std::uint32_t> above) const;

  const std::uint32_t bytesPerPixel_;
  int untilTrial_ = 0;
  RowFilter choice_ = RowFilter::None;
  std::vector<std::uint32_t> filtered_, filteredAbove_;
};

}  // namespace vellora
