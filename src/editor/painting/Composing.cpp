#include "editor/painting/Composing.h"

#include <QImage>
#include <QPainter>

namespace vellora {

void drawComposed(QPainter& painter, const QRectF& bounds, double opacity, const std::function<void(QPainter&)>& draw) {
  constexpr qint64 mostPixels = 256 << 20;
  const QTransform toDevice = painter.deviceTransform();
  QRectF visible = bounds;
  if (painter.hasClipping()) visible &= painter.clipBoundingRect();
  const double ratio = painter.device()->devicePixelRatioF();
  const QRectF device(QPointF(), QSizeF(painter.device()->width(), painter.device()->height()) *
                                     (painter.device()->devType() == QInternal::Image ? 1 : ratio));
  const QRect area = (toDevice.mapRect(visible) & device).toAlignedRect();
  if (area.isEmpty() || qint64{area.width()} * area.height() > mostPixels) return;

  QImage layer(area.size(), QImage::Format_ARGB32_Premultiplied);
  if (layer.isNull()) return;
  layer.fill(Qt::transparent);
  {
    QPainter parts(&layer);
    parts.setRenderHints(painter.renderHints());
    parts.setTransform(toDevice * QTransform::fromTranslate(-area.x(), -area.y()));
    draw(parts);
  }
  layer.setDevicePixelRatio(ratio);
  painter.resetTransform();
  painter.setOpacity(painter.opacity() * opacity);
  painter.drawImage(QPointF(area.topLeft()) / ratio, layer);
}

}  // namespace vellora
