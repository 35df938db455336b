#include "editor/rendering/PieceView.h"

#include "editor/rendering/RenderGeometry.h"

namespace vellora {
namespace {

struct Span {
  int begin;
  int length;
};

/// The whole pixels nearest to a part of an axis, at least one.
Span wholePixels(double begin, double length, int available) {
  const auto count = static_cast<int>(std::clamp(std::round(length), 1.0, static_cast<double>(available)));
  const auto first = static_cast<int>(std::clamp(std::round(begin), 0.0, static_cast<double>(available - count)));
  return {first, count};
}

}  // namespace

std::optional<PieceView> viewOf(const CapturePiece& piece) {
  const bool scales = piece.scale > 0 && piece.scale < 1e4;
  if (piece.image.isNull() || !scales || !isPlausible(piece.visibleRect) || !isPlausible(piece.frame())) return {};
  const Rect& visible = piece.visibleRect;
  const Span across = wholePixels(visible.minX() * piece.scale, visible.size.width * piece.scale, piece.image.width());
  const Span down = wholePixels(visible.minY() * piece.scale, visible.size.height * piece.scale, piece.image.height());
  PieceView view;
  view.pixels = piece.image.cropped({across.begin, down.begin, across.length, down.length});
  view.frame = piece.frame();
  view.stepX = view.frame.size.width / across.length;
  view.stepY = view.frame.size.height / down.length;
  return view;
}

}  // namespace vellora
