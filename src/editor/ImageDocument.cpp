#include "editor/ImageDocument.h"

#include <algorithm>

namespace vellora {

Rect ImageDocument::contentRect() const {
  if (pieces.empty()) return {};
  Rect all = pieces.front().frame();
  for (const CapturePiece& piece : pieces) all = all.united(piece.frame());
  return all;
}

double ImageDocument::outputScale() const {
  double scale = 0;
  for (const CapturePiece& piece : pieces) scale = std::max(scale, piece.scale);
  return scale > 0 ? scale : 1;
}

std::optional<std::size_t> ImageDocument::indexOf(AnnotationId id) const {
  const auto found = std::ranges::find(annotations, id, &Annotation::id);
  if (found == annotations.end()) return std::nullopt;
  return static_cast<std::size_t>(found - annotations.begin());
}

AnnotationPtr ImageDocument::annotation(AnnotationId id) const {
  const auto index = indexOf(id);
  return index ? annotations[*index] : nullptr;
}

Point addedPieceOrigin(const ImageDocument& document) {
  if (document.pieces.empty()) return {};
  const Rect all = document.contentRect();
  return {all.maxX() + addedPieceGap, all.minY()};
}

}  // namespace vellora
