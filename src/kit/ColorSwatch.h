#pragma once

#include <QAbstractButton>

#include "kit/Paint.h"

namespace vellora {

/// A round spot of a colour that chooses it; checked ones wear a ring. Without a colour it is an empty place with a
/// plus.
class ColorSwatch final : public QAbstractButton {
  Q_OBJECT

 public:
  ColorSwatch(const QColor& color, const QString& title, QWidget* parent = nullptr);

  /// An invalid colour makes it an empty place.
  void setColor(const QColor& color);
  const QColor& color() const { return color_; }
  /// Tooltip and accessible name.
  void setTitle(const QString& title, const QString& shortcut = {});

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }

 private:
  QColor color_;
  KeyboardFocus focus_;
};

/// Draws a colour as a round spot of `diameter`, over a chequered ground where it is see-through, with an edge where it
/// would not stand out from the theme's surface.
void paintColorSpot(QPainter& painter, const QPointF& center, double diameter, const QColor& color);

/// Fills `rect` with the chequers that stand for transparency.
void paintChequers(QPainter& painter, const QRectF& rect, double side);

}  // namespace vellora
