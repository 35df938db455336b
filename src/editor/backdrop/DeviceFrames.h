#pragma once

#include <QPainterPath>
#include <QRectF>

#include "editor/BackdropSettings.h"

class QPainter;

namespace vellora {

/// What a device frame adds around a content, in points.
struct FrameInsets {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
};

/// The insets of a frame around a content of `size`: they grow with it, so that a frame keeps its proportions.
FrameInsets frameInsets(DeviceFrame frame, Size size);

/// One device frame around one content: its shapes, and how it is painted. All in the content's coordinates.
class DeviceFramePainter {
 public:
  /// `radius` is the corner radius the person chose; only windows take it, devices have their own.
  DeviceFramePainter(DeviceFrame frame, const QRectF& content, double radius);

  /// The outline of the whole device, which casts the shadow.
  QPainterPath silhouette() const;
  /// What shows of the content.
  QPainterPath screen() const;
  /// The device, its screen off.
  void paint(QPainter& painter) const;
  /// What stands over the content.
  void paintOver(QPainter& painter) const;

 private:
  void paintBrowser(QPainter& painter) const;
  void paintLaptop(QPainter& painter) const;
  void paintPhone(QPainter& painter) const;
  /// A laptop's half with the screen and its half with the keys.
  QRectF lid() const;
  QRectF deck() const;
  /// A phone without its keys, and the hole of its camera.
  QRectF slab() const;
  QRectF camera() const;
  QPainterPath phoneKeys() const;

  DeviceFrame frame_;
  bool dark_;
  QRectF content_;
  double unit_;  ///< what every measure is a multiple of
  double radius_;
};

}  // namespace vellora
