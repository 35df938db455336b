#include "editor/painting/TextLayout.h"

#include "editor/painting/TextBox.h"
#include "editor/painting/Vector.h"

namespace vellora {
namespace {

TextBox boxOf(const Annotation& annotation) {
  const auto measures = measuresOf(annotation);
  return textBoxOf(annotation, measures ? measures->lineWidth : 0);
}

class PaintedTextMeasurer final : public TextMeasurer {
 public:
  Size boxSize(const Annotation& annotation) override { return boxOf(annotation).size; }

  int offsetAt(const Annotation& annotation, Point place) override {
    const TextBox box = boxOf(annotation);
    return box.text->offsetAt({place.x - box.padding.width, place.y - box.padding.height});
  }

  Rect cursorRect(const Annotation& annotation, int offset) override {
    const TextBox box = boxOf(annotation);
    return inside(box, box.text->cursorRect(offset));
  }

  std::vector<Rect> selectionRects(const Annotation& annotation, int begin, int end) override {
    const TextBox box = boxOf(annotation);
    std::vector<Rect> rects = box.text->selectionRects(begin, end);
    for (Rect& rect : rects) rect = inside(box, rect);
    return rects;
  }

  int offsetInNextLine(const Annotation& annotation, int offset, int direction, double x) override {
    const TextBox box = boxOf(annotation);
    return box.text->offsetInNextLine(offset, direction, x - box.padding.width);
  }

  std::pair<int, int> lineAt(const Annotation& annotation, int offset) override {
    return boxOf(annotation).text->lineAt(offset);
  }

 private:
  static Rect inside(const TextBox& box, const Rect& rect) {
    return {vec::add(rect.origin, {box.padding.width, box.padding.height}), rect.size};
  }
};

}  // namespace

std::unique_ptr<TextMeasurer> makeTextMeasurer() {
  return std::make_unique<PaintedTextMeasurer>();
}

}  // namespace vellora
