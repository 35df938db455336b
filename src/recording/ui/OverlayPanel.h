#pragma once

#include "kit/FloatingPanel.h"
#include "platform/ScreenCaptureService.h"

namespace vellora {

class WindowHints;

/// A raised panel outside the window manager's reach: above all windows, on every desktop, and without the keyboard
/// until it asks. Its shadow lets the pointer through. Main thread.
class OverlayPanel : public FloatingPanel {
  Q_OBJECT

 public:
  enum class Keyboard { Never, OnRequest };

  /// `hints` may be null.
  OverlayPanel(WindowHints* hints, Keyboard keyboard);

  /// Shows the window; it exists on the desktop when this returns.
  void appear();
  WindowId windowId() const { return static_cast<WindowId>(winId()); }

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void limitInput();

  WindowHints* const hints_;
};

}  // namespace vellora
