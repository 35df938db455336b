#include "editor/rendering/LensLayer.h"

#include <algorithm>

namespace vellora {
namespace {

const std::uint32_t* rowOf(const QImage& image, int y) {
  return reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
}

void blend(std::uint32_t* out, const std::uint32_t* begin, const std::uint32_t* end) {
  for (; begin < end; ++begin, ++out) {
    if (*begin != 0) *out = blendPixel(*begin, *out);
  }
}

}  // namespace

LensLayer::LensLayer(QImage image, const QTransform& local) : image_(std::move(image)), local_(local) {
  const auto isOpaque = [](std::uint32_t pixel) { return pixel >= 0xFF000000U; };
  opaque_.resize(static_cast<std::size_t>(image_.height()));
  for (int y = 0; y < image_.height(); ++y) {
    const std::uint32_t* row = rowOf(image_, y);
    const std::uint32_t* const rowEnd = row + image_.width();
    Run& longest = opaque_[static_cast<std::size_t>(y)];
    for (const std::uint32_t* begin = row; begin < rowEnd;) {
      begin = std::find_if(begin, rowEnd, isOpaque);
      const std::uint32_t* const end = std::find_if_not(begin, rowEnd, isOpaque);
      if (end - begin > longest.end - longest.begin) longest = {int(begin - row), int(end - row)};
      begin = end;
    }
  }
}

void LensLayer::draw(const PixelTarget& target, const QRect& clip, QPoint corner) const {
  const QRect area = QRect(corner, image_.size()) & clip & target.area;
  if (area.isEmpty()) return;
  const int left = area.left() - corner.x();
  const int right = left + area.width();
  for (int y = area.top(); y <= area.bottom(); ++y) {
    const std::uint32_t* row = rowOf(image_, y - corner.y());
    std::uint32_t* out = target.row(y) + corner.x();
    const Run run = opaque_[static_cast<std::size_t>(y - corner.y())];
    const int begin = std::clamp(run.begin, left, right);
    const int end = std::clamp(run.end, begin, right);
    blend(out + left, row + left, row + begin);
    std::copy(row + begin, row + end, out + begin);
    blend(out + end, row + end, row + right);
  }
}

const LensLayer* LensLayers::find(std::uint64_t key, const QSize& size, const QTransform& local) const {
  const auto found = layers_.find(key);
  return found != layers_.end() && found->second.shows(size, local) ? &found->second : nullptr;
}

void LensLayers::keep(std::uint64_t key, LensLayer layer) {
  constexpr qint64 mostPixels = 16'000'000;
  const auto old = layers_.find(key);
  if (old != layers_.end()) {
    pixels_ -= old->second.pixelCount();
    layers_.erase(old);
  }
  if (pixels_ + layer.pixelCount() > mostPixels) {
    layers_.clear();
    pixels_ = 0;
  }
  pixels_ += layer.pixelCount();
  layers_.emplace(key, std::move(layer));
}

void LensLayers::keepOnly(const std::unordered_set<std::uint64_t>& keys) {
  std::erase_if(layers_, [&](const auto& entry) {
    if (keys.contains(entry.first)) return false;
    pixels_ -= entry.second.pixelCount();
    return true;
  });
}

}  // namespace vellora
