#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <QTransform>

#include "base/Geometry.h"

namespace vellora {

/// How a document lies on the pixels of a view. Everything but the document is in device pixels, so that "whole pixel"
/// means one of the screen's. The document's point (0, 0) always lies on a whole pixel: at 100 % its pixels are the
/// screen's. What is shown can be moved about, but never quite out of the view.
class CanvasViewport {
 public:
  static constexpr double leastZoom = 0.1;
  static constexpr double mostZoom = 8;

  /// `ratio`: device pixels per point of the view.
  void setView(QSize pixels, double ratio);
  /// The document's rectangle; what cannot be drawn (not finite, empty) counts as a point.
  void setDocument(const Rect& rect);

  const QSize& pixels() const { return pixels_; }
  double ratio() const { return ratio_; }
  const QRectF& document() const { return document_; }
  /// Screen points per document point.
  double zoom() const { return zoom_; }
  /// Device pixels per document point.
  double scale() const { return zoom_ * ratio_; }
  /// From document points to pixels of the view.
  QTransform toView() const { return {scale(), 0, 0, scale(), double(origin_.x()), double(origin_.y())}; }
  QPointF documentAt(QPointF inView) const { return (inView - QPointF(origin_)) / scale(); }
  /// Where the document's point (0, 0) is.
  QPoint origin() const { return origin_; }

  /// The least zoom: 10 %, or what shows the whole of a document that is larger still.
  double lowerLimit() const;
  double clampedZoom(double zoom) const;
  /// The zoom that shows the whole document with some room around it; never above 100 %.
  double fittingZoom() const;
  /// The next of the usual zooms above (`direction` 1) or below (-1); the limit beyond the last.
  double nextZoom(double from, int direction) const;

  /// Zooms (clamped) so that the document point `fixed` comes to lie on `at`.
  void zoomTo(double zoom, QPointF fixed, QPointF at);
  /// Moves what is shown; in pixels.
  void panBy(QPoint distance);
  /// Puts the middle of the document into the middle of the view.
  void center();

 private:
  void place(QPointF origin);

  QSize pixels_{1, 1};
  double ratio_ = 1;
  QRectF document_;
  double zoom_ = 1;
  QPoint origin_;
};

}  // namespace vellora
