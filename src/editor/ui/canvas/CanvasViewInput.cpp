#include <algorithm>
#include <cmath>
#include <utility>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QStyleHints>
#include <QTabletEvent>
#include <QWheelEvent>

#include "editor/ui/canvas/CanvasHints.h"
#include "editor/ui/canvas/CanvasViewPrivate.h"

namespace vellora {
namespace {

constexpr double notch = 120;  // of a wheel, in eighths of a degree
constexpr double zoomPerNotch = 1.25;
constexpr double fullSizePull = 0.04;  // a wheel's zoom this close to 100 % becomes 100 %
constexpr double arrowScroll = 40;     // points
constexpr double pageScroll = 0.85;    // of the view
constexpr int scrollInterval = 16;     // milliseconds
constexpr double scrollPull = 0.15;    // of the distance beyond the edge, each interval
constexpr double fastestScroll = 40;   // points each interval

/// Pictures are what the image reader has a format for, by the ending of the name.
bool isPicture(const QUrl& url) {
  if (!url.isLocalFile()) return false;
  static const QList<QByteArray> formats = QImageReader::supportedImageFormats();
  return formats.contains(QFileInfo(url.toLocalFile()).suffix().toLower().toUtf8());
}

QList<QUrl> picturesIn(const QMimeData& data) {
  QList<QUrl> found;
  for (const QUrl& url : data.urls()) {
    if (isPicture(url)) found.push_back(url);
  }
  return found;
}

}  // namespace

// The pointer

PointerEvent CanvasView::Private::pointerAt(QPointF inView, Qt::KeyboardModifiers modifiers, double pressure) const {
  const QTransform placement = gesturePlacement.value_or(scene.layout().placement);
  const QTransform back = (placement * viewport.toView()).inverted();
  const QPointF pixel = pixelAt(inView);
  const QPointF here = back.map(pixel);
  const QPointF beside = back.map(pixel + QPointF(viewport.ratio(), 0));
  const double step = std::hypot(beside.x() - here.x(), beside.y() - here.y());
  const bool usable = std::isfinite(here.x()) && std::isfinite(here.y()) && std::isfinite(step) && step > 0;
  // Beyond the horizon of a tilt nothing lies under the pointer.
  if (!usable) return {{}, 1 / viewport.zoom(), modifiersOf(modifiers), pressure};
  return {{here.x(), here.y()}, step, modifiersOf(modifiers), pressure};
}

void CanvasView::Private::press(const PointerEvent& event) {
  gesturePlacement = scene.layout().placement;
  // Every sample counts for a stroke.
  if (model.tool() == Tool::Pen) QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
  model.press(event);
  refreshOverlay();
}

void CanvasView::Private::drag(const PointerEvent& event) {
  model.move(event);
  if (!view.rect().contains(pointer.toPoint())) {
    if (!scrolling.isActive()) scrolling.start(scrollInterval, &view);
  } else {
    scrolling.stop();
  }
  const QString size = sizeText(model);
  if (!size.isEmpty()) setHint(size);
}

void CanvasView::Private::release(const PointerEvent& event) {
  scrolling.stop();
  QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, true);
  model.release(event);
  gesturePlacement.reset();
  refresh();
  if (fitting) {
    fit();
    viewportChanged();
  }
  hover(pointer, pointerModifiers);
}

void CanvasView::Private::hover(QPointF inView, Qt::KeyboardModifiers modifiers) {
  model.move(pointerAt(inView, modifiers));
  refreshPointer();
  refreshOverlay();
}

/// A drag held beyond the edge moves the document under it.
void CanvasView::Private::scrollWhileDragging() {
  if (!gesturePlacement) {
    scrolling.stop();
    return;
  }
  const auto beyond = [](double at, double length) { return at < 0 ? -at : at > length ? length - at : 0.0; };
  const auto pull = [](double distance) { return std::clamp(distance * scrollPull, -fastestScroll, fastestScroll); };
  view.panBy({pull(beyond(pointer.x(), view.width())), pull(beyond(pointer.y(), view.height()))});
  drag(pointerAt(pointer, pointerModifiers, pointerPressure));
}

