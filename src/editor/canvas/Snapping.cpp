#include "editor/canvas/Snapping.h"

#include "editor/canvas/PlaneGeometry.h"

namespace vellora {

using namespace geometry;

Snapper::Snapper(const ImageDocument& document, AnnotationOutlines& outlines, const std::set<AnnotationId>& dragged,
                 std::optional<std::uint64_t> draggedPiece) {
  for (const CapturePiece& piece : document.pieces) {
    if (piece.id != draggedPiece) add(piece.frame());
  }
  // More would cost more at each movement than lining up with them is worth.
  constexpr std::size_t mostThings = 1000;
  std::size_t taken = 0;
  for (const AnnotationPtr& annotation : document.annotations) {
    if (dragged.contains(annotation->id)) continue;
    add(outlines.of(annotation));
    if (++taken == mostThings) return;
  }
}

void Snapper::add(const Rect& rect) {
  if (!isFinite(rect)) return;
  const Point mid = center(rect);
  for (const double x : {rect.minX(), mid.x, rect.maxX()}) upright_.push_back({x, rect.minY(), rect.maxY()});
  for (const double y : {rect.minY(), mid.y, rect.maxY()}) level_.push_back({y, rect.minX(), rect.maxX()});
}

std::optional<Snapper::Match> Snapper::nearest(const std::vector<Line>& lines, std::initializer_list<double> places,
                                               double reach) {
  std::optional<Match> best;
  for (const Line& line : lines) {
    for (const double place : places) {
      const double shift = line.at - place;
      if (!(std::abs(shift) <= reach) || (best && std::abs(best->shift) <= std::abs(shift))) continue;
      best = Match{shift, line};
    }
  }
  return best;
}

Snapper::Snap Snapper::moving(const Rect& rect, double reach) const {
  if (!isFinite(rect)) return {};
  const Point mid = center(rect);
  const auto x = nearest(upright_, {rect.minX(), mid.x, rect.maxX()}, reach);
  const auto y = nearest(level_, {rect.minY(), mid.y, rect.maxY()}, reach);
  Snap snap{{x ? x->shift : 0, y ? y->shift : 0}, {}};
  const Rect there{sum(rect.origin, snap.shift), rect.size};
  if (x) {
    snap.guides.push_back(
        {{x->line.at, std::min(x->line.from, there.minY())}, {x->line.at, std::max(x->line.to, there.maxY())}});
  }
  if (y) {
    snap.guides.push_back(
        {{std::min(y->line.from, there.minX()), y->line.at}, {std::max(y->line.to, there.maxX()), y->line.at}});
  }
  return snap;
}

Snapper::Snap Snapper::resizing(Point place, MovedEdges edges, double reach) const {
  const auto x = edges.x == 0 ? std::nullopt : nearest(upright_, {place.x}, reach);
  const auto y = edges.y == 0 ? std::nullopt : nearest(level_, {place.y}, reach);
  Snap snap{{x ? x->shift : 0, y ? y->shift : 0}, {}};
  const Point there = sum(place, snap.shift);
  if (x)
    snap.guides.push_back({{x->line.at, std::min(x->line.from, there.y)}, {x->line.at, std::max(x->line.to, there.y)}});
  if (y)
    snap.guides.push_back({{std::min(y->line.from, there.x), y->line.at}, {std::max(y->line.to, there.x), y->line.at}});
  return snap;
}

}  // namespace vellora
