#pragma once

#include <span>
#include <vector>

#include <QPainterPath>

#include "base/Geometry.h"

namespace vellora {

/// A closed smooth path through an outline: curves from middle to middle of its edges. Of two points an oval around
/// them, of one a dot.
QPainterPath smoothClosedPath(std::span<const Point> outline);

/// Adds to `ink` the outline of a stroke that follows `points` and is, at each, twice its `halfWidths` wide; nothing
/// when there is nothing to fill. Outlines run the same way round, so that with the winding rule several are filled as
/// one, however they cross.
void fillInkRibbon(std::vector<std::vector<Point>>& ink, std::span<const Point> points,
                   std::span<const double> halfWidths, bool roundStart, bool roundEnd);

}  // namespace vellora
