#pragma once

#include "kit/Paint.h"

class QMargins;
class QScreen;

namespace vellora {

/// The ground, edge and shadow of a frameless window. Where the desktop does not blend windows there is no shadow and
/// the corners are square.
class PanelFrame {
 public:
  explicit PanelFrame(const QScreen* screen);

  double radius() const { return radius_; }
  void setRadius(double radius) { radius_ = radius; }

  /// Asks the desktop again; true when the answer is another one and the window has to be laid out anew.
  bool refresh(const QScreen* screen);

  /// What the shadow takes of the window on each side, in points.
  int margin() const;

  /// The panel inside a window of the rectangle `window`.
  QRect panel(const QRect& window) const;

  void paint(QPainter& painter, const QRect& window);

 private:
  bool composited_;
  double radius_;
  PanelShadow shadow_;
};

}  // namespace vellora
