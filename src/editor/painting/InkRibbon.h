#pragma once

#include <span>
#include <vector>

#include <QPainterPath>

#include "base/Geometry.h"

namespace vellora {

/// A closed smooth path through an outline: curves from middle to middle of its edges. Of two points an oval around
/// them, of one a dot.
QPainterPath smoothClosedPath(std::span<const Point> outline);

/// Adds a stroke to `ink` that follows `points` and is, at each, twice its `halfWidths` wide. Ribbons run the same way
/// round, so that several in one path with the winding fill rule are filled as one, however they cross.
void fillInkRibbon(QPainterPath& ink, std::span<const Point> points, std::span<const double> halfWidths,
                   bool roundStart, bool roundEnd);

}  // namespace vellora
