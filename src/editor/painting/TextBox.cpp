#include "editor/painting/TextBox.h"

#include <algorithm>
#include <cmath>

#include "editor/painting/PaintCache.h"

namespace vellora {

TextBox textBoxOf(const Annotation& annotation, double lineWidth) {
  constexpr double emptyWidth = 2;
  const double fontSize = textFontSize(lineWidth);
  TextBox box;
  box.text = PaintCache::ofThisThread().text({.text = annotation.text,
                                              .fontSize = fontSize,
                                              .handwritten = annotation.textHandwritten,
                                              .weight = QFont::Medium,
                                              .wrapWidth = annotation.textBoxWidth});
  if (annotation.textBackground) box.padding = {std::round(fontSize * 0.45), std::round(fontSize * 0.3)};
  const Size content = box.text->size();
  box.size = {std::max(content.width, annotation.text.isEmpty() ? emptyWidth : 0) + 2 * box.padding.width,
              content.height + 2 * box.padding.height};
  box.cornerRadius = std::min(box.size.height / 2, 12.0);
  return box;
}

}  // namespace vellora
