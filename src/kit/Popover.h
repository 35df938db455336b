#pragma once

#include "kit/FloatingPanel.h"

namespace vellora {

/// A small panel that opens beside a control and goes on a click outside, on Escape, or when another one opens. It
/// deletes itself once closed. Put its contents into a layout of its own.
class Popover final : public FloatingPanel {
  Q_OBJECT

 public:
  /// `name` is what a screen reader says; `owner` is the control it belongs to.
  Popover(const QString& name, QWidget* owner);

  /// Shows the panel below its owner, above where there is no room, and gives the focus to its first control.
  void open();

 signals:
  void closed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QWidget* owner_;
};

}  // namespace vellora
