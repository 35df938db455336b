#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QSize>

namespace vellora {

/// How a picture lies in a view. Everything is in device pixels: at a zoom of 1 the picture's pixels are the screen's,
/// and its corner always lies on a whole one. A picture larger than the view fills it, a smaller one is in its middle.
class ComparisonViewport {
 public:
  static constexpr double mostZoom = 8;

  /// What is in the middle stays there, even through a view that was too small for it; a fitted picture stays fitted.
  void setView(QSize pixels);
  /// Starts at 100 % in the middle.
  void setPicture(QSize size);

  QSize view() const { return view_; }
  QSize picture() const { return picture_; }
  double zoom() const { return zoom_; }
  QPoint origin() const { return origin_; }
  bool isFitting() const { return fitting_; }
  /// The part of the view that shows the picture.
  QRect visible() const;
  /// Whether there is something to be moved into view.
  bool canPan() const;

  /// The zoom that shows the whole picture; never above 100 %.
  double fittingZoom() const;
  double leastZoom() const;
  /// The next of the usual zooms above (`direction` 1) or below (-1), the fitting one among them; the limit beyond the
  /// last.
  double nextZoom(int direction) const;

  /// Zooms (within the limits) so that what is at the pixel `at` stays there.
  void zoomTo(double zoom, QPoint at);
  /// Shows the whole picture, and goes on doing so until the zoom is changed.
  void fit();
  void panBy(QPoint distance);

 private:
  /// Moves the picture there, as far as the limits allow.
  void place(QPointF origin);
  void placeMiddle();

  QSize view_{1, 1};
  QSize picture_;
  double zoom_ = 1;
  QPoint origin_;
  QPointF middle_;  // what of the picture is to be in the middle of the view
  bool fitting_ = false;
};

}  // namespace vellora
