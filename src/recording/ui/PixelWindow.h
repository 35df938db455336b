#pragma once

#include <optional>
#include <vector>

#include <QBackingStore>
#include <QWindow>

#include "base/Geometry.h"

class QPainter;

namespace vellora {

class WindowHints;

/// A bare window outside the window manager's reach, above all others, that never takes the keyboard and stands on
/// exact device pixels, at every scale. Main thread.
class PixelWindow : public QWindow {
  Q_OBJECT

 public:
  /// `hints` may be null: the window then takes no pointer at all, and its edges are whole points.
  PixelWindow(WindowHints* hints, const QString& title);

  /// Where it stands on the desktop; a window that is shown moves there.
  void place(const PixelRect& frame);
  const PixelRect& frame() const { return frame_; }
  /// Device pixels per point where it stands.
  double scale() const { return devicePixelRatio(); }
  /// Whether its pixels may be see-through.
  bool isBlended() const { return blended_; }

  /// The parts that are there at all, in device pixels from the frame's corner; nothing: the whole frame.
  void setVisibleParts(std::optional<std::vector<PixelRect>> parts);
  /// The parts that take the pointer; none at first.
  void setInputParts(std::vector<PixelRect> parts);

  /// Brings it up without touching the keyboard.
  void appear();
  /// Paints it anew, now.
  void repaint();

 protected:
  /// Paints everything, in device pixels from the frame's corner. The ground is empty, or undefined where the window is
  /// not blended.
  virtual void paint(QPainter& painter) = 0;

  void exposeEvent(QExposeEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  /// A place of an event, on the desktop in device pixels.
  PixelPoint desktopPosition(QPointF positionInWindow) const;

 private:
  void applyParts();
  PixelPoint inset() const { return {frame_.x - window_.x, frame_.y - window_.y}; }

  WindowHints* const hints_;
  const bool blended_;
  QBackingStore store_;
  PixelRect frame_;
  PixelRect window_;  // what the toolkit makes of it
  std::optional<std::vector<PixelRect>> visibleParts_;
  std::vector<PixelRect> inputParts_;
  std::optional<std::vector<PixelRect>> appliedVisible_;  // in the window, as last told
  std::optional<std::vector<PixelRect>> appliedInput_;
};

}  // namespace vellora
