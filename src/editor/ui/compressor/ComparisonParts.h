#pragma once

#include <QBasicTimer>
#include <QWidget>

#include "kit/Button.h"

namespace vellora {

/// The ground of what floats over the pictures: nearly covering, with a hairline, readable on anything.
void paintComparisonGround(QPainter& painter, const QRectF& rect, double radius);

/// The zoom of a comparison, and the buttons for all of the picture and for 100 %.
class ComparisonZoomBar final : public QWidget {
  Q_OBJECT

 public:
  explicit ComparisonZoomBar(QWidget* parent);

  /// `zoom`: 1 is 100 %. `fitting`: all of the picture is shown and will go on being so.
  void setZoom(double zoom, bool fitting);

 signals:
  void fitRequested();
  void actualSizeRequested();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  IconButton* fit_;     // owned by this as a child
  IconButton* actual_;  // owned by this as a child
  QString text_;
};

/// A turning arc that says something is being made. It appears after a moment only, so that quick work does not make
/// it flash, and stands still where motion is not wanted.
class ComparisonBusySign final : public QWidget {
  Q_OBJECT

 public:
  static constexpr int side = 26;
  static constexpr int delay = 200;  ///< milliseconds

  explicit ComparisonBusySign(QWidget* parent);

  void setBusy(bool busy);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  QBasicTimer appearing_;
  QBasicTimer turning_;
  bool busy_ = false;
  int angle_ = 0;  // degrees
};

}  // namespace vellora
