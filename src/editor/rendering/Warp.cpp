#include "editor/rendering/Warp.h"

#include <cmath>

#include "editor/rendering/PixelTarget.h"
#include "editor/rendering/RenderGeometry.h"

namespace vellora {
namespace {

/// The flat pixels a tile of the target shows; null when there are none.
QRect flatPart(const QRect& tile, const QTransform& toFlat, const QRect& bounds) {
  double left = 1e9;
  double top = 1e9;
  double right = -1e9;
  double bottom = -1e9;
  for (const double y : {tile.top() + 0.0, tile.bottom() + 1.0}) {
    for (const double x : {tile.left() + 0.0, tile.right() + 1.0}) {
      const double depth = toFlat.m13() * x + toFlat.m23() * y + toFlat.m33();
      if (!(depth > 1e-6)) return bounds;  // the horizon runs through the tile
      const double flatX = (toFlat.m11() * x + toFlat.m21() * y + toFlat.m31()) / depth;
      const double flatY = (toFlat.m12() * x + toFlat.m22() * y + toFlat.m32()) / depth;
      left = std::min(left, flatX);
      top = std::min(top, flatY);
      right = std::max(right, flatX);
      bottom = std::max(bottom, flatY);
    }
  }
  constexpr int reach = 2;
  const QPoint first(toPixel(std::floor(left)) - reach, toPixel(std::floor(top)) - reach);
  const QPoint last(toPixel(std::ceil(right)) + reach, toPixel(std::ceil(bottom)) + reach);
  return QRect(first, last) & bounds;
}

/// The bilinear mean of four pixels at a place in 256ths of a pixel; what is outside is transparent.
std::uint32_t sampled(const PixelTarget& flat, int x256, int y256) {
  const int x = x256 >> 8;
  const int y = y256 >> 8;
  if (x < -1 || y < -1 || x >= flat.area.width() || y >= flat.area.height()) return 0;
  const auto at = [&](int column, int row) -> std::uint32_t {
    const bool inside = column >= 0 && row >= 0 && column < flat.area.width() && row < flat.area.height();
    return inside ? flat.row(row)[column] : 0;
  };
  const auto across = static_cast<std::uint32_t>(x256 & 255);
  const auto down = static_cast<std::uint32_t>(y256 & 255);
  if (x >= 0 && y >= 0 && x + 1 < flat.area.width() && y + 1 < flat.area.height()) {
    const std::uint32_t* first = flat.row(y) + x;
    const std::uint32_t* second = first + flat.stride;
    return mixPixels(mixPixels(first[0], first[1], across), mixPixels(second[0], second[1], across), down);
  }
  return mixPixels(mixPixels(at(x, y), at(x + 1, y), across), mixPixels(at(x, y + 1), at(x + 1, y + 1), across), down);
}

void warpTile(const PixelTarget& target, const QRect& tile, const QTransform& toFlat, const PixelTarget& flat,
              QPoint corner) {
  constexpr double furthest = 1e6;
  for (int y = tile.top(); y <= tile.bottom(); ++y) {
    std::uint32_t* row = target.row(y);
    for (int x = tile.left(); x <= tile.right(); ++x) {
      const double centreX = x + 0.5;
      const double centreY = y + 0.5;
      const double depth = toFlat.m13() * centreX + toFlat.m23() * centreY + toFlat.m33();
      if (!(depth > 1e-6)) continue;
      const double flatX = (toFlat.m11() * centreX + toFlat.m21() * centreY + toFlat.m31()) / depth;
      const double flatY = (toFlat.m12() * centreX + toFlat.m22() * centreY + toFlat.m32()) / depth;
      if (!(std::abs(flatX) < furthest && std::abs(flatY) < furthest)) continue;
      const auto place = [](double value) { return static_cast<int>(std::floor((value - 0.5) * 256 + 0.5)); };
      const std::uint32_t pixel = sampled(flat, place(flatX) - corner.x() * 256, place(flatY) - corner.y() * 256);
      if (pixel >= 0xFF000000U) {
        row[x] = pixel;
      } else if (pixel != 0) {
        row[x] = blendPixel(pixel, row[x]);
      }
    }
  }
}

}  // namespace

void drawWarped(QImage& target, const QRect& clip, const QTransform& toFlat, const QRect& flatBounds,
                const std::function<void(QImage& part, QPoint corner)>& draw) {
  // Tiles lie on a grid of the target: Qt rounds positions left of and above an image otherwise than those inside, so
  // a flat part must always begin at the same place.
  constexpr int tileEdge = 128;
  constexpr double mostPixels = 32e6;
  const QRect area = clip & target.rect();
  const PixelTarget pixels(target);
  for (int top = area.top() / tileEdge * tileEdge; top <= area.bottom(); top += tileEdge) {
    for (int left = area.left() / tileEdge * tileEdge; left <= area.right(); left += tileEdge) {
      const QRect tile(left, top, tileEdge, tileEdge);
      const QRect part = flatPart(tile, toFlat, flatBounds);
      if (part.isEmpty() || static_cast<double>(part.width()) * part.height() > mostPixels) continue;
      QImage flat(part.size(), QImage::Format_ARGB32_Premultiplied);
      if (flat.isNull()) return;
      flat.fill(Qt::transparent);
      draw(flat, part.topLeft());
      warpTile(pixels, tile & area, toFlat, PixelTarget(flat), part.topLeft());
    }
  }
}

}  // namespace vellora
