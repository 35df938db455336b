#pragma once

#include "editor/Annotation.h"

class QPainter;

namespace vellora {

/// Draws annotations, all kinds but blur and magnifier, which are made from the picture below them. Several may draw at
/// once on several threads: layouts and outlines are kept for each thread by itself, for what it drew last.
class AnnotationPainter {
 public:
  /// Draws into `painter`, whose coordinates are document points. With `hideTextGlyphs` (the text is being edited in
  /// place) a text draws its filled ground only. All parts of a translucent annotation are blended as one. An
  /// annotation whose numbers are not finite is not drawn.
  void draw(QPainter& painter, const Annotation& annotation, bool hideTextGlyphs = false) const;
};

/// Everything an annotation may colour, in document points, a little too large rather than too small: what to repaint
/// when it changes. Any thread; quick for what this thread drew last.
Rect paintedBounds(const Annotation& annotation);

/// What to repaint when `before` becomes `after`: of a pen's stroke that grows only what the new samples changed.
Rect changedBounds(const Annotation& before, const Annotation& after);

}  // namespace vellora
