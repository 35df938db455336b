#pragma once

#include <optional>

#include <QString>

#include "base/Geometry.h"
#include "platform/ScreenCaptureService.h"

namespace vellora {

/// The pointer's shape over the overlay.
enum class OverlayCursor { Cross, Hidden, Pick, Move, Horizontal, Vertical, DiagonalDown, DiagonalUp };

/// How the part that is not dimmed is outlined.
enum class OverlayFrame {
  None,
  Selection,  ///< a drawn rectangle
  Adjusting,  ///< a drawn rectangle with its eight handles
  Highlight,  ///< a window that a click takes
};

/// Everything the overlays show at one moment, in device pixels of the desktop. A plain value: a model makes it, the
/// overlays draw it.
struct OverlayScene {
  DisplayId display = 0;  ///< the display the person is working on; the badge, the loupe and the hint are there
  std::optional<PixelRect> clear;  ///< the part of the desktop that is not dimmed
  OverlayFrame frame = OverlayFrame::None;
  bool showsSize = false;            ///< a badge with the size of `clear`
  QString title;                     ///< a badge with the window's name; empty for none
  std::optional<PixelPoint> loupe;   ///< the pixel under the loupe
  std::optional<PixelPoint> marker;  ///< the keyboard's cross hair, which has left the pointer
  std::optional<PixelPoint> anchor;  ///< the fixed corner of a drag: the loupe keeps away from it
  OverlayCursor cursor = OverlayCursor::Cross;
  QString hintKey;  ///< the dotted key of the hint line; empty for none
  friend bool operator==(const OverlayScene&, const OverlayScene&) = default;
};

}  // namespace vellora
