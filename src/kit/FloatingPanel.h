#pragma once

#include <QWidget>

#include "kit/PanelFrame.h"

namespace vellora {

/// A frameless, raised, rounded window with the panels' shadow: bars, badges, toasts. Its layout's contents lie inside
/// the panel; the shadow's room around it is part of the window. Where the desktop does not blend windows it is a
/// square with a line around it.
class FloatingPanel : public QWidget {
  Q_OBJECT

 public:
  explicit FloatingPanel(QWidget* parent = nullptr, Qt::WindowFlags flags = Qt::Tool);

  /// Room between the panel's edge and its contents, in points.
  void setPadding(const QMargins& padding);
  void setRadius(double radius);

  /// The panel itself, without the shadow's room, in the window's coordinates.
  QRect panelRect() const { return frame_.panel(rect()); }

  /// Moves the window so that the panel's top-left corner comes to `position` of the desktop.
  void movePanel(const QPoint& position) { move(position - panelRect().topLeft()); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;

  /// Drawn over the panel's ground, under its children.
  virtual void paintPanel(QPainter& painter, const QRect& panel);

 private:
  void updateMargins();

  QMargins padding_;
  PanelFrame frame_;
};

}  // namespace vellora
