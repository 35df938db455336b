#pragma once

#include <QImage>
#include <QWidget>

#include "capture/CapturedImage.h"

namespace vellora {

/// A picture that can be zoomed and moved about: the wheel zooms at the pointer, dragging moves, a double click changes
/// between the whole picture and its own size. At 100 % every pixel of the picture is a pixel of the screen when both
/// have one scale.
class PictureView final : public QWidget {
  Q_OBJECT

 public:
  explicit PictureView(CapturedImage picture, QWidget* parent = nullptr);

  /// In points, at 100 %.
  QSizeF pictureSize() const { return pictureSize_; }
  /// Screen points per point of the picture.
  double zoom() const { return zoom_; }
  /// The whole picture, never enlarged; stays so while the window changes its size.
  void zoomToFit();
  /// Zooms so that the point of the picture under `anchor` stays there.
  void zoomTo(double zoom, QPointF anchor);
  void zoomBy(double factor) { zoomTo(zoom_ * factor, QRectF(rect()).center()); }

  QSize sizeHint() const override { return pictureSize_.toSize(); }
  static constexpr double leastZoom = 0.05;
  static constexpr double mostZoom = 32;

 signals:
  void zoomChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  double fittingZoom() const;
  void place(QPointF origin);
  void setZoom(double zoom);

  const CapturedImage picture_;
  const QImage image_;
  const QSizeF pictureSize_;
  double zoom_ = 1;
  QPointF origin_;  // the picture's corner in the view
  bool fitting_ = true;
  QPointF grabbed_;
};

}  // namespace vellora
