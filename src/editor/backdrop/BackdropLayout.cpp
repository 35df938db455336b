#include "editor/backdrop/BackdropLayout.h"

#include <algorithm>
#include <cmath>

#include <QPolygonF>

#include "editor/backdrop/DeviceFrames.h"

namespace vellora {
namespace {

double radians(double degrees) {
  return degrees * M_PI / 180;
}

bool isFinite(const Rect& rect) {
  return std::isfinite(rect.maxX()) && std::isfinite(rect.maxY()) && std::isfinite(rect.size.width) &&
         std::isfinite(rect.size.height);
}

Rect framedRect(const Rect& content, const BackdropSettings& settings) {
  if (!settings.deviceFrame) return content;
  const FrameInsets insets = frameInsets(*settings.deviceFrame, content.size);
  return {{content.minX() - insets.left, content.minY() - insets.top},
          {content.size.width + insets.left + insets.right, content.size.height + insets.top + insets.bottom}};
}

/// Turns a plane of the size `extent` in its own plane, then about the vertical and the horizontal axis, seen from a
/// distance of twice its longer side. About the origin.
QTransform turned(const BackdropSettings& settings, Size extent) {
  QTransform rotation;
  rotation.rotate(settings.rotation);
  const double distance = 2 * std::max(extent.width, extent.height);
  const double cosX = std::cos(radians(settings.tiltX));
  const double sinX = std::sin(radians(settings.tiltX));
  const double cosY = std::cos(radians(settings.tiltY));
  const double sinY = std::sin(radians(settings.tiltY));
  // The columns are x, y and depth / distance after both turns.
  const QTransform tilt(cosX, -sinX * sinY, sinX * cosY / distance, 0, cosY, sinY / distance, 0, 0, 1);
  return rotation * tilt;
}

QTransform placementOf(const BackdropSettings& settings, const Rect& framed, const Rect& document) {
  const QPointF center(framed.origin.x + framed.size.width / 2, framed.origin.y + framed.size.height / 2);
  QTransform result = QTransform::fromTranslate(-center.x(), -center.y());
  if (settings.rotation != 0 || settings.tiltX != 0 || settings.tiltY != 0) {
    result *= turned(settings, framed.size);
    const QRectF extent(framed.origin.x, framed.origin.y, framed.size.width, framed.size.height);
    const QRectF seen = result.map(QPolygonF(extent)).boundingRect();
    // Turned content shrinks where it would leave the backdrop, and stays in its middle.
    const double margin = std::max(framed.size.width, framed.size.height) * settings.insetFraction / 2;
    const double fit = std::min({1.0, std::max(document.size.width - 2 * margin, 1.0) / seen.width(),
                                 std::max(document.size.height - 2 * margin, 1.0) / seen.height()});
    result *= QTransform::fromTranslate(-seen.center().x(), -seen.center().y()) * QTransform::fromScale(fit, fit);
  }
  result *= QTransform::fromScale(settings.contentScale, settings.contentScale);
  result *= QTransform::fromTranslate(center.x() + settings.contentOffset.x * document.size.width,
                                      center.y() + settings.contentOffset.y * document.size.height);
  return result;
}

}  // namespace

BackdropLayout backdropLayout(const ImageDocument& document) {
  BackdropLayout layout;
  layout.content = document.contentRect();
  layout.framed = layout.document = layout.content;
  if (!document.backdrop.enabled || layout.content.isEmpty() || !isFinite(layout.content)) return layout;
  const BackdropSettings settings = document.backdrop.clamped();
  layout.framed = framedRect(layout.content, settings);
  const Size size = settings.documentSize(layout.framed.size);
  layout.document = {{layout.framed.origin.x + (layout.framed.size.width - size.width) / 2,
                      layout.framed.origin.y + (layout.framed.size.height - size.height) / 2},
                     size};
  const bool turnedOrMoved = settings.rotation != 0 || settings.tiltX != 0 || settings.tiltY != 0 ||
                             settings.contentScale != 1 || settings.contentOffset != Point{};
  if (turnedOrMoved) {
    layout.placement = placementOf(settings, layout.framed, layout.document);
    layout.isFlat = false;
  }
  return layout;
}

}  // namespace vellora
