#pragma once

#include <optional>

#include <QAbstractSlider>

#include "kit/Paint.h"

namespace vellora {

/// Chooses a number from a range by dragging a knob. A click on the track jumps there; arrow keys go by one step, with
/// Shift and by Page Up and Down by ten; Home and End go to the ends; a double click goes back to the default. The
/// wheel is left to whatever scrolls the slider. Where the range has both signs, the bar begins at 0.
///
/// The signals of QAbstractSlider are in steps and for screen readers: owners use those below.
class Slider final : public QAbstractSlider {
  Q_OBJECT

 public:
  explicit Slider(QWidget* parent = nullptr);

  /// `step` is the least difference a person can choose.
  void setScale(double minimum, double maximum, double step);
  /// Shows `number`, brought into the range; tells nobody.
  void setNumber(double number);
  double number() const { return number_; }
  /// Where a double click leads; without one it does nothing.
  void setDefaultNumber(double number) { default_ = number; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  /// The person chose another number; while dragging with every movement.
  void numberChanged(double number);
  /// The person let go: a run of changes is over.
  void editingFinished();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void sliderChange(SliderChange change) override;

 private:
  QRectF trackRect() const;
  QRectF travel() const;                ///< where the knob's middle moves
  double placeOf(double number) const;  ///< along the track, in widget coordinates
  double numberAt(double x) const;
  bool isMirrored() const { return layoutDirection() == Qt::RightToLeft; }
  void choose(double number);
  void finish();

  double minimum_ = 0;
  double maximum_ = 1;
  double step_ = 0.01;
  double number_ = 0;
  std::optional<double> default_;
  double grabOffset_ = 0;  ///< from the pointer to the knob's middle
  bool dragging_ = false;
  bool editing_ = false;
  bool showing_ = false;  ///< the inherited value is only being brought in line
  KeyboardFocus focus_;
};

}  // namespace vellora