void CanvasView::Private::refreshPointer() {
  if (eyedropper) {
    //% "Click to take the color  ·  Esc leaves"
    setHint(qtTrId("canvas.hint.eyedropper"));
    return;
  }
  if (panFrom || panning) {
    view.setCursor(panFrom ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
    //% "Drag to move the view"
    setHint(qtTrId("canvas.hint.pan"));
    return;
  }
  if (gesturePlacement) return;
  const PointerHint here = model.hintAt(pointerAt(pointer, pointerModifiers));
  view.setCursor(cursorOf(here));
  setHint(view.underMouse() ? hintText(here, model.tool(), model.isCropping()) : QString());
}

void CanvasView::Private::setHint(const QString& text) {
  if (text == hint) return;
  hint = text;
  emit view.hintChanged(hint);
}

void CanvasView::Private::startPan(QPointF inView) {
  panFrom = inView;
  refreshPointer();
}

void CanvasView::Private::endPan() {
  panFrom.reset();
  refreshPointer();
}

void CanvasView::setPanning(bool panning) {
  if (d_->panning == panning) return;
  d_->panning = panning;
  d_->refreshPointer();
}

bool CanvasView::isPanning() const {
  return d_->panning || d_->panFrom;
}

void CanvasView::mousePressEvent(QMouseEvent* event) {
  d_->pointer = event->position();
  d_->pointerModifiers = event->modifiers();
  if (d_->eyedropper) {
    if (event->button() == Qt::LeftButton) {
      d_->takeColor(event->globalPosition().toPoint());
    } else {
      cancelEyedropper();
    }
    return;
  }
  const bool pans = event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && d_->panning);
  if (pans && !d_->gesturePlacement) {
    d_->startPan(event->position());
  } else if (event->button() == Qt::LeftButton && !d_->panFrom) {
    d_->pointerPressure = 0.5;
    PointerEvent at = d_->pointerAt(event->position(), event->modifiers());
    const QStyleHints& style = *QGuiApplication::styleHints();
    const bool third = d_->sinceDoubleClick.isValid() &&
                       d_->sinceDoubleClick.elapsed() < style.mouseDoubleClickInterval() &&
                       (event->position() - d_->doubleClickAt).manhattanLength() < style.mouseDoubleClickDistance();
    if (third) at.clicks = 3;
    d_->sinceDoubleClick.invalidate();
    d_->press(at);
  } else if (event->button() == Qt::RightButton && d_->gesturePlacement) {
    d_->model.cancelGesture();
  }
}

void CanvasView::mouseMoveEvent(QMouseEvent* event) {
  if (d_->eyedropper) {
    d_->eyedropper->moveTo(event->globalPosition().toPoint());
    return;
  }
  if (d_->panFrom) {
    // By whole pixels, so that slow drags lose nothing to rounding.
    const double ratio = d_->viewport.ratio();
    const QPointF distance = ((event->position() - *d_->panFrom) * ratio).toPoint() / ratio;
    d_->panFrom = *d_->panFrom + distance;
    panBy(distance);
    d_->pointer = event->position();
    return;
  }
  d_->pointer = event->position();
  d_->pointerModifiers = event->modifiers();
  if (d_->gesturePlacement) {
    d_->drag(d_->pointerAt(event->position(), event->modifiers()));
  } else {
    d_->hover(event->position(), event->modifiers());
  }
}

void CanvasView::mouseReleaseEvent(QMouseEvent* event) {
  if (d_->panFrom && (event->button() == Qt::MiddleButton || event->button() == Qt::LeftButton)) {
    d_->endPan();
  } else if (d_->gesturePlacement && event->button() == Qt::LeftButton) {
    d_->pointer = event->position();
    d_->release(d_->pointerAt(event->position(), event->modifiers()));
  }
}

