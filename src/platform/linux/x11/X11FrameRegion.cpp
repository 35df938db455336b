#include "platform/linux/x11/X11FrameRegion.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace vellora {
namespace {

/// Bands with fewer rows between them become one.
constexpr int closeRows = 24;
constexpr std::size_t mostBands = 8;

std::int64_t areaOf(const PixelRect& rect) {
  return std::int64_t{rect.width} * rect.height;
}

std::int64_t waste(const PixelRect& a, const PixelRect& b) {
  return areaOf(united(a, b)) - areaOf(a) - areaOf(b);
}

}  // namespace

void RowBands::add(RowBand band) {
  if (band.bottom <= band.top) return;
  const auto first = std::ranges::find_if(bands_, [&](const RowBand& b) { return b.bottom + closeRows >= band.top; });
  auto last = first;
  for (; last != bands_.end() && last->top - closeRows <= band.bottom; ++last) {
    band = {std::min(band.top, last->top), std::max(band.bottom, last->bottom)};
  }
  bands_.insert(bands_.erase(first, last), band);
  if (bands_.size() <= mostBands) return;
  std::size_t nearest = 1;
  const auto gap = [&](std::size_t i) { return bands_[i].top - bands_[i - 1].bottom; };
  for (std::size_t i = 2; i < bands_.size(); ++i) {
    if (gap(i) < gap(nearest)) nearest = i;
  }
  bands_[nearest - 1].bottom = bands_[nearest].bottom;
  bands_.erase(bands_.begin() + static_cast<std::ptrdiff_t>(nearest));
}

bool RowBands::contain(RowBand band) const {
  return std::ranges::any_of(bands_, [&](const RowBand& b) { return b.top <= band.top && b.bottom >= band.bottom; });
}

bool RowBands::meet(RowBand band) const {
  return std::ranges::any_of(bands_, [&](const RowBand& b) { return b.top < band.bottom && b.bottom > band.top; });
}

PixelRect united(const PixelRect& a, const PixelRect& b) {
  if (a.isEmpty()) return b;
  if (b.isEmpty()) return a;
  const int left = std::min(a.x, b.x);
  const int top = std::min(a.y, b.y);
  return {left, top, std::max(a.right(), b.right()) - left, std::max(a.bottom(), b.bottom()) - top};
}

void mergeRects(std::vector<PixelRect>& rects, std::size_t limit, std::size_t searchable) {
  std::erase_if(rects, [](const PixelRect& rect) { return rect.isEmpty(); });
  if (rects.size() > searchable) {
    const std::size_t step = (rects.size() + searchable - 1) / searchable;
    std::vector<PixelRect> fewer;
    for (std::size_t i = 0; i < rects.size(); ++i) {
      if (i % step == 0) fewer.emplace_back();
      fewer.back() = united(fewer.back(), rects[i]);
    }
    rects = std::move(fewer);
  }
  while (rects.size() > 1) {
    std::size_t first = 0;
    std::size_t second = 0;
    std::int64_t least = std::numeric_limits<std::int64_t>::max();
    for (std::size_t i = 0; i < rects.size(); ++i) {
      for (std::size_t j = i + 1; j < rects.size(); ++j) {
        const std::int64_t cost = waste(rects[i], rects[j]);
        if (cost < least) {
          least = cost;
          first = i;
          second = j;
        }
      }
    }
    if (rects.size() <= limit && least > 0) return;
    rects[first] = united(rects[first], rects[second]);
    rects.erase(rects.begin() + static_cast<std::ptrdiff_t>(second));
  }
}

std::vector<PixelRect> subtracted(const std::vector<PixelRect>& rects, const PixelRect& hole) {
  std::vector<PixelRect> rest;
  for (const PixelRect& rect : rects) {
    const PixelRect cut = rect.intersected(hole);
    if (cut.isEmpty()) {
      rest.push_back(rect);
      continue;
    }
    const PixelRect around[] = {{rect.x, rect.y, rect.width, cut.y - rect.y},
                                {rect.x, cut.bottom(), rect.width, rect.bottom() - cut.bottom()},
                                {rect.x, cut.y, cut.x - rect.x, cut.height},
                                {cut.right(), cut.y, rect.right() - cut.right(), cut.height}};
    std::ranges::copy_if(around, std::back_inserter(rest), [](const PixelRect& part) { return !part.isEmpty(); });
  }
  return rest;
}

}  // namespace vellora
