#pragma once

#include <QImage>
#include <QWidget>

#include "kit/Paint.h"
#include "platform/ScreenCaptureService.h"
#include "recording/ui/BubblePlace.h"

namespace vellora {

class IconButton;
class WindowHints;

/// The camera's round picture. A person moves it, resizes it with the wheel or at its rim, and closes it. Main thread.
class CameraBubble final : public QWidget {
  Q_OBJECT

 public:
  /// `hints` may be null.
  CameraBubble(const DisplayInfo& screen, PreferenceStore& preferences, WindowHints* hints);

  void appear();
  /// A square of the bubble's size; another size is scaled.
  void setPicture(QImage picture);
  /// The side of the picture in device pixels.
  int pictureSide() const;
  WindowId windowId() const { return static_cast<WindowId>(winId()); }
  const BubblePlace& place() const { return place_; }

 signals:
  void closeRequested();
  void resized();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  enum class Pull { None, Move, Resize };
  Rect area() const;
  QRect circle() const;
  int room() const;
  bool isOnRim(QPointF position) const;
  void follow();
  void limitParts();
  void remember();

  PreferenceStore& preferences_;
  WindowHints* const hints_;
  bool blended_ = true;
  BubblePlace place_;
  QImage picture_;
  PanelShadow shadow_;
  IconButton* close_;  // owned by Qt
  Pull pull_ = Pull::None;
  QPointF pressedInside_;
  double pressedSide_ = 0;
  double pressedDistance_ = 1;
};

}  // namespace vellora