void CanvasView::mouseDoubleClickEvent(QMouseEvent* event) {
  // The second of two quick strokes is a stroke.
  const PointerEvent at = d_->pointerAt(event->position(), event->modifiers());
  const bool draws = d_->model.hintAt(at) == PointerHint::Draw;
  if (event->button() != Qt::LeftButton || d_->panning || d_->eyedropper || draws) {
    mousePressEvent(event);
  } else {
    d_->model.doubleClick(at);
    d_->sinceDoubleClick.start();
    d_->doubleClickAt = event->position();
  }
}

void CanvasView::tabletEvent(QTabletEvent* event) {
  // Without a stroke to draw the pen is a mouse: ignored, it comes again as one.
  if (d_->model.tool() != Tool::Pen || d_->panning || d_->panFrom || d_->eyedropper) {
    event->ignore();
    return;
  }
  d_->pointer = event->position();
  d_->pointerModifiers = event->modifiers();
  d_->pointerPressure = std::clamp(event->pressure(), 0.0, 1.0);
  const PointerEvent at = d_->pointerAt(event->position(), event->modifiers(), d_->pointerPressure);
  if (event->type() == QEvent::TabletPress && event->button() == Qt::LeftButton) {
    setFocus(Qt::MouseFocusReason);
    d_->press(at);
  } else if (event->type() == QEvent::TabletRelease && d_->gesturePlacement) {
    d_->release(at);
  } else if (event->type() == QEvent::TabletMove) {
    if (d_->gesturePlacement) {
      d_->drag(at);
    } else {
      d_->hover(event->position(), event->modifiers());
    }
  } else {
    event->ignore();
    return;
  }
  event->accept();
}

void CanvasView::leaveEvent(QEvent*) {
  if (d_->gesturePlacement || d_->eyedropper) return;
  d_->refreshOverlay();
  d_->setHint({});
}

void CanvasView::wheelEvent(QWheelEvent* event) {
  event->accept();
  const bool scrolls = d_->wheelKind.isScrolling(*event);
  const QPointF angle = event->angleDelta();
  if (event->modifiers().testFlag(Qt::ControlModifier) ||
      (!scrolls && event->modifiers() == Qt::NoModifier && angle.x() == 0)) {
    double target = zoom() * std::pow(zoomPerNotch, angle.y() / notch);
    const bool passes = (zoom() < 1) != (target < 1) && zoom() != 1;
    if (!scrolls && (passes || std::abs(target - 1) < fullSizePull)) target = 1;
    setZoom(target, event->position());
    return;
  }
  QPointF distance =
      event->pixelDelta().isNull() || !scrolls ? angle / notch * 3 * arrowScroll / 2 : event->pixelDelta();
  if (event->modifiers().testFlag(Qt::ShiftModifier) && distance.x() == 0) distance = distance.transposed();
  panBy(distance);
  d_->pointer = event->position();
  if (d_->gesturePlacement) d_->drag(d_->pointerAt(d_->pointer, event->modifiers(), d_->pointerPressure));
}

void CanvasView::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (d_->gesturePlacement || d_->eyedropper) return;
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  const QPoint place = byKey && !rect().contains(event->pos()) ? rect().center() : event->pos();
  const auto hovered = d_->model.hovered();
  if (!byKey && hovered && !d_->model.selection().contains(*hovered)) d_->model.select({*hovered});
  emit contextMenuRequested(mapToGlobal(place), documentPoint(place));
}

// Keys and text

bool CanvasView::isEditingText() const {
  return d_->model.textEdit().has_value();
}

bool CanvasView::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      if (isEditingText() && isTextKey(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
      }
      break;
    case QEvent::KeyPress: {
      // Before Qt takes Tab for the way to the next control.
      auto& key = static_cast<QKeyEvent&>(*event);
      if (key.key() != Qt::Key_Tab && key.key() != Qt::Key_Backtab) break;
      if (!key.modifiers().testFlag(Qt::ControlModifier) &&
          d_->model.keyPress(keyInputOf(key, 1 / d_->viewport.zoom()))) {
        event->accept();
        return true;
      }
      break;
    }
    case QEvent::NativeGesture: {
      const auto& gesture = static_cast<QNativeGestureEvent&>(*event);
      if (gesture.gestureType() != Qt::ZoomNativeGesture) break;
      setZoom(zoom() * (1 + gesture.value()), gesture.position());
      return true;
    }
    default:
      break;
  }
  return QWidget::event(event);
}

