#pragma once

#include <QPushButton>

#include "kit/Paint.h"

namespace vellora {

/// A push button with the kit's look. Space presses it, Return too where it has the focus or is a dialog's default.
class Button : public QPushButton {
  Q_OBJECT

 public:
  enum class Role {
    Primary,      ///< the one thing to do here
    Secondary,    ///< everything else
    Destructive,  ///< the one thing to do here, and something is lost
    Quiet,        ///< no ground until the pointer comes
  };

  explicit Button(Role role, const QString& text = {}, QWidget* parent = nullptr);

  void setRole(Role role);
  /// An icon before the text, in the text's colour; an empty name for none.
  void setIconName(const QString& name);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }

 private:
  Role role_;
  QString iconName_;
  KeyboardFocus focus_;
};

class PrimaryButton final : public Button {
  Q_OBJECT
 public:
  explicit PrimaryButton(const QString& text = {}, QWidget* parent = nullptr) : Button(Role::Primary, text, parent) {}
};

class SecondaryButton final : public Button {
  Q_OBJECT
 public:
  explicit SecondaryButton(const QString& text = {}, QWidget* parent = nullptr)
      : Button(Role::Secondary, text, parent) {}
};

/// A square button that shows an icon only, for bars and rows: its title is its tooltip and accessible name. Checkable
/// ones are filled while they are on.
class IconButton final : public QPushButton {
  Q_OBJECT

 public:
  /// `title` is what a screen reader says; `shortcut` ("Ctrl+C") is added to the tooltip, empty for none.
  IconButton(const QString& iconName, const QString& title, const QString& shortcut = {}, QWidget* parent = nullptr);

  void setIconName(const QString& name);
  void setTitle(const QString& title, const QString& shortcut = {});
  /// Side of the icon in points; the button leaves 6 around it and is never smaller than the least hit area.
  void setIconSide(int points);
  /// A colour other than the text's, as red for recording; an invalid one goes back.
  void setIconColor(const QColor& color);
  /// A small dot in the upper corner that tells of a state; an invalid colour for none.
  void setDot(const QColor& color);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }

 private:
  QString iconName_;
  int iconSide_;
  QColor iconColor_;
  QColor dotColor_;
  KeyboardFocus focus_;
};

}  // namespace vellora
