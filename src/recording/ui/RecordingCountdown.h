#pragma once

#include <QWidget>

#include "platform/ScreenCaptureService.h"

class QVariantAnimation;

namespace vellora {

class WindowHints;

/// The seconds left before a recording begins: one large figure in a dimmed circle. Clicks go through it. Main thread.
class RecordingCountdown final : public QWidget {
  Q_OBJECT

 public:
  static constexpr int diameter = 148;
  /// Of the change to the next figure, in milliseconds.
  static constexpr int changeTime = 200;

  RecordingCountdown();

  /// Shows the figure in the middle of `over`, which is device pixels of the desktop.
  void showNumber(int number, const PixelRect& over, const DisplayInfo& screen);
  int number() const { return number_; }
  WindowId windowId() const { return static_cast<WindowId>(winId()); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int number_ = 0;
  int before_ = 0;       // the figure that goes
  double progress_ = 1;  // of the change, 0 to 1
  bool blended_ = true;
  QVariantAnimation* change_;  // owned by this as a child
};

}  // namespace vellora
