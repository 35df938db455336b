#pragma once

#include <QColor>
#include <QPainterPath>
#include <QPixmap>
#include <QRectF>

class QFocusEvent;
class QPainter;
class QWidget;

/// The few shapes every control is made of.
namespace vellora {

/// `rect` moved to whole device pixels of the painter, so that edges stay sharp at 125 % or 150 %.
QRectF snapped(const QPainter& painter, const QRectF& rect);

/// The width in points of a line that is meant to be `width` points wide and covers whole device pixels, at least one.
double hairline(const QPainter& painter, double width = 1.0);

/// Draws a hairline whose upper edge is at `y`.
void drawHorizontalLine(QPainter& painter, double left, double right, double y, const QColor& color);

/// Fills a rounded rectangle.
void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& color);

/// Draws a border of `width` points (at least one device pixel, a whole number of them) inside `rect`.
void strokeRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& color, double width = 1.0);

/// The 2 pt accent ring around a control whose edge is `rect`.
void drawFocusRing(QPainter& painter, const QRectF& rect, double radius);

/// The shadow of a floating panel: a picture to be stretched around it.
class PanelShadow {
 public:
  /// What the shadow needs around the panel, in points.
  static int margin();
  /// Draws the shadow of a panel that covers `panel`.
  void paint(QPainter& painter, const QRectF& panel, double radius);

 private:
  QPixmap tile_;
  double radius_ = -1;
};

/// Whether a control shows its focus ring: when it got the focus from the keyboard.
class KeyboardFocus {
 public:
  void focusIn(const QFocusEvent& event);
  void focusOut() { visible_ = false; }
  bool visible() const { return visible_; }

 private:
  bool visible_ = false;
};

/// Repaints `widget` whenever the theme changes.
void repaintOnThemeChange(QWidget& widget);

}  // namespace vellora
