#pragma once

#include <optional>
#include <vector>

#include "editor/Annotation.h"
#include "editor/rendering/PixelTarget.h"
#include "editor/rendering/RenderGeometry.h"

namespace vellora {

/// A light line is drawn in two goes, so that the glow of none darkens another.
enum class LensCoat { Glow, Light };

/// A magnifier: a lens that shows what lies around a point enlarged. Lengths in document points. Its lines are drawn
/// from their distance to each pixel, so that every pixel is the same under any clip.
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

  /// The lens itself: glass, rim and shadow.
  Rect body() const;

  void drawShadow(const PixelTarget& target, const QRect& clip, const DeviceMap& map) const;
  /// When the source lies apart: its outline and two lines to it.
  void drawMark(const PixelTarget& target, const QRect& clip, const DeviceMap& map) const;
  /// Draws the glass. `shown` is opaque; its corner lies at the pixel `corner`, and it covers the lens
  /// inside `clip`.
  void drawGlass(const PixelTarget& target, const QRect& clip, const DeviceMap& map, const QImage& shown,
                 QPoint corner) const;
  void drawRim(const PixelTarget& target, const QRect& clip, const DeviceMap& map) const;

 private:
  Lens(const Rect& rect, Point center, double magnification, MagnifierShape shape)
      : rect_(rect),
        sourceCenter_(center),
        magnification_(magnification),
        shape_(shape),
        cornerRadius_(std::min({14.0, rect.size.width / 4, rect.size.height / 4})),
        partX_(2 / rect.size.width),
        partY_(2 / rect.size.height) {
    if (isApart()) connectors_ = connectors();
  }

  /// The lens's outline moved to a centre and made smaller by a factor.
  struct Outline {
    Point center;
    double scale;
  };
  struct Segment {
    Point from;
    Point to;
  };

  Point center() const { return {rect_.minX() + rect_.size.width / 2, rect_.minY() + rect_.size.height / 2}; }
  bool isApart() const;
  /// The distance from the outline to a place relative to the centre, negative inside.
  double distance(double x, double y) const;
  /// How far to both sides of the centre the glass surely is deeper than `depth` below its edge, at a height relative
  /// to the centre; 0: nowhere for certain.
  double innerHalfWidth(double down, double depth) const;
  /// How far to both sides of the centre anything can be nearer to the shape than `reach`; negative: nothing.
  double outerHalfWidth(double down, double reach) const;
  /// How far the shape reaches from its centre in a direction, and the place of the outline that does.
  double support(Point direction) const;
  Point supportPlace(Point direction) const;
  std::vector<Segment> connectors() const;
  /// The pixels along an outline: from `depth` inside it to `reach` outside of it, or of it moved down by `drop`.
  struct Band {
    Outline outline;
    double depth;
    double reach;
    double drop = 0;
  };
  /// Calls action(x, y, across, down) for the pixels of `area` that may lie in a band, with their places relative to
  /// the outline's centre, in its unscaled lengths.
  template <typename Action>
  void forPixelsIn(const Band& band, const QRect& area, const DeviceMap& map, Action&& action) const;
  void drawOutline(const PixelTarget& target, const QRect& clip, const DeviceMap& map, const Outline& outline,
                   double width, LensCoat coat) const;

  Rect rect_;
  Point sourceCenter_;
  double magnification_;
  MagnifierShape shape_;
  double cornerRadius_;
  double partX_;
  double partY_;  ///< parts of the half axes a point makes
  std::vector<Segment> connectors_;
};

}  // namespace vellora
