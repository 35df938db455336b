#pragma once

#include "editor/CapturePiece.h"
#include "editor/canvas/Handles.h"

namespace vellora {

/// The least width and height a piece can be cropped to, in points; less only where the source itself is smaller.
inline constexpr double leastCrop = 8;

/// Where the whole source of a piece lies in the document: what it shows is a part of it.
Rect sourceFrame(const CapturePiece& piece);

/// The piece showing as much as lies between its edges with those of a handle moved to `to`, in document points.
/// Within the source, on whole pixels of it; the picture stays where it is.
CapturePiece cropped(const CapturePiece& piece, Handle::Role role, Point to);

/// The piece showing another part of its source of the same size: the edges shifted by `by`, the picture where it is.
CapturePiece cropShifted(const CapturePiece& piece, Point by);

/// The piece with its whole source, which stays where it is.
CapturePiece uncropped(const CapturePiece& piece);

/// The place moved to the nearest whole pixel of a grid with `scale` pixels a point.
Point onWholePixels(Point place, double scale);

}  // namespace vellora
