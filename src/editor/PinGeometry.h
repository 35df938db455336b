#pragma once

#include "base/Geometry.h"

/// The sizes a pinned picture may have and what of its controls has room. Lengths in points. Every function takes any
/// numbers, also such as are not finite.
namespace vellora::PinGeometry {

inline constexpr double maximumScale = 5;
inline constexpr double leastLongSide = 80;
inline constexpr double leastShortSide = 46;
/// What the controls leave free at the picture's edges, each side.
inline constexpr double chromeInset = 8;

/// Which controls a pin has room for.
enum class ChromeTier { Full = 0, NoReadout = 1, CopyEdit = 2, CopyOnly = 3, CloseOnly = 4 };

struct ScaleBounds {
  double lower = 1;
  double upper = 1;
};

/// The least scale of a picture, at most 1: below it the picture would be too small to see and to grasp.
double minimumScale(Size image);

/// From the minimum to the maximum scale.
ScaleBounds scaleBounds(Size image);

/// The scales a pinch may reach on a screen of the given size: at most the whole picture on it.
ScaleBounds pinchBounds(Size image, Size screen);

/// The scale a new pin starts with: `requested`, less where the picture would not fit `available`.
double initialScale(Size image, double requested, Size available);

/// 0.5, 1 or 2 for a scale close to it, else the scale itself.
double snapped(double scale);

/// The scale for a window that is being pulled to the size `proposed`: follows the side that departs farther from
/// `current`, the scale at the beginning of the pull.
double resolveScale(Size proposed, Size image, double current);

/// The picture at `scale`, each side rounded to whole points and at least 1.
Size windowSize(Size image, double scale);

Point center(const Rect& frame);
/// A rectangle of `size` around `center`.
Rect centered(Size size, Point center);

/// `frame` moved inside `visible`; where it is too large it begins at the left and top edge.
Rect movedInside(Rect frame, const Rect& visible);

struct ScaledFrame {
  double scale = 1;
  Rect frame;
};

/// A window shown at another scale, as far as `bounds` allow it: it keeps its centre as far as `visible` has room.
ScaledFrame setScale(double scale, ScaleBounds bounds, Size image, const Rect& frame, const Rect& visible);

/// The controls for a window of width `width`.
ChromeTier chromeTier(double width);

}  // namespace vellora::PinGeometry
