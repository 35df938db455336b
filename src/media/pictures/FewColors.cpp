#include "media/pictures/FewColors.h"

#include "media/pictures/RowConverter.h"

namespace vellora {

std::optional<FewColors> FewColors::of(const Raster& raster, std::size_t most, std::uint32_t leastAlpha) {
  FewColors few;
  RowConverter rows(raster, RasterLayout::Rgba);
  std::uint32_t last = 0;
  bool hasLast = false;
  for (int y = 0; y < raster.height(); ++y) {
    const std::uint8_t* row = rows.row(y);
    for (int x = 0; x < raster.width(); ++x) {
      const std::uint32_t color = thresholded(colorAt(row, x), leastAlpha);
      if (hasLast && color == last) continue;
      hasLast = true;
      last = color;
      const std::size_t slot = few.slotOf(color);
      if (few.taken_[slot]) continue;
      if (few.colors_.size() == most) return std::nullopt;
      few.taken_[slot] = true;
      few.keys_[slot] = color;
      few.indexes_[slot] = static_cast<std::uint8_t>(few.colors_.size());
      few.colors_.push_back(color);
    }
  }
  return few;
}

std::size_t FewColors::slotOf(std::uint32_t color) const {
  std::size_t slot = color * 0x9E3779B1U >> 21;
  while (taken_[slot] && keys_[slot] != color) slot = (slot + 1) % slots;
  return slot;
}

}  // namespace vellora
