#pragma once

#include <set>
#include <vector>

#include "editor/canvas/AnnotationOutlines.h"
#include "editor/canvas/Handles.h"

namespace vellora {

/// A line that shows what something being dragged lines up with, upright or level.
struct Guide {
  Point from;
  Point to;
  friend bool operator==(const Guide&, const Guide&) = default;
};

/// How near things come, in screen points, before they line up.
inline constexpr double snapReach = 6;

/// Lines things up with the edges and centres of the others and of the pieces.
class Snapper {
 public:
  /// Everything in `document` but what is being dragged.
  Snapper(const ImageDocument& document, AnnotationOutlines& outlines, const std::set<AnnotationId>& dragged,
          std::optional<std::uint64_t> draggedPiece = std::nullopt);

  struct Snap {
    Point shift;  ///< what is missing to the lines
    std::vector<Guide> guides;
  };
  /// For a rectangle being moved: its edges and centres. `reach` in document points.
  Snap moving(const Rect& rect, double reach) const;
  /// For edges being moved to a place.
  Snap resizing(Point place, MovedEdges edges, double reach) const;

 private:
  struct Line {
    double at;    // across the line
    double from;  // along it
    double to;
  };
  struct Match {
    double shift;
    Line line;
  };
  void add(const Rect& rect);
  static std::optional<Match> nearest(const std::vector<Line>& lines, std::initializer_list<double> places,
                                      double reach);

  std::vector<Line> upright_;
  std::vector<Line> level_;
};

}  // namespace vellora
