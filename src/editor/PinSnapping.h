#pragma once

#include <span>

#include "base/Geometry.h"

namespace vellora {

/// How near an edge must come to another one to be drawn to it, in points.
inline constexpr double pinSnapReach = 8;

/// `frame` moved so that its edges meet those of `areas` (screens, from inside) and of `pins` (from inside and outside)
/// where they are near; each axis by itself, to the nearest edge.
Rect snappedToEdges(Rect frame, std::span<const Rect> areas, std::span<const Rect> pins);

}  // namespace vellora
