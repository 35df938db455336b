#include "editor/canvas/Styling.h"

namespace vellora {
namespace {

using Kind = Annotation::Kind;

/// The value all annotations with the property agree on.
template <typename T, typename Read>
std::optional<T> agreed(std::span<const AnnotationPtr> annotations, StyleProperty property, Read read) {
  std::optional<T> value;
  for (const AnnotationPtr& annotation : annotations) {
    if (!hasProperty(annotation->kind, property)) continue;
    const std::optional<T> own = read(*annotation);
    if (!own || (value && *value != *own)) return std::nullopt;
    value = own;
  }
  return value;
}

}  // namespace

bool hasProperty(Kind kind, StyleProperty property) {
  switch (property) {
    case StyleProperty::Color:
    case StyleProperty::LineWidth:
      return kind != Kind::Blur && kind != Kind::Magnifier;
    case StyleProperty::TextBackground:
    case StyleProperty::TextHandwritten:
      return kind == Kind::Text;
    case StyleProperty::Sketch:
      return kind == Kind::Arrow || kind == Kind::Box || kind == Kind::Ellipse;
    case StyleProperty::ShapeFill:
      return kind == Kind::Box || kind == Kind::Ellipse;
    case StyleProperty::BlurStyle:
    case StyleProperty::BlurStrength:
    case StyleProperty::EraseFillColor:
      return kind == Kind::Blur;
    case StyleProperty::Magnification:
    case StyleProperty::MagnifierShape:
      return kind == Kind::Magnifier;
  }
  return false;
}

StyleState commonStyle(std::span<const AnnotationPtr> annotations) {
  using A = Annotation;
  using P = StyleProperty;
  StyleState state;
  for (const AnnotationPtr& annotation : annotations) state.kinds.insert(annotation->kind);
  const auto all = annotations;
  state.color = agreed<ColorComponents>(all, P::Color, [](const A& a) { return a.color; });
  state.lineWidth = agreed<double>(all, P::LineWidth, [](const A& a) { return a.lineWidth; });
  state.textBackground = agreed<bool>(all, P::TextBackground, [](const A& a) { return a.textBackground; });
  state.textHandwritten = agreed<bool>(all, P::TextHandwritten, [](const A& a) { return a.textHandwritten; });
  state.sketch = agreed<bool>(all, P::Sketch, [](const A& a) { return a.sketch; });
  state.shapeFill = agreed<bool>(all, P::ShapeFill, [](const A& a) { return a.shapeFill.value_or(false); });
  state.blurStyle = agreed<BlurStyle>(all, P::BlurStyle, [](const A& a) { return a.blurStyle; });
  state.blurStrength = agreed<double>(all, P::BlurStrength, [](const A& a) { return a.blurStrength; });
  state.eraseFillColor = agreed<ColorComponents>(all, P::EraseFillColor, [](const A& a) { return a.eraseFillColor; });
  state.magnification = agreed<double>(all, P::Magnification, [](const A& a) { return a.magnification; });
  state.magnifierShape = agreed<MagnifierShape>(all, P::MagnifierShape, [](const A& a) { return a.magnifierShape; });
  return state;
}

void applyStyle(Annotation& annotation, const ToolStyle& style) {
  const auto has = [&](StyleProperty property) { return hasProperty(annotation.kind, property); };
  if (has(StyleProperty::Color)) annotation.color = style.color;
  if (has(StyleProperty::LineWidth)) annotation.lineWidth = style.lineWidth;
  if (has(StyleProperty::TextBackground)) annotation.textBackground = style.textBackground;
  if (has(StyleProperty::TextHandwritten)) annotation.textHandwritten = style.textHandwritten;
  if (has(StyleProperty::Sketch)) annotation.sketch = style.sketch;
  if (has(StyleProperty::ShapeFill)) annotation.shapeFill = style.shapeFill;
}

}  // namespace vellora
