#pragma once

#include <QImage>
#include <QPainter>

#include "editor/rendering/PixelDrawing.h"

namespace vellora {

/// An image being drawn on in document coordinates, both by a painter and pixel by pixel.
class Surface {
 public:
  /// `toDevice` scales and moves only. The image stays with the caller and is not copied meanwhile.
  Surface(QImage& image, const QTransform& toDevice, Enlarging enlarging = Enlarging::Crisp)
      : image_(image), target_(image), toDevice_(toDevice), map_(toDevice), enlarging_(enlarging) {}

  const PixelTarget& target() const { return target_; }
  const QTransform& toDevice() const { return toDevice_; }
  const DeviceMap& map() const { return map_; }
  Enlarging enlarging() const { return enlarging_; }

  /// The painter, with document points as coordinates, antialiasing, and `clip` in pixels.
  QPainter& painter(const QRect& clip) {
    if (!painter_.isActive()) painter_.begin(&image_);
    painter_.resetTransform();
    painter_.setClipRect(clip);
    painter_.setTransform(toDevice_);
    painter_.setRenderHint(QPainter::Antialiasing);
    return painter_;
  }

  /// Fills `shape` (in document points) with `picture`, whose corner lies at the pixel `corner`.
  void fillWithPicture(const QPainterPath& shape, const QImage& picture, QPoint corner, const QRect& clip) {
    QPainter& to = painter(clip);
    to.resetTransform();
    to.setBrushOrigin(corner);
    to.fillPath(toDevice_.map(shape), QBrush(picture));
  }

 private:
  QImage& image_;
  PixelTarget target_;
  QTransform toDevice_;
  DeviceMap map_;
  Enlarging enlarging_;
  QPainter painter_;
};

}  // namespace vellora