void CanvasView::keyPressEvent(QKeyEvent* event) {
  CanvasModel& model = d_->model;
  if (d_->eyedropper) return d_->eyedropperKey(*event);
  if (event->key() == Qt::Key_Escape) {
    if (!model.escape()) event->ignore();
    return;
  }
  if (event->key() == Qt::Key_Space && !isEditingText() && !d_->gesturePlacement) {
    if (!event->isAutoRepeat()) setPanning(d_->panHeldBySpace = true);
    return;
  }
  if (isEditingText() && d_->clipboardKey(*event)) return;
  const KeyInput input = keyInputOf(*event, 1 / d_->viewport.zoom());
  if (model.keyPress(input)) return;
  const double page = pageScroll * height();
  const bool sideways = event->modifiers().testFlag(Qt::ShiftModifier);
  switch (event->key()) {
    case Qt::Key_PageUp:
      return panBy(sideways ? QPointF(pageScroll * width(), 0) : QPointF(0, page));
    case Qt::Key_PageDown:
      return panBy(sideways ? QPointF(-pageScroll * width(), 0) : QPointF(0, -page));
    case Qt::Key_Left:
      return panBy({arrowScroll, 0});
    case Qt::Key_Right:
      return panBy({-arrowScroll, 0});
    case Qt::Key_Up:
      return panBy({0, arrowScroll});
    case Qt::Key_Down:
      return panBy({0, -arrowScroll});
    default:
      event->ignore();
  }
}

void CanvasView::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space && d_->panHeldBySpace) {
    if (!event->isAutoRepeat()) setPanning(d_->panHeldBySpace = false);
    return;
  }
  QWidget::keyReleaseEvent(event);
}

/// Copying and pasting within a text; true when the key was one of those.
bool CanvasView::Private::clipboardKey(const QKeyEvent& event) {
  QClipboard& clipboard = *QGuiApplication::clipboard();
  const bool cuts = event.matches(QKeySequence::Cut);
  if (cuts || event.matches(QKeySequence::Copy)) {
    const QString text = model.selectedText();
    if (text.isEmpty()) return true;
    clipboard.setText(text);
    if (cuts) model.insertText({});
    return true;
  }
  if (!event.matches(QKeySequence::Paste)) return false;
  const QString text = clipboard.text();
  if (!text.isEmpty()) model.insertText(text);
  return true;
}

void CanvasView::inputMethodEvent(QInputMethodEvent* event) {
  if (!isEditingText()) {
    event->ignore();
    return;
  }
  if (!event->commitString().isEmpty()) {
    d_->model.setComposing({});
    d_->model.insertText(event->commitString());
  }
  int cursor = -1;
  for (const QInputMethodEvent::Attribute& attribute : event->attributes()) {
    if (attribute.type == QInputMethodEvent::Cursor) cursor = attribute.start;
  }
  d_->model.setComposing(event->preeditString(), cursor);
  event->accept();
}

QVariant CanvasView::inputMethodQuery(Qt::InputMethodQuery query) const {
  const auto edit = d_->model.textEdit();
  if (query == Qt::ImEnabled) return edit.has_value();
  if (!edit) return QWidget::inputMethodQuery(query);
  const AnnotationPtr text = d_->model.document().annotation(edit->id);
  switch (query) {
    case Qt::ImCursorRectangle: {
      const Rect& cursor = edit->cursorRect;
      return QRectF(viewPoint(cursor.origin), viewPoint({cursor.maxX(), cursor.maxY()})).normalized();
    }
    case Qt::ImSurroundingText:
      return text != nullptr ? text->text : QString();
    case Qt::ImCursorPosition:
      return edit->cursor;
    case Qt::ImAnchorPosition:
      return edit->anchor;
    case Qt::ImCurrentSelection:
      return d_->model.selectedText();
    case Qt::ImHints:
      return int(Qt::ImhMultiLine);
    default:
      return QWidget::inputMethodQuery(query);
  }
}

