#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>

#include "kit/Theme.h"

/// Input for widgets that are not on a real screen.
namespace vellora::test {

/// Presses and releases a key in the widget that has the focus of `window`. The press may end both.
inline void type(QWidget& window, int key, Qt::KeyboardModifiers modifiers = {}) {
  const QPointer<QWidget> target = window.focusWidget() != nullptr ? window.focusWidget() : &window;
  for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
    if (target.isNull()) return;
    QKeyEvent event(kind, key, modifiers);
    QApplication::sendEvent(target, &event);
    QApplication::processEvents();
  }
}

inline void click(QWidget& widget, QPoint position = {}) {
  if (position.isNull()) position = widget.rect().center();
  for (const auto kind : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(kind, position, widget.mapToGlobal(position), Qt::LeftButton,
                      kind == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, {});
    QApplication::sendEvent(&widget, &event);
  }
}

/// Runs the event loop until `done`, for at most five seconds; true when it came to be.
template <class Condition>
bool runUntil(Condition done) {
  QElapsedTimer timer;
  timer.start();
  while (!done() && timer.elapsed() < 5000) {
    QApplication::processEvents(QEventLoop::AllEvents, 20);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // outside exec() they wait for ever
  }
  return done();
}

/// The theme as a test needs it, given back afterwards.
class ThemeForTest {
 public:
  explicit ThemeForTest(Appearance appearance = Appearance::Light) {
    Theme::shared().setAppearanceOverride(appearance);
    Theme::shared().setReducedMotion(true);
  }
  ~ThemeForTest() {
    Theme::shared().setAppearanceOverride(std::nullopt);
    Theme::shared().setDesktopAppearance(std::nullopt);
    Theme::shared().setReducedMotion(std::nullopt);
  }
};

}  // namespace vellora::test
