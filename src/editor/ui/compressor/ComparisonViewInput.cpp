#include <cmath>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QWheelEvent>

#include "editor/ui/compressor/ComparisonView.h"

namespace vellora {
namespace {

constexpr double keyStep = 0.01;
constexpr double keyLeap = 0.1;
constexpr int keyPan = 64;            // points
constexpr double pinchPerStep = 0.2;  // how much larger two fingers make it until the next step

}  // namespace

bool ComparisonView::event(QEvent* event) {
  if (event->type() == QEvent::NativeGesture && hasPictures()) {
    const auto& gesture = static_cast<const QNativeGestureEvent&>(*event);
    if (gesture.gestureType() == Qt::ZoomNativeGesture) {
      zoomBySteps(gesture.value() / pinchPerStep, pixelAt(gesture.position()));
      return true;
    }
    if (gesture.gestureType() == Qt::BeginNativeGesture) wheelSteps_ = 0;
  }
  return QWidget::event(event);
}

void ComparisonView::wheelEvent(QWheelEvent* event) {
  if (!hasPictures()) {
    event->ignore();
    return;
  }
  event->accept();
  const double steps = event->angleDelta().y() / double{QWheelEvent::DefaultDeltasPerStep};
  if (steps * wheelSteps_ < 0) wheelSteps_ = 0;
  zoomBySteps(steps, pixelAt(event->position()));
  updateCursor(event->position());
}

void ComparisonView::mousePressEvent(QMouseEvent* event) {
  const bool left = event->button() == Qt::LeftButton;
  if (!hasPictures() || drag_ != Drag::None || (!left && event->button() != Qt::MiddleButton)) {
    event->ignore();
    return;
  }
  if (left && isOnDivider(event->position())) {
    drag_ = Drag::Divider;
    grabOffset_ = dividerX() - event->position().x();
  } else {
    drag_ = Drag::Picture;
    lastPixel_ = pixelAt(event->position());
  }
  dragButton_ = event->button();
  updateCursor(event->position());
}

void ComparisonView::mouseMoveEvent(QMouseEvent* event) {
  if (drag_ == Drag::Divider) {
    const QRect shown = viewport_.visible();
    const double pixel = (event->position().x() + grabOffset_) * devicePixelRatioF();
    setDivider((pixel - shown.left()) / std::max(1, shown.width()));
  } else if (drag_ == Drag::Picture) {
    const QPoint pixel = pixelAt(event->position());
    pan(pixel - lastPixel_);
    lastPixel_ = pixel;
  }
  updateCursor(event->position());
}

void ComparisonView::mouseReleaseEvent(QMouseEvent* event) {
  if (drag_ == Drag::None || event->button() != dragButton_) return;
  drag_ = Drag::None;
  updateCursor(event->position());
}

void ComparisonView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !hasPictures() || isOnDivider(event->position())) {
    mousePressEvent(event);
    return;
  }
  if (viewport_.zoom() == 1) {
    zoomToFit();
  } else {
    zoomTo(1, pixelAt(event->position()));
  }
  updateCursor(event->position());
}

bool ComparisonView::panByKey(int key) {
  const int distance = static_cast<int>(std::lround(keyPan * devicePixelRatioF()));
  const int right = (key == Qt::Key_Right ? 1 : 0) - (key == Qt::Key_Left ? 1 : 0);
  const int down = (key == Qt::Key_Down ? 1 : 0) - (key == Qt::Key_Up ? 1 : 0);
  if (right == 0 && down == 0) return false;
  pan({-right * distance, -down * distance});
  return true;
}

void ComparisonView::keyPressEvent(QKeyEvent* event) {
  const Qt::KeyboardModifiers modifiers = event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  const bool panning = modifiers == Qt::ControlModifier;
  if (!hasPictures() || (modifiers != Qt::NoModifier && !panning) || (panning && !panByKey(event->key()))) {
    QWidget::keyPressEvent(event);
    return;
  }
  if (panning) return;
  const double step = event->modifiers().testFlag(Qt::ShiftModifier) ? keyLeap : keyStep;
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
      setDivider(divider_ - step);
      break;
    case Qt::Key_Right:
    case Qt::Key_Up:
      setDivider(divider_ + step);
      break;
    case Qt::Key_Home:
      setDivider(0);
      break;
    case Qt::Key_End:
      setDivider(1);
      break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      zoomTo(viewport_.nextZoom(1), middlePixel());
      break;
    case Qt::Key_Minus:
      zoomTo(viewport_.nextZoom(-1), middlePixel());
      break;
    case Qt::Key_0:
      zoomToFit();
      break;
    case Qt::Key_1:
      zoomTo(1, middlePixel());
      break;
    case Qt::Key_B:
      setPeeking(true);
      break;
    default:
      QWidget::keyPressEvent(event);
  }
}

void ComparisonView::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_B || !peeking_) {
    QWidget::keyReleaseEvent(event);
  } else if (!event->isAutoRepeat()) {
    setPeeking(false);
  }
}

void ComparisonView::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  QWidget::focusInEvent(event);
  update();
}

void ComparisonView::focusOutEvent(QFocusEvent* event) {
  focus_.focusOut();
  setPeeking(false);
  QWidget::focusOutEvent(event);
  update();
}

void ComparisonView::updateCursor(QPointF position) {
  Qt::CursorShape shape = Qt::ArrowCursor;
  if (drag_ == Drag::Divider || (drag_ == Drag::None && isOnDivider(position))) {
    shape = Qt::SplitHCursor;
  } else if (hasPictures() && viewport_.canPan()) {
    shape = drag_ == Drag::Picture ? Qt::ClosedHandCursor : Qt::OpenHandCursor;
  }
  setCursor(shape);
}

}  // namespace vellora
