#pragma once

#include <optional>
#include <vector>

#include "editor/Annotation.h"
#include "editor/CapturePiece.h"
#include "editor/TextMeasurer.h"
#include "editor/canvas/CanvasInput.h"

namespace vellora {

/// The small square or dot at which a thing is taken hold of.
struct Handle {
  enum class Role {
    TopLeft,
    Top,
    TopRight,
    Right,
    BottomRight,
    Bottom,
    BottomLeft,
    Left,  ///< of rectangles and crops
    Start,
    End,
    Bend,       ///< of arrows
    Tail,       ///< of a counter
    TextWidth,  ///< where a text wraps
    Source,     ///< of a lens: what it shows
  };
  Role role;
  Point position;  ///< document points, before the backdrop's placement
  friend bool operator==(const Handle&, const Handle&) = default;
};

/// How near a handle is taken, in screen points.
inline constexpr double handleReach = 9;
/// The least width and height a thing can be dragged to, in document points.
inline constexpr double leastExtent = 4;

/// Which edges of a rectangle a handle moves: -1 the left or top one, 1 the right or bottom one, 0 none.
struct MovedEdges {
  int x = 0;
  int y = 0;
};
MovedEdges movedEdges(Handle::Role role);

/// The eight handles of a rectangle, clockwise from the top left.
std::vector<Handle> rectHandles(const Rect& rect);

/// Where an annotation can be taken hold of. `outline` as AnnotationOutlines gives it; none where that is not finite.
std::vector<Handle> handlesOf(const Annotation& annotation, const Rect& outline);

/// The handle the pointer takes: the nearest within reach. In the middle of a small thing the thing itself is taken.
std::optional<Handle> handleAt(const std::vector<Handle>& handles, const std::optional<Rect>& body,
                               const PointerEvent& event);

/// What the pointer does at a handle.
PointerHint hintOf(Handle::Role role);

/// A rectangle being resized: `from` becomes the one spanned by two corners, which may lie the other way round.
struct RectChange {
  Rect from;
  Point first;   ///< where the top-left corner of `from` goes
  Point second;  ///< where its bottom-right corner goes

  Point map(Point p) const;
};

/// Moves the edges of a handle to `to`. Shift keeps the proportions, Alt the centre.
RectChange resizedRect(const Rect& rect, Handle::Role role, Point to, const Modifiers& modifiers);

/// The annotation with a handle dragged to `to`. Shift keeps proportions and goes in steps of 45°, Alt keeps the
/// centre. `outline`: of the annotation as it was.
Annotation withHandleAt(const Annotation& annotation, const Rect& outline, Handle::Role role, Point to,
                        const Modifiers& modifiers, double pointsPerScreenPoint);

}  // namespace vellora
