#pragma once

#include <optional>

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QVariantAnimation>

#include "editor/ui/canvas/CanvasBacking.h"
#include "editor/ui/canvas/CanvasKeys.h"
#include "editor/ui/canvas/CanvasOverlay.h"
#include "editor/ui/canvas/CanvasScene.h"
#include "editor/ui/canvas/CanvasView.h"
#include "editor/ui/canvas/CanvasViewport.h"
#include "editor/ui/canvas/Eyedropper.h"
#include "kit/Paint.h"

namespace vellora {

/// What a CanvasView keeps; its parts are in CanvasView.cpp (showing) and CanvasViewInput.cpp (listening).
struct CanvasView::Private {
  Private(CanvasView& owner, CanvasModel& canvasModel);

  // Showing
  void modelChanged(CanvasChange change);
  ImageDocument presented() const;
  void refresh();
  void refreshDocument();
  void refreshView();
  void viewportChanged();
  void refreshOverlay();
  void animateZoom(double zoom, QPointF fixed, QPointF at);
  void finishZoom();
  void stopFitting() { fitting = false; }
  void fit();
  void repaintPixels(const QRegion& region);
  QRect visiblePlane() const { return {-viewport.origin(), viewport.pixels()}; }
  QPoint focusOnPlane() const;
  QTransform contentToPixels() const { return scene.layout().placement * viewport.toView(); }
  QPointF pixelAt(QPointF inView) const { return inView * viewport.ratio(); }

  // Listening
  PointerEvent pointerAt(QPointF inView, Qt::KeyboardModifiers modifiers, double pressure = 0.5) const;
  void press(const PointerEvent& event);
  void drag(const PointerEvent& event);
  void release(const PointerEvent& event);
  void hover(QPointF inView, Qt::KeyboardModifiers modifiers);
  void startPan(QPointF inView);
  void endPan();
  void scrollWhileDragging();
  void refreshPointer();
  void setHint(const QString& text);
  void restartBlinking();
  bool clipboardKey(const QKeyEvent& event);
  void eyedropperKey(const QKeyEvent& event);
  void takeColor(QPoint global);
  QImage sample(QPointF inView, int count);

  CanvasView& view;
  CanvasModel& model;

  CanvasViewport viewport;
  CanvasScene scene;
  CanvasBacking backing;
  OverlayContent overlay;

  struct Zooming {
    QPointF fixed;  // document point
    QPointF at;     // pixels of the view
    double target = 1;
  };
  QVariantAnimation zoomAnimation;
  Zooming zooming;
  bool fitting = true;

  QBasicTimer changing;  // ends with the turn of the event loop in which a drag changed the document
  QBasicTimer painting;  // runs while something is still to be painted
  QBasicTimer resting;   // ends a while after the last change of the view
  QBasicTimer blinking;
  QBasicTimer scrolling;  // runs while a drag is held beyond the edge
  bool cursorShown = true;
  KeyboardFocus keyboardFocus;

  WheelKind wheelKind;
  bool panning = false;  // held on, by the space bar or from outside
  bool panHeldBySpace = false;
  std::optional<QPointF> panFrom;  // where the hand is, in the view
  /// The placement that was in force when a gesture began: a crop changes the backdrop's layout, and a drag must not
  /// run after its own effect. Absent: no gesture.
  std::optional<QTransform> gesturePlacement;
  QPointF pointer;  // where it was last, in the view
  Qt::KeyboardModifiers pointerModifiers;
  double pointerPressure = 0.5;
  QElapsedTimer sinceDoubleClick;
  QPointF doubleClickAt;
  QString hint;
  bool dropping = false;  // something that can be dropped is over the canvas
  std::optional<Eyedropper> eyedropper;
};

}  // namespace vellora
