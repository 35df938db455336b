#pragma once

#include <vector>

#include "editor/Annotation.h"
#include "editor/BackdropSettings.h"
#include "editor/CapturePiece.h"

namespace vellora {

/// An image document at one moment: what is on the canvas, from back to front. A value that is cheap to copy (pictures
/// and annotations are shared and never change), so an undo step is a copy and a worker thread may hold one.
struct ImageDocument {
  std::vector<CapturePiece> pieces;        ///< in canvas order
  std::vector<AnnotationPtr> annotations;  ///< in z-order, first drawn first
  BackdropSettings backdrop;

  /// The union of all pieces' frames, in document points; empty without pieces.
  Rect contentRect() const;
  /// The largest scale among the pieces, in pixels per point; 1 without pieces.
  double outputScale() const;
  /// Where an annotation stands in the z-order; nothing when it is not there.
  std::optional<std::size_t> indexOf(AnnotationId id) const;
  /// The annotation, or null.
  AnnotationPtr annotation(AnnotationId id) const;
};

/// The gap, in points, between a document's content and a capture added to it.
inline constexpr double addedPieceGap = 12;

/// Where a capture added to `document` goes: right of the content by the gap, at its top; the origin without pieces.
Point addedPieceOrigin(const ImageDocument& document);

}  // namespace vellora
