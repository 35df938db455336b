#pragma once

#include <optional>
#include <set>
#include <span>

#include "editor/Annotation.h"
#include "editor/ToolStyle.h"

namespace vellora {

/// What the controls beside the canvas show and set. An absent value: the selected things differ in it, or have none.
struct StyleState {
  std::optional<ColorComponents> color;
  std::optional<double> lineWidth;
  std::optional<bool> textBackground;
  std::optional<bool> textHandwritten;
  std::optional<bool> sketch;
  std::optional<bool> shapeFill;
  std::optional<BlurStyle> blurStyle;
  std::optional<double> blurStrength;
  std::optional<ColorComponents> eraseFillColor;
  std::optional<double> magnification;
  std::optional<MagnifierShape> magnifierShape;
  /// The kinds the controls are for: those selected, else the tool's own; empty for an idle selection tool.
  std::set<Annotation::Kind> kinds;
  friend bool operator==(const StyleState&, const StyleState&) = default;
};

enum class StyleProperty {
  Color,
  LineWidth,
  TextBackground,
  TextHandwritten,
  Sketch,
  ShapeFill,
  BlurStyle,
  BlurStrength,
  EraseFillColor,
  Magnification,
  MagnifierShape,
};

/// Whether a property means anything for a kind.
bool hasProperty(Annotation::Kind kind, StyleProperty property);

/// What `annotations` have in common.
StyleState commonStyle(std::span<const AnnotationPtr> annotations);

/// Takes over a tool's style, as far as the annotation's kind has its properties.
void applyStyle(Annotation& annotation, const ToolStyle& style);

}  // namespace vellora
