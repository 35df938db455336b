#include "editor/canvas/AnnotationOutlines.h"

#include "editor/canvas/AnnotationGeometry.h"
#include "editor/canvas/PlaneGeometry.h"

namespace vellora {

using namespace geometry;

Rect AnnotationOutlines::of(const AnnotationPtr& annotation) {
  // Far beyond what a document holds; only entries of deleted things pile up.
  constexpr std::size_t mostEntries = 20000;
  if (entries_.size() > mostEntries) entries_.clear();
  Entry& entry = entries_[annotation->id];
  if (entry.annotation != annotation) entry = {annotation, outlineRect(*annotation, measurer_)};
  return entry.outline;
}

Point AnnotationOutlines::middleOf(const AnnotationPtr& annotation) {
  return center(of(annotation));
}

}  // namespace vellora
