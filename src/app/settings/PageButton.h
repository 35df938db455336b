#pragma once

#include <QPushButton>

#include "kit/Paint.h"

namespace vellora {

/// A page's entry in the sidebar of the settings window. One of those with the same parent is checked; the arrow keys
/// move among them.
class PageButton final : public QPushButton {
  Q_OBJECT

 public:
  explicit PageButton(const QString& iconName, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }

 private:
  QString iconName_;
  KeyboardFocus focus_;
};

}  // namespace vellora
