#include "editor/ui/compressor/ComparisonView.h"

#include <algorithm>
#include <cmath>

#include <QPainter>

#include "editor/ui/compressor/ComparisonAccessible.h"
#include "editor/ui/compressor/ComparisonParts.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr double handleDiameter = 32;
constexpr int partsMargin = tokens::space3;

}  // namespace

ComparisonView::ComparisonView(QWidget* parent)
    : QWidget(parent), zoomBar_(new ComparisonZoomBar(this)), busySign_(new ComparisonBusySign(this)) {
  installComparisonAccessible();
  // Before is on the left in every language, as are the arrow keys.
  setLayoutDirection(Qt::LeftToRight);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  //% "Before and after"
  setAccessibleName(qtTrId("compress.compare.name"));
  //% "The arrow keys move the divider. B shows only the picture before."
  setAccessibleDescription(qtTrId("compress.compare.help"));
  zoomBar_->hide();
  connect(zoomBar_, &ComparisonZoomBar::fitRequested, this, &ComparisonView::zoomToFit);
  connect(zoomBar_, &ComparisonZoomBar::actualSizeRequested, this, [this] { zoomTo(1, middlePixel()); });
  connect(&preparing_, &QFutureWatcherBase::finished, this, [this] {
    if (waiting_) take(preparing_.result());
  });
  repaintOnThemeChange(*this);
}

ComparisonView::~ComparisonView() {
  preparing_.cancel();
}

void ComparisonView::setPictures(const QImage& before, const QImage& after) {
  prepare(before, after);
}

void ComparisonView::setBefore(const QImage& before) {
  prepare(before, {});
}

void ComparisonView::prepare(const QImage& before, const QImage& after) {
  setMessage({});
  preparing_.cancel();
  const QFuture<ComparisonPair> pair = prepareComparison(before, after, pair_);
  waiting_ = !pair.isFinished();
  if (waiting_) {
    preparing_.setFuture(pair);
  } else {
    take(pair.result());
  }
}

void ComparisonView::take(const ComparisonPair& pair) {
  waiting_ = false;
  pair_ = pair;
  if (!pair_.before) pair_.after.reset();
  if (pair_.before && (!started_ || pair_.before->size() != viewport_.picture())) {
    followScreen();
    viewport_.setPicture(pair_.before->size());
    divider_ = 0.5;
    started_ = true;
  }
  zoomChanged();
}

void ComparisonView::setBusy(bool busy) {
  busySign_->setBusy(busy);
}

void ComparisonView::setMessage(const QString& message) {
  if (message_ == message) return;
  message_ = message;
  zoomChanged();
}

void ComparisonView::setCaptions(const QString& before, const QString& after) {
  captionBefore_ = before;
  captionAfter_ = after;
  placeParts();
  update();
}

void ComparisonView::clear() {
  preparing_.cancel();
  waiting_ = false;
  pair_ = {};
  message_.clear();
  started_ = false;
  setPeeking(false);
  drag_ = Drag::None;
  zoomChanged();
}

void ComparisonView::setDivider(double divider) {
  const double held = std::clamp(std::isfinite(divider) ? divider : 0.5, 0.0, 1.0);
  if (held == divider_) return;
  updateAround(dividerX());
  divider_ = held;
  updateAround(dividerX());
  announceComparison(*this);
  emit dividerMoved(divider_);
}

void ComparisonView::followScreen() {
  const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
  if (pixels == viewport_.view()) return;
  viewport_.setView(pixels);
  zoomChanged();
}

void ComparisonView::zoomChanged() {
  zoomBar_->setVisible(hasPictures());
  zoomBar_->setZoom(viewport_.zoom(), viewport_.isFitting());
  placeParts();
  update();
}

void ComparisonView::zoomBySteps(double steps, QPoint atPixel) {
  wheelSteps_ += steps;
  while (std::abs(wheelSteps_) >= 1) {
    const int direction = wheelSteps_ > 0 ? 1 : -1;
    wheelSteps_ -= direction;
    viewport_.zoomTo(viewport_.nextZoom(direction), atPixel);
  }
  zoomChanged();
}

void ComparisonView::zoomTo(double zoom, QPoint atPixel) {
  viewport_.zoomTo(zoom, atPixel);
  zoomChanged();
}

void ComparisonView::zoomToFit() {
  viewport_.fit();
  zoomChanged();
}

void ComparisonView::pan(QPoint pixels) {
  const QPoint origin = viewport_.origin();
  viewport_.panBy(pixels);
  if (viewport_.origin() != origin) update();
}

void ComparisonView::setPeeking(bool peeking) {
  if (peeking_ == peeking) return;
  peeking_ = peeking;
  update();
}

void ComparisonView::placeParts() {
  const QSize bar = zoomBar_->sizeHint();
  zoomBar_->setGeometry(QRect({width() - partsMargin - bar.width(), partsMargin}, bar));
  QRect sign = busySign_->rect();
  if (hasPictures()) {
    const QRectF caption = captionRect(Side::After);
    const double right = caption.isEmpty() || !pair_.after ? width() - partsMargin : caption.left() - tokens::space2;
    sign.moveBottomRight(QPoint(static_cast<int>(right), height() - partsMargin) - QPoint(1, 1));
  } else {
    sign.moveCenter(rect().center());
  }
  busySign_->setGeometry(sign);
}

QPoint ComparisonView::pixelAt(QPointF position) const {
  const QPointF pixel = position * devicePixelRatioF();
  return {static_cast<int>(std::floor(pixel.x())), static_cast<int>(std::floor(pixel.y()))};
}

QPoint ComparisonView::middlePixel() const {
  return {viewport_.view().width() / 2, viewport_.view().height() / 2};
}

int ComparisonView::dividerPixel() const {
  const QRect shown = viewport_.visible();
  return shown.left() + static_cast<int>(std::lround(divider_ * shown.width()));
}

double ComparisonView::dividerX() const {
  return dividerPixel() / devicePixelRatioF();
}

QRectF ComparisonView::handleRect() const {
  const QRect shown = viewport_.visible();
  const double middle = (shown.top() + shown.height() / 2.0) / devicePixelRatioF();
  QRectF handle(0, 0, handleDiameter, handleDiameter);
  // At the ends the handle stays whole, so that it can be taken again.
  handle.moveCenter({std::clamp(dividerX(), handleDiameter / 2, width() - handleDiameter / 2), middle});
  return handle;
}

bool ComparisonView::isOnDivider(QPointF position) const {
  if (!isDivided()) return false;
  const QRectF handle = handleRect();
  if (handle.contains(position)) return true;
  const double ratio = devicePixelRatioF();
  const QRect shown = viewport_.visible();
  return std::abs(position.x() - dividerX()) <= tokens::minimumHit / 2.0 && position.y() >= shown.top() / ratio &&
         position.y() <= (shown.bottom() + 1) / ratio;
}

void ComparisonView::updateAround(double dividerX) {
  const int reach = static_cast<int>(handleDiameter / 2) + tokens::focusRingRoom;
  update(QRectF(dividerX - reach, 0, 2 * reach, height()).toAlignedRect());
  update(handleRect().toAlignedRect().adjusted(-reach, -reach, reach, reach));
}

}  // namespace vellora
