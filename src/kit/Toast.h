#pragma once

#include <QString>

#include "kit/FloatingPanel.h"

class QScreen;
class QTimer;

namespace vellora {

enum class ToastKind { Success, Failure, Info };

/// A short message at the bottom centre of a screen. One at a time: a new one takes the place of the old at once. It
/// never takes the focus, leaves by itself (failures stay longer, and it stays while the pointer is on it) and on a
/// click. Main thread.
class Toast final : public FloatingPanel {
  Q_OBJECT

 public:
  /// Shows `text` beside the icon named `iconName`; an empty name takes the kind's own. A null screen is the primary
  /// one.
  static void show(const QString& iconName, const QString& text, ToastKind kind, QScreen* screen);

  /// From now on toasts appear above this window where they would cover it, for as long as it lives and is shown.
  static void keepClearOf(const QWidget* window);

  /// Takes the toast on screen away at once.
  static void dismiss();

  /// The toast on screen, fading ones included, or nullptr. It deletes itself.
  static Toast* current();

  const QString& text() const { return text_; }
  ToastKind kind() const { return kind_; }

 protected:
  void paintPanel(QPainter& painter, const QRect& panel) override;
  void mousePressEvent(QMouseEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  Toast(QString iconName, QString text, ToastKind kind, QScreen* screen);
  QSize panelSize(int widest) const;
  void place(const QScreen& screen);
  void enter();
  void leave();
  void vanish();

  QString iconName_;
  QString text_;
  ToastKind kind_;
  QTimer* stay_;  // owned by this as a child
  bool leaving_ = false;
};

}  // namespace vellora
