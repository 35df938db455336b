#include <algorithm>
#include <cmath>
#include <numbers>
#include <ranges>

#include "editor/canvas/CanvasModelPrivate.h"

namespace vellora {

namespace {

using Kind = Annotation::Kind;
using Property = StyleProperty;

/// Down and to the left: a new counter points at what it stands beside, like a pin.
constexpr double usualTailAngle = 0.75 * std::numbers::pi;

bool isColor(const ColorComponents& color) {
  const auto isPart = [](double part) { return part >= 0 && part <= 1; };
  return isPart(color.red) && isPart(color.green) && isPart(color.blue) && isPart(color.alpha);
}

double lastTailAngle(const ImageDocument& document) {
  for (const AnnotationPtr& annotation : std::views::reverse(document.annotations)) {
    if (annotation->kind == Kind::Counter && std::isfinite(annotation->tailAngle)) return annotation->tailAngle;
  }
  return usualTailAngle;
}

}  // namespace

/// What the kind's tool would draw, without a place and an identity.
Annotation CanvasModel::Private::prototype(Kind kind) const {
  Annotation annotation;
  annotation.kind = kind;
  applyStyle(annotation, services.styles.resolvedStyle(toolOf(kind)));
  if (kind == Kind::Blur) {
    annotation.blurStyle = services.settings.blurStyle();
    annotation.blurStrength = services.settings.blurStrength();
    annotation.eraseFillColor = services.settings.eraseFillColor();
  }
  if (kind == Kind::Magnifier) {
    annotation.magnification = services.settings.magnification();
    annotation.magnifierShape = services.settings.magnifierShape();
  }
  return annotation;
}

Annotation CanvasModel::Private::newAnnotation(Kind kind) {
  Annotation annotation = prototype(kind);
  annotation.id = newAnnotationId();
  annotation.sketchSeed = random();
  if (kind == Kind::Counter) {
    annotation.number = nextCounterNumber(document());
    annotation.tailAngle = lastTailAngle(document());
  }
  return annotation;
}

StyleState CanvasModel::Private::style() const {
  if (!selection.empty()) return commonStyle(annotationsOf(document(), selection));
  const auto kind = drawnKind(tool);
  if (!kind) return {};
  const AnnotationPtr drawn = makeAnnotation(prototype(*kind));
  return commonStyle({&drawn, 1});
}

void CanvasModel::Private::restyle(Property property, const std::function<void(Annotation&)>& change,
                                   const std::function<void(ToolStyle&)>& remember, const std::string& coalescingKey) {
  if (gesture) settle();
  std::set<Tool> tools;
  if (tool != Tool::Select) tools.insert(tool);
  for (const AnnotationPtr& annotation : annotationsOf(document(), selection)) tools.insert(toolOf(annotation->kind));
  for (const Tool styled : tools) {
    if (!remember || !hasProperty(*drawnKind(styled), property)) continue;
    ToolStyle style = services.styles.resolvedStyle(styled);
    remember(style);
    services.styles.set(style, styled);
  }

  const std::string run =
      coalescingKey.empty() ? std::string() : std::to_string(static_cast<int>(property)) + ' ' + coalescingKey;
  if (typing) {
    if (hasProperty(Kind::Text, property)) typing->restyle(change, run);
    showTyping();
    return;
  }
  ImageDocument next = document();
  for (AnnotationPtr& annotation : next.annotations) {
    if (!selection.contains(annotation->id) || !hasProperty(annotation->kind, property)) continue;
    Annotation changedAnnotation = *annotation;
    change(changedAnnotation);
    annotation = makeAnnotation(std::move(changedAnnotation));
  }
  commit(std::move(next), run);
}

Tool CanvasModel::tool() const {
  return d_->tool;
}

bool CanvasModel::isToolLocked() const {
  return d_->locked;
}

void CanvasModel::setTool(Tool tool, bool locked) {
  const Private::Call call(*d_);
  d_->settle();
  const bool isOther = tool != d_->tool;
  d_->tool = tool;
  d_->locked = locked && tool != Tool::Select;
  d_->cropped.reset();
  d_->hovered.reset();
  // The style controls are for what will be drawn.
  if (isOther && tool != Tool::Select) d_->setSelection({});
}

StyleState CanvasModel::style() const {
  return d_->style();
}

void CanvasModel::setColor(const ColorComponents& color, const std::string& coalescingKey) {
  if (!isColor(color)) return;
  const Private::Call call(*d_);
  d_->restyle(
      Property::Color, [&](Annotation& a) { a.color = color; }, [&](ToolStyle& s) { s.color = color; }, coalescingKey);
}

void CanvasModel::setLineWidth(double width, const std::string& coalescingKey) {
  if (!std::isfinite(width)) return;
  const double usable = std::clamp(width, minimumLineWidth, maximumLineWidth);
  const Private::Call call(*d_);
  d_->restyle(
      Property::LineWidth, [&](Annotation& a) { a.lineWidth = usable; }, [&](ToolStyle& s) { s.lineWidth = usable; },
      coalescingKey);
}

void CanvasModel::setTextBackground(bool on) {
  const Private::Call call(*d_);
  d_->restyle(
      Property::TextBackground, [&](Annotation& a) { a.textBackground = on; },
      [&](ToolStyle& s) { s.textBackground = on; }, {});
}

void CanvasModel::setTextHandwritten(bool on) {
  const Private::Call call(*d_);
  d_->restyle(
      Property::TextHandwritten, [&](Annotation& a) { a.textHandwritten = on; },
      [&](ToolStyle& s) { s.textHandwritten = on; }, {});
}

void CanvasModel::setSketch(bool on) {
  const Private::Call call(*d_);
  d_->restyle(
      Property::Sketch, [&](Annotation& a) { a.sketch = on; }, [&](ToolStyle& s) { s.sketch = on; }, {});
}

void CanvasModel::setShapeFill(bool on) {
  const Private::Call call(*d_);
  d_->restyle(
      Property::ShapeFill, [&](Annotation& a) { a.shapeFill = on; }, [&](ToolStyle& s) { s.shapeFill = on; }, {});
}

void CanvasModel::setBlurStyle(BlurStyle style) {
  const Private::Call call(*d_);
  d_->services.settings.setBlurStyle(style);
  d_->restyle(Property::BlurStyle, [&](Annotation& a) { a.blurStyle = style; }, {}, {});
}

void CanvasModel::setBlurStrength(double strength, const std::string& coalescingKey) {
  if (!std::isfinite(strength)) return;
  const double usable = std::clamp(strength, 0.0, 1.0);
  const Private::Call call(*d_);
  d_->services.settings.setBlurStrength(usable);
  d_->restyle(
      Property::BlurStrength, [&](Annotation& a) { a.blurStrength = usable; }, {}, coalescingKey);
}

void CanvasModel::setEraseFillColor(const std::optional<ColorComponents>& color, const std::string& coalescingKey) {
  if (color && !isColor(*color)) return;
  const Private::Call call(*d_);
  d_->services.settings.setEraseFillColor(color);
  d_->restyle(
      Property::EraseFillColor, [&](Annotation& a) { a.eraseFillColor = color; }, {}, coalescingKey);
}

void CanvasModel::setMagnification(double magnification, const std::string& coalescingKey) {
  if (!std::isfinite(magnification)) return;
  const double usable =
      std::clamp(magnification, EditorSettings::minimumMagnification, EditorSettings::maximumMagnification);
  const Private::Call call(*d_);
  d_->services.settings.setMagnification(usable);
  d_->restyle(
      Property::Magnification, [&](Annotation& a) { a.magnification = usable; }, {}, coalescingKey);
}

void CanvasModel::setMagnifierShape(MagnifierShape shape) {
  const Private::Call call(*d_);
  d_->services.settings.setMagnifierShape(shape);
  d_->restyle(Property::MagnifierShape, [&](Annotation& a) { a.magnifierShape = shape; }, {}, {});
}

void CanvasModel::setBackdrop(const BackdropSettings& backdrop, const std::string& coalescingKey) {
  const Private::Call call(*d_);
  d_->settle();
  ImageDocument next = document();
  next.backdrop = backdrop;
  d_->commit(std::move(next), coalescingKey.empty() ? std::string() : "backdrop " + coalescingKey);
}

}  // namespace vellora
