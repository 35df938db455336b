#pragma once

#include "editor/Annotation.h"

class QPainter;

namespace vellora {

/// Draws annotations, all kinds but blur and magnifier, which are made from the picture below them. Stateless but for a
/// cache of freehand outlines; several may draw at once on several threads.
class AnnotationPainter {
 public:
  AnnotationPainter();
  ~AnnotationPainter();

  /// Draws into `painter`, whose coordinates are document points. With `hideTextGlyphs` (the text is being edited in
  /// place) a text draws its filled ground only.
  void draw(QPainter& painter, const Annotation& annotation, bool hideTextGlyphs = false);

 private:
  struct Cache;
  std::unique_ptr<Cache> cache_;
};

/// Everything an annotation may colour, in document points, a little too large rather than too small: what to repaint
/// when it changes.
Rect paintedBounds(const Annotation& annotation);

}  // namespace vellora
