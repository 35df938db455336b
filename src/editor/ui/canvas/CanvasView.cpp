#include "editor/ui/canvas/CanvasView.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include <QAccessible>
#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleHints>
#include <QTimerEvent>

#include "editor/canvas/Cropping.h"
#include "editor/ui/canvas/CanvasHints.h"
#include "editor/ui/canvas/CanvasViewPrivate.h"
#include "kit/Paint.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

using namespace std::chrono_literals;

// The time for painting in one turn of the event loop; less where a stand-in has to be stretched in the same turn.
constexpr auto paintingBudget = 8ms;
constexpr auto paintingBudgetBesideStandin = 4ms;
constexpr int restAfter = 600;  // milliseconds without a change until memory is given back

QPointF pointF(Point point) {
  return {point.x, point.y};
}

/// A region in pixels as it lies in the view's points, with every point it touches.
QRegion inPoints(const QRegion& pixels, double ratio) {
  if (ratio == 1) return pixels;
  QRegion points;
  for (const QRect& rect : pixels) {
    points += QRectF(QPointF(rect.topLeft()) / ratio, QSizeF(rect.size()) / ratio).toAlignedRect();
  }
  return points;
}

QRegion inPixels(const QRegion& points, double ratio) {
  if (ratio == 1) return points;
  QRegion pixels;
  for (const QRect& rect : points) {
    pixels += QRectF(QPointF(rect.topLeft()) * ratio, QSizeF(rect.size()) * ratio).toAlignedRect();
  }
  return pixels;
}

}  // namespace

CanvasView::Private::Private(CanvasView& owner, CanvasModel& canvasModel)
    : view(owner), model(canvasModel), backing([this](QImage& target, const QRect& clip, QPoint planeToTarget) {
        scene.paint(target, clip, planeToTarget, viewport.scale(), viewport.ratio());
      }) {}

CanvasView::CanvasView(CanvasModel& model, QWidget* parent)
    : QWidget(parent), d_(std::make_unique<Private>(*this, model)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_NoSystemBackground);
  setAttribute(Qt::WA_InputMethodEnabled, false);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setTabletTracking(true);
  setAcceptDrops(true);
  setMinimumSize(160, 120);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  //% "Canvas"
  setAccessibleName(qtTrId("canvas.name"));
  d_->refreshDocument();

  d_->zoomAnimation.setEasingCurve(QEasingCurve::OutCubic);
  connect(&d_->zoomAnimation, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
    d_->viewport.zoomTo(std::exp(value.toDouble()), d_->zooming.fixed, d_->zooming.at);
    d_->viewportChanged();
  });
  connect(&d_->zoomAnimation, &QVariantAnimation::finished, this, [this] { d_->finishZoom(); });
  connect(&Theme::shared(), &Theme::changed, this, [this] {
    d_->backing.outdateAll();
    update();
  });
  model.onChange([this](CanvasChange change) { d_->modelChanged(change); });
}

CanvasView::~CanvasView() {
  d_->model.onChange({});
}

// What is shown

void CanvasView::Private::modelChanged(CanvasChange change) {
  if (gesturePlacement) {
    // A pen sends many samples a frame: they are shown together.
    changing.start(0, &view);
  } else {
    refresh();
    refreshPointer();
  }
  const bool editing = model.textEdit().has_value();
  const bool wasEditing = view.testAttribute(Qt::WA_InputMethodEnabled);
  if (editing != wasEditing) {
    view.setAttribute(Qt::WA_InputMethodEnabled, editing);
    QGuiApplication::inputMethod()->update(Qt::ImEnabled);
  }
  if (change == CanvasChange::Text || editing != wasEditing) {
    restartBlinking();
    view.updateMicroFocus();
  }
  emit view.modelChanged(change);
}

/// Shows the model as it is now.
void CanvasView::Private::refresh() {
  changing.stop();
  refreshDocument();
  refreshOverlay();
  resting.start(restAfter, &view);
}

/// The document as it is drawn: with what the input method composes, and a piece that is being cropped in full.
ImageDocument CanvasView::Private::presented() const {
  ImageDocument document = model.document();
  if (const auto cropped = model.croppedPiece(); model.isCropping() && cropped) {
    document.backdrop.enabled = false;
    for (CapturePiece& piece : document.pieces) {
      if (piece.id == *cropped) piece = uncropped(piece);
    }
  }
  const auto edit = model.textEdit();
  if (!edit || edit->composing.isEmpty()) return document;
  if (const auto index = document.indexOf(edit->id)) {
    Annotation text = *document.annotations[*index];
    text.text.insert(std::clamp(edit->cursor, 0, static_cast<int>(text.text.size())), edit->composing);
    document.annotations[*index] = makeAnnotation(std::move(text));
  }
  return document;
}

