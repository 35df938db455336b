#pragma once

#include <QCheckBox>

#include "kit/Paint.h"

class QVariantAnimation;

namespace vellora {

/// A switch: on or off at once. It does not change by itself: a click, Space or Return asks with toggleRequested(), and
/// the owner answers by setting it, or not. Its name for screen readers is its accessible name.
class Switch final : public QCheckBox {
  Q_OBJECT

 public:
  explicit Switch(QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  void toggleRequested(bool on);

 protected:
  void nextCheckState() override;
  void checkStateSet() override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }

 private:
  QVariantAnimation* slide_;  // owned by this as a child
  double knob_ = 0;           // 0 off to 1 on
  KeyboardFocus focus_;
};

}  // namespace vellora
