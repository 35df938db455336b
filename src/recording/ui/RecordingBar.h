#pragma once

#include <functional>
#include <optional>

#include "recording/RecordingBarModel.h"
#include "recording/ui/OverlayPanel.h"

class QLabel;

namespace vellora {

class Button;
class DeviceButton;
class IconButton;
class LevelMeter;
class StartButton;

/// Where a bar goes beside what is recorded, in points: below it, else above it, else inside at its lower edge.
QRect barPlace(const QSize& bar, const QRect& beside, const QRect& available);

/// The pill with everything about the recording: what goes into it before it begins, its clock and its end afterwards.
/// It shows the model and calls it back. Clicks on it leave the keyboard where it is once the recording runs. Main
/// thread.
class RecordingBar final : public OverlayPanel {
  Q_OBJECT

 public:
  /// The model must live until `detach`. `hints` may be null.
  RecordingBar(RecordingBarModel& model, WindowHints* hints);
  ~RecordingBar() override;

  /// Leaves the model alone from now on.
  void detach();

  /// Moves beside what is recorded, unless a person has put the bar elsewhere. Device pixels of the desktop.
  void placeBeside(const PixelRect& beside, const DisplayInfo& screen);
  /// The countdown's number, for the hint; 0: no countdown.
  void setCountdown(int number);

 signals:
  /// The arrow keys, in device pixels.
  void nudged(int dx, int dy);

 protected:
  void paintPanel(QPainter& painter, const QRect& panel) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void makeControls();
  void refresh();
  void showControls();
  void refreshBeforeStart();
  void refreshRunning();
  void fit();
  void leave();
  bool isBeforeStart() const;

  RecordingBarModel* model_;
  std::optional<RecordingBarModel::Mode> shown_;
  int countdown_ = 0;
  int longestClock_ = 0;  // characters of the clock the bar has room for
  bool isMoved_ = false;  // by a person
  bool isFollowing_ = false;
  QPoint pressedInside_;

  // Owned by Qt.
  QLabel* source_ = nullptr;
  DeviceButton* mic_ = nullptr;
  LevelMeter* meter_ = nullptr;
  IconButton* systemSound_ = nullptr;
  DeviceButton* camera_ = nullptr;
  IconButton* keyboard_ = nullptr;
  StartButton* start_ = nullptr;
  QLabel* hint_ = nullptr;
  Button* cancel_ = nullptr;
  QLabel* clock_ = nullptr;
  IconButton* keys_ = nullptr;
  IconButton* pause_ = nullptr;
  IconButton* stop_ = nullptr;
  IconButton* close_ = nullptr;
};

}  // namespace vellora