void CanvasView::Private::refreshDocument() {
  const QRegion changed = scene.setDocument(presented(), viewport.scale());
  const bool resized =
      !(QRectF(viewport.document()) == QRectF(scene.layout().document.minX(), scene.layout().document.minY(),
                                              scene.layout().document.size.width, scene.layout().document.size.height));
  backing.outdate(changed);
  if (resized) {
    viewport.setDocument(scene.layout().document);
    if (fitting && !gesturePlacement) fit();
    viewportChanged();
  }
  repaintPixels(changed.translated(viewport.origin()) & QRect({}, viewport.pixels()));
}

/// Takes over the view's size and scale.
void CanvasView::Private::refreshView() {
  const double ratio = view.devicePixelRatioF();
  const QSize pixels(static_cast<int>(std::ceil(view.width() * ratio)),
                     static_cast<int>(std::ceil(view.height() * ratio)));
  if (pixels == viewport.pixels() && ratio == viewport.ratio()) return;
  viewport.setView(pixels, ratio);
  if (fitting) fit();
  viewportChanged();
}

void CanvasView::Private::fit() {
  const double before = viewport.zoom();
  zoomAnimation.stop();
  viewport.zoomTo(viewport.fittingZoom(), {}, {});
  viewport.center();
  if (viewport.zoom() != before) emit view.zoomChanged(viewport.zoom());
}

void CanvasView::Private::viewportChanged() {
  backing.show(visiblePlane(), viewport.scale());
  refreshOverlay();
  resting.start(restAfter, &view);
  view.update();
}

void CanvasView::Private::refreshOverlay() {
  OverlayContent next = overlayOf(model, contentToPixels(), !gesturePlacement && view.underMouse());
  if (next.crop) next.crop->showsThirds = gesturePlacement.has_value();
  if (!cursorShown || !view.hasFocus()) next.cursor.reset();
  const QRegion difference = overlayDifference(overlay, next, viewport.ratio());
  overlay = std::move(next);
  repaintPixels(difference & QRect({}, viewport.pixels()));
}

void CanvasView::Private::repaintPixels(const QRegion& region) {
  if (!region.isEmpty()) view.update(inPoints(region, viewport.ratio()));
}

QPoint CanvasView::Private::focusOnPlane() const {
  const QRect visible = visiblePlane();
  return view.underMouse() ? pixelAt(pointer).toPoint() + visible.topLeft() : visible.center();
}

void CanvasView::paintEvent(QPaintEvent* event) {
  d_->refreshView();
  if (d_->changing.isActive()) d_->refresh();
  const double ratio = d_->viewport.ratio();
  const QRegion pixels = inPixels(event->region(), ratio) & QRect({}, d_->viewport.pixels());
  const QPoint origin = d_->viewport.origin();
  const QRegion plane = pixels.translated(-origin);
  const bool blank = d_->backing.isMissing(plane);
  d_->backing.paint(plane, d_->focusOnPlane(), blank ? paintingBudgetBesideStandin : paintingBudget);
  if (!d_->backing.unpainted().isEmpty()) d_->painting.start(0, this);

  QPainter painter(this);
  // From here on in device pixels, and on whole ones, wherever a fractional scale puts the view in its window.
  const QPointF inWindow = QPointF(mapTo(window(), QPoint())) * ratio;
  const QPointF shift = QPointF(inWindow.toPoint()) - inWindow;
  painter.setTransform(QTransform(1 / ratio, 0, 0, 1 / ratio, shift.x() / ratio, shift.y() / ratio));
  painter.translate(origin);
  d_->backing.draw(painter, plane, CanvasScene::ground());
  painter.translate(-origin);
  if (overlayRegion(d_->overlay, ratio).intersects(pixels)) paintOverlay(painter, d_->overlay, ratio);
  if (!d_->dropping && !d_->keyboardFocus.visible()) return;
  const QRectF frame = QRectF(QRect({}, d_->viewport.pixels()));
  const double line = std::max(1.0, std::round(2 * ratio));
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Theme::shared().palette().accent, line, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.drawRect(frame.adjusted(line / 2, line / 2, -line / 2, -line / 2));
}

void CanvasView::timerEvent(QTimerEvent* event) {
  if (event->timerId() == d_->changing.timerId()) {
    d_->refresh();
  } else if (event->timerId() == d_->painting.timerId()) {
    const QRegion painted = d_->backing.paint(d_->visiblePlane(), d_->focusOnPlane(), paintingBudget);
    d_->repaintPixels(painted.translated(d_->viewport.origin()));
    if (d_->backing.unpainted().isEmpty()) d_->painting.stop();
  } else if (event->timerId() == d_->resting.timerId()) {
    d_->resting.stop();
    d_->backing.releaseStandin();
    setAccessibleDescription(canvasDescription(d_->model));
  } else if (event->timerId() == d_->blinking.timerId()) {
    d_->cursorShown = !d_->cursorShown;
    d_->refreshOverlay();
  } else if (event->timerId() == d_->scrolling.timerId()) {
    d_->scrollWhileDragging();
  }
}

