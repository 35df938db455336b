#pragma once

#include <functional>
#include <vector>

#include <QElapsedTimer>
#include <QWidget>

#include "editor/PinModel.h"
#include "editor/ui/pins/PinPicture.h"
#include "kit/Paint.h"

class QNativeGestureEvent;
class QTimer;

namespace vellora {

class PinChrome;
class WindowHints;

/// The window of one pin: shows its model and turns the pointer and the keyboard into calls to it. Frameless, above
/// other windows, on every desktop, in no task bar; it does not take the focus when it appears, only when it is
/// clicked. Where the desktop blends windows it is larger than the picture by the room of the shadow.
class PinWindow final : public QWidget {
  Q_OBJECT

 public:
  struct Parts {
    PinModel& model;
    Bitmap image;
    RunLoop& runLoop;
    SerialQueue& queue;
    WindowHints* hints;                                ///< may be null
    std::function<std::vector<Rect>()> otherPictures;  ///< where this one may snap to
  };
  explicit PinWindow(Parts parts);

  PinChrome& chrome() const { return *chrome_; }

  /// Follows the model after it was changed from outside. `describe` shows the scale or the opacity for a moment where
  /// the controls do not.
  enum class Describe { Nothing, Scale, Opacity };
  void follow(Describe describe = Describe::Nothing);
  /// Follows the model's style, opacity or click-through.
  void followLook(Describe describe = Describe::Nothing);

  /// Keeps the controls while something belonging to the pin is open.
  void holdChrome(bool held);
  /// Moves that come in the next moments answer a change of the screens, not a person.
  void expectSettling();

  /// Shadow and round corners need a desktop that blends windows.
  bool isBlended() const { return blended_; }
  QImage dragMiniature(int longestSide) const { return picture_.miniature(longestSide); }

 signals:
  void copyRequested();
  void saveRequested();
  void editRequested();
  void closeRequested();
  void dragRequested();
  void menuRequested(const QPoint& position);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  enum class Grip { None, Pressed, Moving, Resizing, DraggingOut };

  QMargins room() const;
  bool hasChromeAbove() const;
  QRect pictureInWindow() const;
  QSize deviceSize(const QPainter& painter) const;
  double cornerRadius(const QRectF& picture) const;
  PinEdges edgesAt(QPointF position) const;
  void updateCursor(QPointF position);
  void arrangeChrome();
  void describe(Describe what);
  void limitInput();
  void takeOverPosition();
  bool pinchEvent(const QNativeGestureEvent& event);
  void paintShadow(QPainter& painter, const QRectF& picture);
  void paintBadge(QPainter& painter, const QRectF& picture);

  PinModel& model_;
  WindowHints* const hints_;
  const std::function<std::vector<Rect>()> otherPictures_;
  PinPicture picture_;
  PanelShadow shadow_;
  bool blended_;
  PinChrome* chrome_;  // owned by Qt, as all children
  QTimer* settle_;
  QTimer* badgeStay_;
  QString badge_;
  QElapsedTimer screensChanged_;
  Grip grip_ = Grip::None;
  QPointF pressed_;        // where the pointer went down, in the desktop's points
  QPointF pressedInside_;  // the same within the picture
  bool held_ = false;
};

}  // namespace vellora
