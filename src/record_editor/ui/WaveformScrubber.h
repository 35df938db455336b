#pragma once

#include <vector>

#include <QAbstractSlider>

#include "kit/Paint.h"

namespace vellora {

/// The way through a movie: its loudness as a shape, the part that has been seen in color, a playhead to drag. Arrow
/// keys go by one second, with Shift by five; Home and End go to the ends. The inherited value is in milliseconds.
class WaveformScrubber final : public QAbstractSlider {
  Q_OBJECT

 public:
  explicit WaveformScrubber(QWidget* parent = nullptr);

  void setDuration(double seconds);
  /// Shows a place; tells nobody.
  void setPosition(double seconds);
  /// Levels from 0 to 1, evenly over the duration; none for a plain track.
  void setLevels(std::vector<float> levels);
  /// Places that are marked, in seconds.
  void setMarks(std::vector<double> marks);

  QSize sizeHint() const override { return {320, 40}; }
  QSize minimumSizeHint() const override { return {120, 40}; }

 signals:
  /// The person chose a place, in seconds; while dragging with every movement.
  void sought(double seconds);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void sliderChange(SliderChange change) override;

 private:
  QRectF track() const;
  double placeOf(double seconds) const;
  double secondsAt(double x) const;
  void choose(double seconds);
  void measureColumns();

  double duration_ = 0;
  double position_ = 0;
  std::vector<float> levels_;
  std::vector<float> columns_;  ///< the loudest level of each bar that is drawn
  std::vector<double> marks_;
  bool isShowing_ = false;  ///< the inherited value is only being brought in line
  KeyboardFocus focus_;
};

}  // namespace vellora