void CanvasView::Private::restartBlinking() {
  cursorShown = true;
  refreshOverlay();
  const int flash = QGuiApplication::styleHints()->cursorFlashTime();
  if (model.textEdit() && flash > 1 && view.hasFocus() && !Theme::shared().reducedMotion()) {
    blinking.start(flash / 2, &view);
  } else {
    blinking.stop();
  }
}

bool CanvasView::isSettled() const {
  return d_->zoomAnimation.state() != QAbstractAnimation::Running && !d_->changing.isActive() &&
         d_->backing.unpainted().isEmpty();
}

QSize CanvasView::sizeHint() const {
  const Size size = d_->scene.layout().document.size;
  return {static_cast<int>(std::clamp(std::ceil(size.width), 320.0, 8192.0)),
          static_cast<int>(std::clamp(std::ceil(size.height), 240.0, 8192.0))};
}

void CanvasView::resizeEvent(QResizeEvent*) {
  d_->refreshView();
}

// Zoom and position

double CanvasView::zoom() const {
  return d_->zoomAnimation.state() == QAbstractAnimation::Running ? d_->zooming.target : d_->viewport.zoom();
}

void CanvasView::Private::animateZoom(double zoom, QPointF fixed, QPointF at) {
  const double before = view.zoom();
  zoomAnimation.stop();
  zooming = {fixed, at, viewport.clampedZoom(zoom)};
  if (Theme::shared().reducedMotion() || !view.isVisible()) {
    finishZoom();
  } else {
    // Evenly in the logarithm: each frame enlarges by the same factor.
    zoomAnimation.setStartValue(std::log(viewport.zoom()));
    zoomAnimation.setEndValue(std::log(zooming.target));
    zoomAnimation.setDuration(tokens::motionShort);
    zoomAnimation.start();
  }
  if (zooming.target != before) emit view.zoomChanged(zooming.target);
}

/// The last step of an animation is exact.
void CanvasView::Private::finishZoom() {
  viewport.zoomTo(zooming.target, zooming.fixed, zooming.at);
  viewportChanged();
  refreshPointer();
}

void CanvasView::setZoom(double zoom, QPointF at) {
  d_->stopFitting();
  const QPointF pixel = d_->pixelAt(at);
  // Steps at one place go on from the same point of the document: rounding to whole pixels does not add up.
  const QPointF before = d_->viewport.toView().map(d_->zooming.fixed) - pixel;
  const bool goesOn = d_->zooming.at == pixel && std::max(std::abs(before.x()), std::abs(before.y())) <= 1;
  d_->animateZoom(zoom, goesOn ? d_->zooming.fixed : d_->viewport.documentAt(pixel), pixel);
}

void CanvasView::zoomIn() {
  setZoom(d_->viewport.nextZoom(zoom(), 1), QRectF(rect()).center());
}

void CanvasView::zoomOut() {
  setZoom(d_->viewport.nextZoom(zoom(), -1), QRectF(rect()).center());
}

bool CanvasView::canZoomIn() const {
  return zoom() < mostZoom;
}

bool CanvasView::canZoomOut() const {
  return zoom() > d_->viewport.lowerLimit();
}

void CanvasView::zoomToFit() {
  d_->fitting = true;
  // The middle of the document travels to the middle of the view.
  const QPointF middle(d_->viewport.pixels().width() / 2.0, d_->viewport.pixels().height() / 2.0);
  d_->animateZoom(d_->viewport.fittingZoom(), d_->viewport.document().center(), middle);
}

bool CanvasView::isFitting() const {
  return d_->fitting;
}

void CanvasView::actualSize() {
  setZoom(1, QRectF(rect()).center());
}

void CanvasView::panBy(QPointF distance) {
  d_->stopFitting();
  if (d_->zoomAnimation.state() == QAbstractAnimation::Running) {
    d_->zoomAnimation.stop();
    d_->finishZoom();
  }
  d_->viewport.panBy((distance * d_->viewport.ratio()).toPoint());
  d_->viewportChanged();
}

Point CanvasView::documentPoint(QPointF inView) const {
  return d_->pointerAt(inView, {}).position;
}

QPointF CanvasView::viewPoint(Point inDocument) const {
  return d_->contentToPixels().map(pointF(inDocument)) / d_->viewport.ratio();
}

}  // namespace vellora
