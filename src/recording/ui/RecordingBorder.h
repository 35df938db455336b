#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include <QColor>
#include <QElapsedTimer>
#include <QObject>

#include "recording/RecordingPresenter.h"

class QTimer;

namespace vellora {

class PixelWindow;
class WindowHints;

/// The thin frame around what is recorded: four narrow windows, so that nothing lies over the pixels inside, little is
/// painted, and following a window is cheap. It never takes the pointer. While recording it breathes. Main thread.
class RecordingBorder final : public QObject {
  Q_OBJECT

 public:
  using Look = RecordingPresenter::BorderLook;

  /// In points.
  static constexpr double lineWidth = 2;
  /// Of the breath: from full to this and back in that many milliseconds.
  static constexpr double leastOpacity = 0.55;
  static constexpr int breath = 1600;

  /// `hints` may be null.
  explicit RecordingBorder(WindowHints* hints);
  ~RecordingBorder() override;

  /// `frame` in device pixels of the desktop; the line lies inside its edge. `cornerRadius` of that edge in points.
  void show(const PixelRect& frame, double cornerRadius, Look look);

  std::vector<WindowId> windows() const;

  /// How much of the line's color is seen, `milliseconds` after the breathing began.
  static double opacityAt(double milliseconds);

 private:
  class Edge;
  void arrange(const PixelRect& frame, double cornerRadius);
  void setLook(Look look);
  void paint();

  std::array<std::unique_ptr<Edge>, 4> edges_;
  PixelRect frame_;
  double cornerRadius_ = -1;
  std::optional<Look> look_;
  QTimer* breathing_;  // owned by this as a child
  QElapsedTimer breathed_;
};

}  // namespace vellora
