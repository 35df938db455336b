#pragma once

#include <unordered_map>

#include "editor/Annotation.h"
#include "editor/ImageDocument.h"
#include "editor/TextMeasurer.h"

namespace vellora {

/// The outlines of annotations, measured once each: laying out text and walking long strokes is too slow for every
/// movement of the pointer. Main thread.
class AnnotationOutlines {
 public:
  explicit AnnotationOutlines(TextMeasurer& measurer) : measurer_(measurer) {}

  /// Not finite for an annotation with places that are not.
  Rect of(const AnnotationPtr& annotation);
  /// Where the annotation counts as standing: the middle of its outline.
  Point middleOf(const AnnotationPtr& annotation);
  TextMeasurer& measurer() { return measurer_; }

 private:
  struct Entry {
    AnnotationPtr annotation;  // held, so that no other takes its address
    Rect outline;
  };
  TextMeasurer& measurer_;
  std::unordered_map<AnnotationId, Entry> entries_;
};

}  // namespace vellora
