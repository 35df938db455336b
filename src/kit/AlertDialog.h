#pragma once

#include <functional>

#include <QDialog>
#include <QStringList>

#include "kit/PanelFrame.h"

namespace vellora {

class Button;

/// What an alert says and offers.
struct Alert {
  QString title;
  QString body;
  QStringList buttons;       ///< in order of importance; the first is the default
  bool destructive = false;  ///< the first button loses something: it is red, and the second one has the focus
  QString iconName = {};     ///< the program's own when empty
};

/// A modal question or message. Return presses the default button, or the one that has the focus; Escape and closing
/// the window answer AlertDialog::cancelled. Main thread.
class AlertDialog final : public QDialog {
  Q_OBJECT

 public:
  static constexpr int cancelled = -1;

  /// Asks and waits in an event loop of its own: the index of the button pressed, or `cancelled`. Stands over `parent`,
  /// else in the middle of the screen with the pointer.
  static int run(const Alert& alert, QWidget* parent = nullptr);

  /// Asks and returns at once; `callback` gets the answer. The dialog deletes itself; if it is destroyed unanswered,
  /// nobody is called.
  static AlertDialog* show(const Alert& alert, std::function<void(int)> callback, QWidget* parent = nullptr);

  const QList<Button*>& buttons() const { return buttons_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void reject() override { done(cancelled); }

 private:
  AlertDialog(const Alert& alert, QWidget* parent);
  void updateMargins();
  void place();

  PanelFrame frame_;
  QList<Button*> buttons_;  // owned by Qt
};

}  // namespace vellora
