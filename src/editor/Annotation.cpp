#include "editor/Annotation.h"

#include <atomic>

namespace vellora {

AnnotationId newAnnotationId() {
  static std::atomic<AnnotationId> last{0};
  return ++last;
}

Rect spannedRect(const Annotation& annotation) {
  const auto [left, right] = std::minmax(annotation.p1.x, annotation.p2.x);
  const auto [top, bottom] = std::minmax(annotation.p1.y, annotation.p2.y);
  return {{left, top}, {right - left, bottom - top}};
}

bool isRedaction(const Annotation& annotation) {
  return annotation.kind == Annotation::Kind::Blur && annotation.blurStyle != BlurStyle::Gaussian;
}

}  // namespace vellora