void CanvasView::focusInEvent(QFocusEvent* event) {
  d_->keyboardFocus.focusIn(*event);
  QWidget::focusInEvent(event);
  d_->restartBlinking();
}

void CanvasView::focusOutEvent(QFocusEvent* event) {
  d_->keyboardFocus.focusOut();
  QWidget::focusOutEvent(event);
  if (d_->panHeldBySpace) setPanning(d_->panHeldBySpace = false);
  d_->restartBlinking();
}

// Colours

void CanvasView::startEyedropper(std::function<void(ColorComponents)> picked) {
  cancelEyedropper();
  d_->model.cancelGesture();
  setFocus(Qt::OtherFocusReason);
  d_->eyedropper.emplace(
      *this, [this](QPointF inView, int count) { return d_->sample(inView, count); }, std::move(picked));
  d_->refreshPointer();
}

void CanvasView::cancelEyedropper() {
  if (!d_->eyedropper) return;
  d_->eyedropper.reset();
  d_->refreshPointer();
  emit eyedropperEnded();
}

bool CanvasView::isPickingColor() const {
  return d_->eyedropper.has_value();
}

/// The arrow keys go from pixel to pixel, Return takes the colour.
void CanvasView::Private::eyedropperKey(const QKeyEvent& event) {
  const int step = event.modifiers().testFlag(Qt::ShiftModifier) ? 10 : 1;
  QPoint place = QCursor::pos();
  switch (event.key()) {
    case Qt::Key_Escape:
      return view.cancelEyedropper();
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return takeColor(place);
    case Qt::Key_Left:
      place.rx() -= step;
      break;
    case Qt::Key_Right:
      place.rx() += step;
      break;
    case Qt::Key_Up:
      place.ry() -= step;
      break;
    case Qt::Key_Down:
      place.ry() += step;
      break;
    default:
      return;
  }
  QCursor::setPos(place);
  eyedropper->moveTo(place);
}

/// The pixels around a place as the picture has them, without what lies over it.
QImage CanvasView::Private::sample(QPointF inView, int count) {
  const QPointF pixel = pixelAt(inView);
  const QPoint middle(static_cast<int>(std::floor(pixel.x())), static_cast<int>(std::floor(pixel.y())));
  const QRect part(middle - viewport.origin() - QPoint(count / 2, count / 2), QSize(count, count));
  if (!scene.showsPixelGrid(viewport.scale(), viewport.ratio())) return backing.copy(part);
  QImage pixels(part.size(), QImage::Format_RGB32);
  scene.paintPlain(pixels, pixels.rect(), -part.topLeft(), viewport.scale(), viewport.ratio());
  return pixels;
}

void CanvasView::Private::takeColor(QPoint global) {
  const std::optional<ColorComponents> color = eyedropper->colorAt(global);
  const auto picked = eyedropper->picked();
  view.cancelEyedropper();
  if (color && picked) picked(*color);
}

// Drops

void CanvasView::dragEnterEvent(QDragEnterEvent* event) {
  if (!event->mimeData()->hasImage() && picturesIn(*event->mimeData()).isEmpty()) return;
  event->acceptProposedAction();
  d_->dropping = true;
  update();
}

void CanvasView::dragLeaveEvent(QDragLeaveEvent*) {
  d_->dropping = false;
  update();
}

void CanvasView::dropEvent(QDropEvent* event) {
  d_->dropping = false;
  update();
  const Point place = documentPoint(event->position());
  if (const QList<QUrl> files = picturesIn(*event->mimeData()); !files.isEmpty()) {
    emit filesDropped(files, place);
  } else if (event->mimeData()->hasImage()) {
    emit imageDropped(event->mimeData()->imageData().value<QImage>(), place);
  } else {
    return;
  }
  event->acceptProposedAction();
}

}  // namespace vellora
