#pragma once

#include "editor/rendering/PixelSource.h"
#include "editor/rendering/PixelTarget.h"
#include "editor/rendering/RenderGeometry.h"

namespace vellora {

/// How a picture that is drawn larger than it is looks.
enum class Enlarging {
  Crisp,         ///< from twice its size on whole pixels, below that smooth
  CrispIfWhole,  ///< whole pixels at whole multiples of its size, else smooth
  Smooth,
};

/// Draws a picture into `placement`, over what is there, inside `clip`. At its own size the pixels are copied; smaller,
/// it is made from the nearest larger half size. Every pixel depends on the placement only, not on `clip`.
void drawPixels(const PixelTarget& target, const QRect& clip, PixelSource& source, const PixelPlacement& placement,
                Enlarging enlarging);

/// Fills the pixels `area` of the target with the cells of a redaction.
void drawCells(const PixelTarget& target, const QRect& area, const CellGrid& grid, const DeviceMap& map);

}  // namespace vellora
