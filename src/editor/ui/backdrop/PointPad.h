#pragma once

#include <QWidget>

#include "base/Geometry.h"
#include "kit/Paint.h"

namespace vellora {

/// Chooses a place in a plane by dragging a knob; arrow keys go by one hundredth of the plane, with Shift by ten; a
/// double click goes back to the default.
class PointPad final : public QWidget {
  Q_OBJECT

 public:
  /// The plane runs from `first`, its upper left corner, to `last`.
  PointPad(Point first, Point last, Point defaultPlace, const QString& title, QWidget* parent = nullptr);

  void setPlace(Point place);
  Point place() const { return place_; }

  QSize sizeHint() const override { return {120, 76}; }

 signals:
  void placeChanged(vellora::Point place);
  void editingFinished();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  QRectF plane() const;
  QPointF positionOf(Point place) const;
  void choose(Point place);
  void moveTo(const QPointF& position);
  void finish();

  Point first_;
  Point last_;
  Point default_;
  Point place_;
  QString title_;
  bool editing_ = false;
  KeyboardFocus focus_;
};

}  // namespace vellora
