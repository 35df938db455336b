#pragma once

#include <QPushButton>

#include "kit/Paint.h"

namespace vellora {

/// A row of a settings group that is pressed as a whole and leads somewhere else: icon, title, an arrow at the end.
class LinkRow final : public QPushButton {
  Q_OBJECT

 public:
  /// `trailingIcon` says what happens: "link" leaves the program, "chevron.right" stays in it.
  explicit LinkRow(const QString& iconName, const QString& title = {},
                   const QString& trailingIcon = QStringLiteral("link"), QWidget* parent = nullptr);

  /// A quiet text before the arrow, as the address a link goes to.
  void setDetail(const QString& detail);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return {160, sizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }

 private:
  QString iconName_;
  QString trailingIcon_;
  QString detail_;
  KeyboardFocus focus_;
};

}  // namespace vellora
