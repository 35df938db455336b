#pragma once

#include <vector>

#include <QWidget>

#include "editor/BackdropSettings.h"
#include "kit/Paint.h"

namespace vellora {

/// A gradient as a bar with its stops as knobs. Drag a knob to move its stop, away from the bar to take it out; click
/// beside the knobs to add one. Keys: arrows move the chosen stop by 1 %, with Shift by 10; Page Up and Page Down
/// choose the next; Insert adds, Delete takes out, Return edits the colour.
class GradientBar final : public QWidget {
  Q_OBJECT

 public:
  explicit GradientBar(QWidget* parent = nullptr);

  /// `chosen` stays where it is as far as there are stops.
  void setStops(const std::vector<GradientStop>& stops);
  std::size_t chosen() const { return chosen_; }
  void setChosen(std::size_t index);

  QSize sizeHint() const override;

 signals:
  void chosenChanged();
  /// The chosen stop is to stand there.
  void moved(double position);
  void addRequested(double position);
  void removeRequested();
  void colorRequested();
  void editingFinished();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  QRectF bar() const;
  double placeOf(double position) const;
  double positionAt(double x) const;
  /// The stop whose knob is at `x`; nothing beside them.
  std::optional<std::size_t> stopAt(double x) const;

  std::vector<GradientStop> stops_;
  std::size_t chosen_ = 0;
  bool dragging_ = false;
  KeyboardFocus focus_;
};

}  // namespace vellora
