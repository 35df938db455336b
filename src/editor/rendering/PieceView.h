#pragma once

#include <optional>

#include "editor/CapturePiece.h"

namespace vellora {

/// What shows of a piece: nothing of the source beyond its crop can be reached through it.
struct PieceView {
  Bitmap pixels;  ///< the visible part, in whole pixels of the source
  Rect frame;     ///< where it lies, in document points
  double stepX = 1;
  double stepY = 1;  ///< points per pixel
};

/// The view of a piece; nothing for a piece without pixels or with impossible numbers.
std::optional<PieceView> viewOf(const CapturePiece& piece);

}  // namespace vellora
