#include "capture/ui/PictureView.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "capture/ui/OverlayPainter.h"
#include "kit/Paint.h"
#include "kit/Theme.h"

namespace vellora {
namespace {

constexpr double notch = 120;  // one step of a wheel, in eighths of a degree
constexpr double zoomPerNotch = 1.2;
constexpr double pixelatedFrom = 2;  // from this zoom on pixels are shown as squares

}  // namespace

PictureView::PictureView(CapturedImage picture, QWidget* parent)
    : QWidget(parent),
      picture_(std::move(picture)),
      image_(sharedImage(picture_.image)),
      pictureSize_(QSizeF(image_.size()) / picture_.scale) {
  setMinimumSize(160, 90);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  //% "Captured picture"
  setAccessibleName(qtTrId("picture.view"));
  repaintOnThemeChange(*this);
}

double PictureView::fittingZoom() const {
  if (pictureSize_.isEmpty() || size().isEmpty()) return 1;
  return std::clamp(std::min(width() / pictureSize_.width(), height() / pictureSize_.height()), leastZoom, 1.0);
}

void PictureView::zoomToFit() {
  fitting_ = true;
  setZoom(fittingZoom());
  place({});
}

void PictureView::zoomTo(double zoom, QPointF anchor) {
  const double next = std::clamp(zoom, leastZoom, mostZoom);
  const QPointF origin = anchor - (anchor - origin_) * (next / zoom_);
  fitting_ = false;
  setZoom(next);
  place(origin);
}

void PictureView::setZoom(double zoom) {
  if (zoom == zoom_) return;
  zoom_ = zoom;
  emit zoomChanged();
}

/// Keeps the picture in view: in the middle along a side it does not fill, else without a gap. Whole device pixels keep
/// it sharp.
void PictureView::place(QPointF origin) {
  const auto along = [](double at, double length, double room) {
    return length <= room ? (room - length) / 2 : std::clamp(at, room - length, 0.0);
  };
  const double ratio = devicePixelRatioF();
  const double x = along(origin.x(), pictureSize_.width() * zoom_, width());
  const double y = along(origin.y(), pictureSize_.height() * zoom_, height());
  origin_ = {std::round(x * ratio) / ratio, std::round(y * ratio) / ratio};
  const bool movable = pictureSize_.width() * zoom_ > width() || pictureSize_.height() * zoom_ > height();
  setCursor(movable ? Qt::OpenHandCursor : Qt::ArrowCursor);
  update();
}

void PictureView::resizeEvent(QResizeEvent*) {
  if (fitting_) {
    zoomToFit();
  } else {
    place(origin_);
  }
}

void PictureView::wheelEvent(QWheelEvent* event) {
  zoomTo(zoom_ * std::pow(zoomPerNotch, event->angleDelta().y() / notch), event->position());
  event->accept();
}

void PictureView::mousePressEvent(QMouseEvent* event) {
  grabbed_ = event->position() - origin_;
  if (cursor().shape() == Qt::OpenHandCursor) setCursor(Qt::ClosedHandCursor);
}

void PictureView::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons() == Qt::NoButton) return;
  place(event->position() - grabbed_);
  if (cursor().shape() == Qt::OpenHandCursor) setCursor(Qt::ClosedHandCursor);
}

void PictureView::mouseReleaseEvent(QMouseEvent*) {
  place(origin_);
}

void PictureView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (fitting_ && zoom_ < 1) {
    zoomTo(1, event->position());
  } else {
    zoomToFit();
  }
}

void PictureView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.fillRect(event->rect(), Theme::shared().palette().sunken);
  if (image_.isNull()) return;
  const double pixelZoom = zoom_ / picture_.scale * devicePixelRatioF();
  painter.setRenderHint(QPainter::SmoothPixmapTransform, pixelZoom < pixelatedFrom && pixelZoom != 1);
  painter.drawImage(QRectF(origin_, pictureSize_ * zoom_), image_);
}

}  // namespace vellora
