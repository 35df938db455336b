#include "editor/painting/AnnotationPainter.h"

#include <algorithm>
#include <cmath>

#include <QPainter>
#include <QPainterPath>

#include "editor/painting/Composing.h"
#include "editor/painting/Contrast.h"
#include "editor/painting/CounterNumber.h"
#include "editor/painting/PaintCache.h"
#include "editor/painting/ShapeGeometry.h"
#include "editor/painting/TextBox.h"

namespace vellora {
namespace {

using Kind = Annotation::Kind;

constexpr double boxRadius = 2;
constexpr double groundOpacity = 0.3;

QPointF toQt(Point point) {
  return {point.x, point.y};
}

QRectF toQt(const Rect& rect) {
  return {rect.minX(), rect.minY(), rect.size.width, rect.size.height};
}

QColor toQt(const ColorComponents& color) {
  const auto part = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
  return QColor::fromRgbF(part(color.red), part(color.green), part(color.blue), part(color.alpha));
}

/// Whether parts lie over each other, so that a translucent annotation has to be composed before it is blended.
bool hasParts(const Annotation& annotation) {
  switch (annotation.kind) {
    case Kind::Arrow:
      return !annotation.sketch;
    case Kind::Box:
    case Kind::Ellipse:
      return annotation.shapeFill.value_or(false);
    case Kind::Text:
    case Kind::Counter:
      return true;
    default:
      return false;
  }
}

/// Draws one annotation in one colour.
class Drawing {
 public:
  Drawing(QPainter& painter, const Annotation& annotation, const Measures& measures, const QColor& color)
      : painter_(painter), annotation_(annotation), measures_(measures), color_(color) {}

  void draw(bool hideTextGlyphs) {
    switch (annotation_.kind) {
      case Kind::Arrow:
        annotation_.sketch ? ink() : arrow();
        break;
      case Kind::Box:
      case Kind::Ellipse:
        annotation_.sketch ? ink() : shape();
        break;
      case Kind::Line:
        line();
        break;
      case Kind::Text:
        text(hideTextGlyphs);
        break;
      case Kind::Counter:
        counter();
        break;
      case Kind::Pen:
        ink();
        break;
      case Kind::Blur:
      case Kind::Magnifier:
        break;
    }
  }

 private:
  void fill(const QColor& color) {
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(color);
  }

  /// False when there is nothing to stroke; a pen of width 0 would draw a hairline.
  bool stroke(double width) {
    if (!(width > 0)) return false;
    painter_.setPen(QPen(color_, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.setBrush(Qt::NoBrush);
    return true;
  }

  QColor groundColor() const {
    QColor color = color_;
    color.setAlphaF(static_cast<float>(groundOpacity));
    return color;
  }

  /// What the clip lets through, with a pixel more for smooth edges.
  QRectF visible() const {
    const double scale = std::sqrt(std::abs(painter_.deviceTransform().determinant()));
    const double pixel = scale > 0 ? 1 / scale : 1;
    return painter_.clipBoundingRect().adjusted(-pixel, -pixel, pixel, pixel);
  }

  bool hasGround() const { return annotation_.shapeFill.value_or(false); }

  void ink() {
    const auto ink = PaintCache::ofThisThread().ink(annotation_, measures_);
    if (hasGround() && annotation_.kind != Kind::Pen && !ink->ground.isEmpty()) {
      fill(groundColor());
      painter_.drawPath(ink->ground);
    }
    fill(color_);
    painter_.drawPath(painter_.hasClipping() ? ink->lines.within(visible()) : ink->lines.whole());
  }

  void shape() {
    const QRectF rect = toQt(measures_.rect());
    const auto trace = [&] {
      annotation_.kind == Kind::Box ? painter_.drawRoundedRect(rect, boxRadius, boxRadius) : painter_.drawEllipse(rect);
    };
    if (hasGround()) {
      fill(groundColor());
      trace();
    }
    if (stroke(measures_.lineWidth)) trace();
  }

  void line() {
    if (!stroke(measures_.lineWidth)) return;
    if (measures_.p1 == measures_.p2) {
      painter_.drawPoint(toQt(measures_.p1));  // a line of no length has no caps
    } else {
      painter_.drawLine(toQt(measures_.p1), toQt(measures_.p2));
    }
  }

  void arrow() {
    const ArrowGeometry arrow = arrowGeometry(measures_.p1, measures_.p2, measures_.control, measures_.lineWidth);
    QPainterPath shaft(toQt(arrow.shaftStart));
    shaft.cubicTo(toQt(arrow.shaftControl1), toQt(arrow.shaftControl2), toQt(arrow.shaftEnd));
    stroke(arrow.shaftWidth);
    painter_.drawPath(shaft);

    const QPointF head[] = {toQt(arrow.headTip), toQt(arrow.barb1), toQt(arrow.barb2)};
    stroke(arrow.headOutline);
    painter_.setBrush(color_);
    painter_.drawConvexPolygon(head, 3);
  }

  void text(bool hideGlyphs) {
    if (!annotation_.textBackground && hideGlyphs) return;
    const TextBox box = textBoxOf(annotation_, measures_.lineWidth);
    QColor letters = color_;
    if (annotation_.textBackground) {
      fill(color_);
      painter_.drawRoundedRect(QRectF(toQt(measures_.p1), QSizeF(box.size.width, box.size.height)), box.cornerRadius,
                               box.cornerRadius);
      letters = toQt(readableOn(annotation_.color));
    }
    if (hideGlyphs) return;
    box.text->draw(painter_, {measures_.p1.x + box.padding.width, measures_.p1.y + box.padding.height}, letters);
  }

  void counter() {
    const CounterGeometry badge = counterGeometry(measures_.p1, measures_.lineWidth, measures_.tailAngle);
    fill(color_);
    painter_.drawEllipse(toQt(measures_.p1), badge.radius, badge.radius);
    const QPointF tail[] = {toQt(badge.tailStart), toQt(badge.tailTip), toQt(badge.tailEnd)};
    painter_.drawConvexPolygon(tail, 3);
    drawCounterNumber(painter_, annotation_.number, measures_.p1, badge.radius, toQt(numberColor(annotation_.color)));
  }

  QPainter& painter_;
  const Annotation& annotation_;
  const Measures& measures_;
  const QColor color_;
};

}  // namespace

void AnnotationPainter::draw(QPainter& painter, const Annotation& annotation, bool hideTextGlyphs) const {
  const auto measures = measuresOf(annotation);
  if (!measures) return;
  QColor color = toQt(annotation.color);
  if (color.alpha() == 0) return;

  painter.save();
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  if (color.alpha() < 255 && hasParts(annotation)) {
    const double opacity = color.alphaF();
    color.setAlpha(255);
    drawComposed(painter, toQt(paintedBounds(annotation)), opacity,
                 [&](QPainter& layer) { Drawing(layer, annotation, *measures, color).draw(hideTextGlyphs); });
  } else {
    Drawing(painter, annotation, *measures, color).draw(hideTextGlyphs);
  }
  painter.restore();
}

}  // namespace vellora
