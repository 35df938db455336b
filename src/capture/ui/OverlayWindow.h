#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <QBackingStore>
#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWindow>

#include "base/Bitmap.h"
#include "capture/OverlayInput.h"
#include "capture/ui/OverlayPainter.h"

namespace vellora {

/// The overlay over one display: a bare window outside the window manager's reach that covers it to the pixel. It draws
/// its share of the scene and forwards the pointer; it decides nothing. Only what changes is painted, so that the pages
/// of a large window that nothing is drawn on are never touched.
class OverlayWindow final : public QWindow {
  Q_OBJECT

 public:
  explicit OverlayWindow(const DisplayInfo& display);

  const DisplayInfo& display() const { return display_; }

  /// What lies under everything else. The window is worth showing once it has one.
  enum class Ground {
    None,
    Server,   ///< the display server paints the dimmed picture by itself
    Painted,  ///< this window paints it: the picture, or plain grey while there is none
  };
  void setGround(Ground ground) { ground_ = ground; }
  Ground ground() const { return ground_; }
  /// The display's picture. With the server's ground nothing is drawn until it is there.
  void setStill(Bitmap still);
  bool hasAppeared() const { return drawn_; }

  /// What to show from now on, at once if the window is on screen.
  void setScene(const OverlayScene& scene);
  /// From now on the hint is shown: when the person first comes to this display and when it changes, for a few seconds.
  void enableHints();

 signals:
  /// The window is on screen and painted for the first time.
  void appeared();
  void pointerMoved(vellora::PixelPoint position, Qt::KeyboardModifiers modifiers);
  void pointerPressed(Qt::MouseButton button, vellora::PixelPoint position, Qt::KeyboardModifiers modifiers,
                      int clicks);
  void pointerReleased(Qt::MouseButton button, vellora::PixelPoint position, Qt::KeyboardModifiers modifiers);

 protected:
  void exposeEvent(QExposeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  PixelPoint position(const QMouseEvent& event) const;
  OverlayParts parts() const;
  void refresh();
  void paint(const std::vector<PixelRect>& rects);
  void paintAll();
  void startHint();
  void applyCursor();

  const DisplayInfo display_;
  OverlayPainter painter_;
  QBackingStore store_;
  OverlayScene scene_;
  OverlayParts shown_;
  Ground ground_ = Ground::None;
  bool drawn_ = false;  // something has been painted since the window came up
  bool hintsEnabled_ = false;
  QBasicTimer hintTimer_;
  QElapsedTimer hintAge_;
  double hintOpacity_ = 0;
  std::optional<OverlayCursor> cursor_;
  QElapsedTimer sincePress_;
  PixelPoint lastPress_;
  int clicks_ = 0;
};

}  // namespace vellora
