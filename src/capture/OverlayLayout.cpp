#include "capture/OverlayLayout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "capture/SelectionGeometry.h"

namespace vellora {
namespace {

int pixels(double points, double scale) {
  return std::max(1, static_cast<int>(std::lround(points * scale)));
}

bool isInside(const PixelRect& rect, const PixelRect& bounds) {
  return rect.x >= bounds.x && rect.y >= bounds.y && rect.right() <= bounds.right() && rect.bottom() <= bounds.bottom();
}

PixelRect movedInto(const PixelRect& rect, const PixelRect& bounds) {
  return movedWithin(rect, 0, 0, bounds);
}

/// The frame lies around the rectangle, and on its rim where the display ends.
std::vector<PixelRect> edgesAround(const PixelRect& rect, int width, const PixelRect& bounds) {
  const PixelRect outer =
      PixelRect{rect.x - width, rect.y - width, rect.width + 2 * width, rect.height + 2 * width}.intersected(bounds);
  if (outer.width <= 2 * width || outer.height <= 2 * width) return {outer};
  return {{outer.x, outer.y, outer.width, width},
          {outer.x, outer.bottom() - width, outer.width, width},
          {outer.x, outer.y + width, width, outer.height - 2 * width},
          {outer.right() - width, outer.y + width, width, outer.height - 2 * width}};
}

void add(std::vector<PixelRect>& rects, const std::vector<PixelRect>& more) {
  rects.insert(rects.end(), more.begin(), more.end());
}

void addChange(std::vector<PixelRect>& rects, const std::optional<PixelRect>& before,
               const std::optional<PixelRect>& after) {
  if (before) rects.push_back(*before);
  if (after) rects.push_back(*after);
}

}  // namespace

std::vector<PixelRect> subtracted(const PixelRect& rect, const PixelRect& hole) {
  if (rect.isEmpty()) return {};
  const PixelRect cut = rect.intersected(hole);
  if (cut.isEmpty()) return {rect};
  std::vector<PixelRect> rest;
  if (cut.y > rect.y) rest.push_back({rect.x, rect.y, rect.width, cut.y - rect.y});
  if (cut.bottom() < rect.bottom()) rest.push_back({rect.x, cut.bottom(), rect.width, rect.bottom() - cut.bottom()});
  if (cut.x > rect.x) rest.push_back({rect.x, cut.y, cut.x - rect.x, cut.height});
  if (cut.right() < rect.right()) rest.push_back({cut.right(), cut.y, rect.right() - cut.right(), cut.height});
  return rest;
}

PixelRect badgePlace(const PixelRect& rect, PixelSize size, const PixelRect& bounds, int gap, bool below) {
  const int alignedX = std::clamp(rect.x, bounds.x + gap, std::max(bounds.x + gap, bounds.right() - gap - size.width));
  const int alignedY =
      std::clamp(rect.y, bounds.y + gap, std::max(bounds.y + gap, bounds.bottom() - gap - size.height));
  const PixelRect above{alignedX, rect.y - gap - size.height, size.width, size.height};
  const PixelRect under{alignedX, rect.bottom() + gap, size.width, size.height};
  const PixelRect right{rect.right() + gap, alignedY, size.width, size.height};
  const PixelRect left{rect.x - gap - size.width, alignedY, size.width, size.height};
  for (const PixelRect& place : {below ? under : above, below ? above : under, right, left}) {
    if (isInside(place, bounds)) return place;
  }
  const PixelRect inside{rect.x + (rect.width - size.width) / 2, rect.y + gap, size.width, size.height};
  return movedInto(inside, bounds);
}

PixelRect loupePlace(PixelPoint pixel, PixelSize size, const PixelRect& bounds, int gap,
                     std::optional<PixelPoint> anchor, const std::optional<PixelRect>& obstacle) {
  const bool preferLeft = anchor && pixel.x < anchor->x;
  const bool preferUp = anchor && pixel.y < anchor->y;
  const auto place = [&](bool toLeft, bool up) {
    return PixelRect{toLeft ? pixel.x - gap - size.width : pixel.x + gap,
                     up ? pixel.y - gap - size.height : pixel.y + gap, size.width, size.height};
  };
  const std::array<PixelRect, 4> places{place(preferLeft, preferUp), place(!preferLeft, preferUp),
                                        place(preferLeft, !preferUp), place(!preferLeft, !preferUp)};
  for (const bool avoiding : {true, false}) {
    for (const PixelRect& candidate : places) {
      if (!isInside(candidate, bounds)) continue;
      if (avoiding && obstacle && !candidate.intersected(*obstacle).isEmpty()) continue;
      return candidate;
    }
  }
  return movedInto(places.front(), bounds);
}

OverlayParts layOut(const OverlayScene& scene, const DisplayInfo& display, const OverlayTexts& texts) {
  OverlayParts parts;
  const PixelRect& bounds = display.frame;
  const double scale = display.scale;

  if (scene.clear && !scene.clear->intersected(bounds).isEmpty()) {
    parts.clear = scene.clear->intersected(bounds);
    parts.frame = scene.frame;
    parts.frameWidth =
        pixels(scene.frame == OverlayFrame::Highlight ? overlay::highlightFrame : overlay::selectionFrame, scale);
    if (scene.frame != OverlayFrame::None) parts.frameEdges = edgesAround(parts.clear, parts.frameWidth, bounds);
  }
  if (scene.display != display.id) return parts;

  if (parts.frame == OverlayFrame::Adjusting) {
    const int size = pixels(overlay::handleSize, scale);
    for (const PixelPoint center : handleCenters(parts.clear)) {
      parts.handles.push_back(movedInto({center.x - size / 2, center.y - size / 2, size, size}, bounds));
    }
  }

  if (!parts.clear.isEmpty() && !texts.badge.isEmpty()) {
    const bool below = scene.anchor && scene.loupe && scene.loupe->y < scene.anchor->y;
    parts.badge = badgePlace(parts.clear, texts.badgeSize, bounds, pixels(overlay::badgeGap, scale), below);
    parts.badgeText = texts.badge;
  }

  if (scene.loupe) {
    // A pixel of air around the rim takes its smoothed edge.
    const int glass =
        overlay::loupePixels * pixels(overlay::loupeZoom, scale) + 2 * pixels(overlay::loupeRim, scale) + 4;
    const int captionGap = pixels(overlay::captionGap, scale);
    const PixelSize caption{pixels(overlay::captionWidth, scale), pixels(overlay::captionHeight, scale)};
    const PixelRect block = loupePlace(*scene.loupe, {glass, glass + captionGap + caption.height}, bounds,
                                       pixels(overlay::loupeGap, scale), scene.anchor, parts.badge);
    parts.loupe = PixelRect{block.x, block.y, glass, glass};
    parts.loupeCaption =
        PixelRect{block.x + (glass - caption.width) / 2, block.y + glass + captionGap, caption.width, caption.height};
    parts.loupePixel = *scene.loupe;
  }

  if (scene.marker) {
    const int arm = pixels(overlay::markerArm, scale);
    const int rim = pixels(1, scale);
    const int thickness = 2 * rim + 1;
    const PixelPoint at = *scene.marker;
    // A gap in the middle leaves the pixel itself to be seen.
    const int gap = pixels(3, scale);
    parts.marker = {{at.x - gap - arm, at.y - rim, arm, thickness},
                    {at.x + gap + 1, at.y - rim, arm, thickness},
                    {at.x - rim, at.y - gap - arm, thickness, arm},
                    {at.x - rim, at.y + gap + 1, thickness, arm}};
  }

  if (!texts.hint.isEmpty()) {
    const PixelRect line{bounds.x + (bounds.width - texts.hintSize.width) / 2,
                         bounds.bottom() - pixels(overlay::hintBottom, scale) - texts.hintSize.height,
                         texts.hintSize.width, texts.hintSize.height};
    parts.hint = movedInto(line, bounds);
    parts.hintText = texts.hint;
  }
  return parts;
}

std::vector<PixelRect> changedRects(const OverlayParts& before, const OverlayParts& after) {
  std::vector<PixelRect> rects;
  if (before == after) return rects;
  if (before.clear != after.clear) {
    add(rects, subtracted(before.clear, after.clear));
    add(rects, subtracted(after.clear, before.clear));
  }
  if (before.frameEdges != after.frameEdges || before.frame != after.frame) {
    add(rects, before.frameEdges);
    add(rects, after.frameEdges);
  }
  if (before.handles != after.handles) {
    add(rects, before.handles);
    add(rects, after.handles);
  }
  if (before.badge != after.badge || before.badgeText != after.badgeText) addChange(rects, before.badge, after.badge);
  if (before.loupe != after.loupe || before.loupePixel != after.loupePixel) {
    addChange(rects, before.loupe, after.loupe);
    addChange(rects, before.loupeCaption, after.loupeCaption);
  }
  if (before.marker != after.marker) {
    add(rects, before.marker);
    add(rects, after.marker);
  }
  if (before.hint != after.hint || before.hintText != after.hintText) addChange(rects, before.hint, after.hint);
  std::erase_if(rects, [](const PixelRect& rect) { return rect.isEmpty(); });
  return rects;
}

}  // namespace vellora
