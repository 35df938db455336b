#pragma once

#include <optional>
#include <vector>

#include <QString>

#include "capture/OverlayScene.h"

/// Where the parts of a scene go on one display. Pure functions, all in device pixels of the desktop.
namespace vellora {

/// What only the view knows: the texts and how large they are drawn, with their padding.
struct OverlayTexts {
  QString badge;
  PixelSize badgeSize;
  QString hint;  ///< empty once it has faded
  PixelSize hintSize;
};

/// One display's share of a scene, ready to be drawn.
struct OverlayParts {
  PixelRect clear;  ///< empty: everything is dimmed
  OverlayFrame frame = OverlayFrame::None;
  int frameWidth = 0;
  std::vector<PixelRect> frameEdges;
  std::vector<PixelRect> handles;
  std::optional<PixelRect> badge;
  QString badgeText;
  std::optional<PixelRect> loupe;         ///< the round glass
  std::optional<PixelRect> loupeCaption;  ///< the colour value under it
  PixelPoint loupePixel;
  std::vector<PixelRect> marker;  ///< the arms of the keyboard's cross hair
  std::optional<PixelRect> hint;
  QString hintText;
  friend bool operator==(const OverlayParts&, const OverlayParts&) = default;
};

namespace overlay {
// In points.
inline constexpr double selectionFrame = 1;
inline constexpr double highlightFrame = 2;
inline constexpr double handleSize = 8;
inline constexpr double badgeGap = 8;
inline constexpr double loupeGap = 20;
inline constexpr double loupeZoom = 8;
inline constexpr int loupePixels = 15;  ///< across the glass; odd, so that one is in the middle
inline constexpr double loupeRim = 2;
inline constexpr double captionWidth = 72;
inline constexpr double captionHeight = 22;
inline constexpr double captionGap = 6;
inline constexpr double hintBottom = 48;
inline constexpr double markerArm = 14;
}  // namespace overlay

OverlayParts layOut(const OverlayScene& scene, const DisplayInfo& display, const OverlayTexts& texts);

/// Where a badge of `size` stands at `rect`: outside it, above or else below (or the other way round with `below`), at
/// its side, and inside at the middle of its top edge when it fills the display. Always within `bounds`.
PixelRect badgePlace(const PixelRect& rect, PixelSize size, const PixelRect& bounds, int gap, bool below);

/// Where a block of `size` stands beside `pixel`: on the side away from `anchor`, within `bounds`, not over `obstacle`.
PixelRect loupePlace(PixelPoint pixel, PixelSize size, const PixelRect& bounds, int gap,
                     std::optional<PixelPoint> anchor, const std::optional<PixelRect>& obstacle);

/// What has to be painted anew to get from one state of a display to another. The rectangles may overlap.
std::vector<PixelRect> changedRects(const OverlayParts& before, const OverlayParts& after);

/// The parts of `rect` outside `hole`; at most four.
std::vector<PixelRect> subtracted(const PixelRect& rect, const PixelRect& hole);

}  // namespace vellora
