#pragma once

#include <optional>

#include <QPainterPath>

#include "editor/Annotation.h"
#include "editor/rendering/PixelTarget.h"
#include "editor/rendering/RenderGeometry.h"

class QPainter;

namespace vellora {

/// A magnifier: a lens that shows what lies around a point enlarged. Lengths in document points.
class Lens {
 public:
  /// Nothing for a magnifier with impossible numbers.
  static std::optional<Lens> of(const Annotation& annotation);

  const Rect& rect() const { return rect_; }
  /// What is magnified: as large as the lens divided by its magnification.
  Rect source() const;
  /// Everything the lens may colour: shadow, rim, the mark of its source and the lines to it.
  Rect bounds() const;
  /// Moves the source onto the lens, enlarged.
  QTransform magnifying() const;
  QPainterPath shape() const;

  /// Draws what lies below the glass: a soft shadow, and when the source lies apart, its outline and two lines to it.
  /// The painter draws on `target` under the same map; direct drawing keeps inside `clip`.
  void drawBelow(const PixelTarget& target, QPainter& painter, const QRect& clip, const DeviceMap& map) const;
  /// Draws the rim around the glass.
  void drawRim(QPainter& painter) const;

 private:
  Lens(const Rect& rect, Point center, double magnification, MagnifierShape shape)
      : rect_(rect), sourceCenter_(center), magnification_(magnification), shape_(shape) {}

  Point center() const { return {rect_.minX() + rect_.size.width / 2, rect_.minY() + rect_.size.height / 2}; }
  double cornerRadius() const;
  bool isApart() const;
  QPainterPath shapeIn(const Rect& rect, double radius) const;
  /// The distance from the outline to a place relative to the centre, negative inside.
  double distance(double x, double y) const;
  /// How far the shape reaches from its centre in a direction, and the place of the outline that does.
  double support(Point direction) const;
  Point supportPlace(Point direction) const;
  QPainterPath connectors() const;
  /// How far the glass surely reaches to both sides of the centre at a height relative to it; 0 or less: unknown.
  double innerHalfWidth(double down) const;
  void drawShadow(const PixelTarget& target, const QRect& clip, const DeviceMap& map) const;

  Rect rect_;
  Point sourceCenter_;
  double magnification_;
  MagnifierShape shape_;
};

}  // namespace vellora
