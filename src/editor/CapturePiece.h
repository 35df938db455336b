#pragma once

#include <cstdint>
#include <memory>

#include "base/Bitmap.h"
#include "base/Geometry.h"

namespace vellora {

class SharedPng;

/// One captured image placed on an editor's canvas.
struct CapturePiece {
  Bitmap image;                    ///< the whole source, uncropped
  std::shared_ptr<SharedPng> png;  ///< the source as PNG, encoded when first asked for; set by makePiece
  double scale = 1;                ///< device pixels per point
  Point origin;                    ///< top-left corner in document points
  Size pointSize;                  ///< of what is shown, in points
  Size sourceSize;                 ///< of the uncropped source, in points
  Rect visibleRect;                ///< the part of the source that is shown, in source points
  std::uint64_t id = 0;            ///< tells one piece from another while an editor is open; never stored

  Rect frame() const { return {origin, pointSize}; }
  bool isCropped() const { return visibleRect != Rect{{0, 0}, sourceSize}; }
};

/// An uncropped piece at the document's origin. `png` shares an encoding that is already under way elsewhere.
CapturePiece makePiece(const Bitmap& image, double scale, std::shared_ptr<SharedPng> png = nullptr);

}  // namespace vellora
