#pragma once

#include <QList>
#include <QPushButton>
#include <QVariant>

#include "kit/Paint.h"

namespace vellora {

/// A button that shows the choice made and opens a menu of all choices. Space, Return, Down and Up open it; in the menu
/// the arrows move and Return chooses. It shows a choice only once its owner has set it.
class MenuButton final : public QPushButton {
  Q_OBJECT

 public:
  struct Choice {
    QVariant value;
    QString title;
  };

  explicit MenuButton(QWidget* parent = nullptr);

  void setChoices(QList<Choice> choices);
  const QList<Choice>& choices() const { return choices_; }

  /// Shows the choice of `value`; an unknown one shows nothing.
  void setCurrent(const QVariant& value);
  const QVariant& current() const { return current_; }

  /// Opens the menu below the button, with the current choice marked.
  void openMenu();

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return {96, sizeHint().height()}; }

 signals:
  /// The person picked `value`, another one than the current.
  void chosen(const QVariant& value);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }

 private:
  QString currentTitle() const;

  QList<Choice> choices_;
  QVariant current_;
  bool open_ = false;
  KeyboardFocus focus_;
};

}  // namespace vellora
