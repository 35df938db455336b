#pragma once

#include <functional>
#include <memory>

#include <QImage>
#include <QList>
#include <QUrl>
#include <QWidget>

#include "base/Color.h"
#include "editor/canvas/CanvasModel.h"

namespace vellora {

/// Shows a document and lets a person work on it: turns the pointer, the pen, the keys and the input method into calls
/// of a CanvasModel, and draws what it holds with handles, guides and cursors on top. Zooms, pans and picks colours.
/// Holds no rule of editing. Positions "in the view" are points of this widget.
class CanvasView final : public QWidget {
  Q_OBJECT

 public:
  /// `model` must outlive the view, which takes the model's change call for itself and passes it on as modelChanged().
  explicit CanvasView(CanvasModel& model, QWidget* parent = nullptr);
  ~CanvasView() override;

  /// Screen points per document point; 1 is 100 %. A zoom on its way counts as done.
  double zoom() const;
  /// Zooms so that what is at `at` (in the view) stays there; clamped to the limits.
  void setZoom(double zoom, QPointF at);
  /// The next larger or smaller of the usual zooms, about the middle of the view.
  void zoomIn();
  void zoomOut();
  bool canZoomIn() const;
  bool canZoomOut() const;
  /// The whole document, never enlarged; stays so while the view or the document changes its size, until the person
  /// zooms or pans.
  void zoomToFit();
  bool isFitting() const;
  /// 100 %, about the middle of the view.
  void actualSize();
  /// Moves what is shown, as a scroll bar would, in points of the view.
  void panBy(QPointF distance);

  static constexpr double leastZoom = 0.1;
  static constexpr double mostZoom = 8;

  /// The pointer pans while this is on (the space bar holds it on).
  void setPanning(bool panning);
  bool isPanning() const;

  /// Keys go into a text: single-key shortcuts of the window must not fire.
  bool isEditingText() const;

  /// Lets the person pick a colour with a magnifying glass, in the canvas or anywhere on the screen; `picked` is called
  /// once with it, or never when the person leaves with Escape or the other button.
  void startEyedropper(std::function<void(ColorComponents)> picked);
  void cancelEyedropper();
  bool isPickingColor() const;

  /// The document point under a place in the view, before the backdrop's placement.
  Point documentPoint(QPointF inView) const;
  /// Where a document point is shown.
  QPointF viewPoint(Point inDocument) const;

  /// How much of the view shows the document as it now is, rather than a stand-in that is still being drawn over.
  bool isSettled() const;

  QSize sizeHint() const override;
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

 signals:
  void zoomChanged(double zoom);
  /// What a drag from here will do, or the size under way; for the status line. Empty when there is nothing to say.
  void hintChanged(const QString& hint);
  void contextMenuRequested(QPoint global, vellora::Point document);
  /// Files or a picture were dropped onto a place of the document.
  void filesDropped(const QList<QUrl>& files, vellora::Point document);
  void imageDropped(const QImage& image, vellora::Point document);
  void eyedropperEnded();
  /// The model's own change call.
  void modelChanged(vellora::CanvasChange change);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void tabletEvent(QTabletEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  struct Private;
  std::unique_ptr<Private> d_;
};

}  // namespace vellora
