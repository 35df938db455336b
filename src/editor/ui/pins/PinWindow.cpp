#include "editor/ui/pins/PinWindow.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QTimer>
#include <QToolTip>
#include <QWindow>

#include "editor/ui/pins/PinChrome.h"
#include "kit/Compositing.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"
#include "platform/WindowHints.h"

namespace vellora {
namespace {

constexpr double notch = 120;  // one step of a wheel, in eighths of a degree
constexpr double zoomPerNotch = 1.1;
constexpr double zoomPerKey = 1.25;
constexpr double opacityPerNotch = 0.1;
constexpr double gripInside = 5;  // how far from an edge a pull resizes
constexpr double gripOutside = 5;
constexpr double gripCorner = 14;
constexpr double leastChromedHeight = 40;  // a lower picture would vanish below its controls: they stand above it
constexpr int settleTime = 250;            // until the window manager has answered, in ms
constexpr int screenSettleTime = 1500;     // until it has moved windows after a change of the screens
constexpr double shadowRadius = 24;
constexpr int badgeStay = 900;
constexpr int badgeHeight = 24;
constexpr int badgePadding = 10;

PixelRect deviceRect(const QRectF& rect, double ratio) {
  const QRect device = QRectF(rect.topLeft() * ratio, rect.size() * ratio).toAlignedRect();
  return {device.x(), device.y(), device.width(), device.height()};
}

Qt::CursorShape cursorFor(const PinEdges& edges) {
  if (!edges.any()) return Qt::ArrowCursor;
  if ((edges.left && edges.top) || (edges.right && edges.bottom)) return Qt::SizeFDiagCursor;
  if ((edges.right && edges.top) || (edges.left && edges.bottom)) return Qt::SizeBDiagCursor;
  return edges.left || edges.right ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

}  // namespace

PinWindow::PinWindow(Parts parts)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::NoDropShadowWindowHint),
      model_(parts.model),
      hints_(parts.hints),
      otherPictures_(std::move(parts.otherPictures)),
      picture_(std::move(parts.image), parts.runLoop, parts.queue, [this] { update(); }),
      blended_(isComposited(screen())),
      chrome_(new PinChrome(this)),
      settle_(new QTimer(this)),
      badgeStay_(new QTimer(this)) {
  setAttribute(Qt::WA_TranslucentBackground);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_QuitOnClose, false);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setFont(bodyFont());
  //% "Pinned picture"
  setAccessibleName(qtTrId("pin.window"));
  setWindowTitle(accessibleName());
  repaintOnThemeChange(*this);

  settle_->setSingleShot(true);
  settle_->setInterval(settleTime);
  badgeStay_->setSingleShot(true);
  badgeStay_->setInterval(badgeStay);
  connect(settle_, &QTimer::timeout, this, &PinWindow::takeOverPosition);
  connect(badgeStay_, &QTimer::timeout, this, [this] {
    badge_.clear();
    update();
  });
  connect(chrome_, &PinChrome::copyRequested, this, &PinWindow::copyRequested);
  connect(chrome_, &PinChrome::editRequested, this, &PinWindow::editRequested);
  connect(chrome_, &PinChrome::closeRequested, this, &PinWindow::closeRequested);
  connect(chrome_, &PinChrome::menuRequested, this, &PinWindow::menuRequested);
  connect(chrome_, &PinChrome::dragRequested, this, &PinWindow::dragRequested);
  connect(chrome_, &PinChrome::actualSizeRequested, this, [this] {
    model_.toggleActualSize();
    follow(Describe::Scale);
  });
}

// Geometry

QMargins PinWindow::room() const {
  const int shadow = blended_ ? PanelShadow::margin() : 0;
  const double narrow = (PinChrome::height - model_.frame().size.width) / 2;
  const int across = std::max(shadow, static_cast<int>(std::ceil(narrow)));
  const int above = hasChromeAbove() ? std::max(shadow, PinChrome::height) : shadow;
  return {across, above, across, shadow};
}

bool PinWindow::hasChromeAbove() const {
  return model_.frame().size.height < leastChromedHeight;
}

QRect PinWindow::pictureInWindow() const {
  const QMargins around = room();
  const Size size = model_.frame().size;
  return {around.left(), around.top(), static_cast<int>(size.width), static_cast<int>(size.height)};
}

void PinWindow::follow(Describe what) {
  const QPoint origin(static_cast<int>(std::round(model_.frame().minX())),
                      static_cast<int>(std::round(model_.frame().minY())));
  const QMargins around = room();
  const QRect next = QRect(origin, pictureInWindow().size()).marginsAdded(around);
  const bool resized = next.size() != size();
  setGeometry(next);
  settle_->start();
  if (resized) {
    QToolTip::hideText();
    update();
  }
  arrangeChrome();
  describe(what);
}

void PinWindow::followLook(Describe what) {
  limitInput();
  if (model_.isClickThrough()) chrome_->fadeOut();
  describe(what);
  update();
}

void PinWindow::arrangeChrome() {
  const QRect picture = pictureInWindow();
  const auto tier = model_.chromeTier();
  constexpr int inset = static_cast<int>(PinGeometry::chromeInset);
  const int width = std::max(picture.width() - 2 * inset, PinChrome::widthOf(tier));
  QRect area(0, 0, width, PinChrome::height);
  area.moveCenter(picture.center());
  area.moveTop(hasChromeAbove() ? picture.top() - PinChrome::height : picture.top() + inset);
  chrome_->arrange(tier, area);
  chrome_->setScale(model_.scale());
}

void PinWindow::limitInput() {
  if (!windowHandle()) return;
  if (hints_ == nullptr) {
    windowHandle()->setFlag(Qt::WindowTransparentForInput, model_.isClickThrough());
    return;
  }
  std::vector<PixelRect> regions;
  if (!model_.isClickThrough()) {
    const double grip = blended_ ? gripOutside : 0;
    const double ratio = devicePixelRatioF();
    regions.push_back(deviceRect(QRectF(pictureInWindow()).adjusted(-grip, -grip, grip, grip), ratio));
    regions.push_back(deviceRect(chrome_->geometry(), ratio));
  }
  hints_->limitInput(winId(), regions);
}

void PinWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (hints_ != nullptr) {
    const int margin = blended_ ? PanelShadow::margin() : 0;
    hints_->setShadowMargin(winId(), static_cast<int>(std::lround(margin * devicePixelRatioF())));
  }
  limitInput();
  windowHandle()->installEventFilter(this);
}

bool PinWindow::eventFilter(QObject* watched, QEvent* event) {
  // Window managers that put a frame around the window learn only of changes made after that.
  if (event->type() == QEvent::Expose && watched == windowHandle()) limitInput();
  return QWidget::eventFilter(watched, event);
}

void PinWindow::resizeEvent(QResizeEvent*) {
  arrangeChrome();
  limitInput();
}

void PinWindow::moveEvent(QMoveEvent*) {
  settle_->start();
}

void PinWindow::expectSettling() {
  screensChanged_.start();
}

void PinWindow::takeOverPosition() {
  if (grip_ != Grip::None || model_.isPinching()) return;
  const QPoint origin = pos() + pictureInWindow().topLeft();
  const bool settling = screensChanged_.isValid() && screensChanged_.elapsed() < screenSettleTime;
  model_.movedElsewhere({static_cast<double>(origin.x()), static_cast<double>(origin.y())}, settling);
}

// Painting

QSize PinWindow::deviceSize(const QPainter& painter) const {
  const double ratio = painter.device()->devicePixelRatioF();
  return picture_.paintedSize((QSizeF(pictureInWindow().size()) * ratio).toSize());
}

double PinWindow::cornerRadius(const QRectF& picture) const {
  if (!model_.style().roundedCorners || !blended_) return 0;
  return std::min({PinStyle::cornerRadius, picture.width() / 2, picture.height() / 2});
}

void PinWindow::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const double ratio = painter.device()->devicePixelRatioF();
  const QSize device = deviceSize(painter);
  const QRectF picture(snapped(painter, pictureInWindow()).topLeft(), QSizeF(device) / ratio);
  const double radius = cornerRadius(picture);
  if (blended_) {
    if (model_.style().shadow) paintShadow(painter, picture);
    painter.setOpacity(model_.opacity());
  } else {
    painter.fillRect(event->rect(), Theme::shared().palette().raised);
  }
  painter.save();
  painter.translate(picture.topLeft());
  painter.scale(1 / ratio, 1 / ratio);
  const QRectF exposed = QRectF(event->rect()).translated(-picture.topLeft());
  picture_.paint(painter, device, QRectF(exposed.topLeft() * ratio, exposed.size() * ratio).toAlignedRect(),
                 radius * ratio);
  painter.restore();
  painter.setOpacity(1);
  if (!blended_ && model_.style().shadow) {
    strokeRounded(painter, rect(), 0, Theme::shared().palette().controlBorder);
  }
  if (!badge_.isEmpty()) paintBadge(painter, picture);
}

void PinWindow::paintShadow(QPainter& painter, const QRectF& picture) {
  // Only outside the picture: it would show through one that is translucent itself.
  const double radius = cornerRadius(picture);
  const int corner = static_cast<int>(std::ceil(radius));
  const QRect body = picture.toAlignedRect();
  QRegion corners;
  for (const int x : {body.left(), body.right() + 1 - corner}) {
    for (const int y : {body.top(), body.bottom() + 1 - corner}) corners += QRect(x, y, corner, corner);
  }
  painter.save();
  painter.setClipRegion((QRegion(rect()) - body) + corners, Qt::IntersectClip);
  painter.setOpacity(model_.opacity());
  // The blur needs some body to be dark enough: sharp corners cast a slightly round shadow.
  shadow_.paint(painter, picture, std::min({shadowRadius, picture.width() / 2, picture.height() / 2}));
  if (corner > 0) {
    painter.setOpacity(1);
    painter.setClipRegion(corners, Qt::IntersectClip);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    fillRounded(painter, picture, radius, Qt::black);
  }
  painter.restore();
}

void PinWindow::paintBadge(QPainter& painter, const QRectF& picture) {
  painter.setFont(tabularFont(badgeFont()));
  QRectF pill(0, 0, painter.fontMetrics().horizontalAdvance(badge_) + 2 * badgePadding, badgeHeight);
  pill.moveCenter(picture.center());
  if (picture.height() > 3 * badgeHeight) pill.moveBottom(picture.bottom() - PinGeometry::chromeInset);
  fillRounded(painter, pill, badgeHeight / 2.0, pinChromeGround());
  strokeRounded(painter, pill, badgeHeight / 2.0, pinChromeEdge());
  painter.setPen(pinChromeInk());
  painter.drawText(pill, Qt::AlignCenter, badge_);
}

void PinWindow::describe(Describe what) {
  const bool readoutTells = chrome_->isWanted() && chrome_->tier() == PinGeometry::ChromeTier::Full;
  if (what == Describe::Nothing || (what == Describe::Scale && readoutTells)) return;
  const double shown = what == Describe::Scale ? model_.scale() : model_.opacity();
  const QString percent = qtTrId("pin.percent").arg(std::lround(shown * 100));
  //% "Opacity %1"
  badge_ = what == Describe::Scale ? percent : qtTrId("pin.opacity.badge").arg(percent);
  badgeStay_->start();
  update();
}

// Input

bool PinWindow::event(QEvent* event) {
  if (event->type() == QEvent::NativeGesture && pinchEvent(*static_cast<QNativeGestureEvent*>(event))) return true;
  return QWidget::event(event);
}

bool PinWindow::pinchEvent(const QNativeGestureEvent& event) {
  switch (event.gestureType()) {
    case Qt::BeginNativeGesture:
      QToolTip::hideText();
      model_.beginPinch();
      return true;
    case Qt::ZoomNativeGesture:
      if (!model_.isPinching()) model_.beginPinch();
      model_.pinch(event.value());
      follow(Describe::Scale);
      return true;
    case Qt::EndNativeGesture:
      model_.endPinch();
      follow(Describe::Scale);
      return true;
    default:
      return false;
  }
}

void PinWindow::enterEvent(QEnterEvent*) {
  // The desktop may have begun or ceased to blend windows since.
  if (std::exchange(blended_, isComposited(screen())) != blended_) follow();
  if (!model_.isClickThrough()) chrome_->fadeIn();
}

void PinWindow::leaveEvent(QEvent*) {
  if (!held_ && grip_ == Grip::None) chrome_->fadeOut();
}

void PinWindow::holdChrome(bool held) {
  held_ = held;
  if (!held && !underMouse()) chrome_->fadeOut();
}

PinEdges PinWindow::edgesAt(QPointF position) const {
  const QRectF picture = pictureInWindow();
  const double outside = blended_ ? gripOutside : 0;
  if (!picture.adjusted(-outside, -outside, outside, outside).contains(position)) return {};
  const double across = std::min(gripInside, picture.width() / 6);
  const double down = std::min(gripInside, picture.height() / 6);
  const bool onEdge = !picture.adjusted(across, down, -across, -down).contains(position);
  if (!onEdge) return {};
  // Near a corner both of its edges are meant.
  const double cornerAcross = std::min(gripCorner, picture.width() / 4);
  const double cornerDown = std::min(gripCorner, picture.height() / 4);
  PinEdges edges;
  edges.left = position.x() < picture.left() + across;
  edges.right = position.x() > picture.right() - across;
  edges.top = position.y() < picture.top() + down;
  edges.bottom = position.y() > picture.bottom() - down;
  if (edges.left || edges.right) {
    edges.top = edges.top || position.y() < picture.top() + cornerDown;
    edges.bottom = edges.bottom || position.y() > picture.bottom() - cornerDown;
  }
  if (edges.top || edges.bottom) {
    edges.left = edges.left || position.x() < picture.left() + cornerAcross;
    edges.right = edges.right || position.x() > picture.right() - cornerAcross;
  }
  return edges;
}

void PinWindow::updateCursor(QPointF position) {
  setCursor(cursorFor(edgesAt(position)));
}

void PinWindow::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || grip_ != Grip::None) return;
  QToolTip::hideText();
  const PinEdges edges = edgesAt(event->position());
  if (!edges.any() && !pictureInWindow().contains(event->position().toPoint())) return event->ignore();
  pressed_ = event->globalPosition();
  // Not from where the model believes the window to be: a window manager may have put it elsewhere.
  pressedInside_ = event->position() - QPointF(pictureInWindow().topLeft());
  if (edges.any()) {
    grip_ = Grip::Resizing;
    model_.beginResize(edges);
  } else {
    grip_ = event->modifiers() & Qt::ShiftModifier ? Grip::DraggingOut : Grip::Pressed;
  }
}

void PinWindow::mouseMoveEvent(QMouseEvent* event) {
  const QPointF pulled = event->globalPosition() - pressed_;
  switch (grip_) {
    case Grip::None:
      return updateCursor(event->position());
    case Grip::Resizing:
      model_.resize({pulled.x(), pulled.y()});
      return follow(Describe::Scale);
    case Grip::Pressed:
      if (pulled.manhattanLength() < QApplication::startDragDistance()) return;
      grip_ = Grip::Moving;
      setCursor(Qt::ClosedHandCursor);
      [[fallthrough]];
    case Grip::Moving: {
      const QPointF origin = event->globalPosition() - pressedInside_;
      const bool snapping = !(event->modifiers() & Qt::ControlModifier);
      model_.moveTo({origin.x(), origin.y()}, otherPictures_(), snapping);
      return follow();
    }
    case Grip::DraggingOut:
      if (pulled.manhattanLength() < QApplication::startDragDistance()) return;
      grip_ = Grip::None;
      emit dragRequested();
      return;
  }
}

void PinWindow::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  if (grip_ == Grip::Resizing) model_.endResize();
  grip_ = Grip::None;
  settle_->start();
  updateCursor(event->position());
  if (!underMouse() && !held_) chrome_->fadeOut();
}

void PinWindow::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || edgesAt(event->position()).any() ||
      !pictureInWindow().contains(event->position().toPoint())) {
    return;
  }
  model_.toggleActualSize();
  follow(Describe::Scale);
}

void PinWindow::wheelEvent(QWheelEvent* event) {
  const double notches = event->angleDelta().y() / notch;
  event->accept();
  if (notches == 0 || grip_ != Grip::None) return;
  if (event->modifiers() & Qt::ControlModifier) {
    if (!blended_) return;
    model_.setOpacity(std::round((model_.opacity() + notches * opacityPerNotch) * 100) / 100);
    followLook(Describe::Opacity);
  } else {
    model_.zoomBy(std::pow(zoomPerNotch, notches));
    follow(Describe::Scale);
  }
}

void PinWindow::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  emit menuRequested(byKey ? mapToGlobal(pictureInWindow().center()) : event->globalPos());
}

void PinWindow::keyPressEvent(QKeyEvent* event) {
  const bool control = event->modifiers() & Qt::ControlModifier;
  const double step = event->modifiers() & Qt::ShiftModifier ? 10 : 1;
  const auto zoom = [this](auto change) {
    change();
    follow(Describe::Scale);
  };
  const auto nudge = [this, step](double x, double y) {
    model_.nudge({x * step, y * step});
    follow();
  };
  switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
      return emit closeRequested();
    case Qt::Key_W:
      if (control) return emit closeRequested();
      break;
    case Qt::Key_C:
      if (control) return emit copyRequested();
      break;
    case Qt::Key_S:
      if (control) return emit saveRequested();
      break;
    case Qt::Key_E:
      return emit editRequested();
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return zoom([this] { model_.zoomBy(zoomPerKey); });
    case Qt::Key_Minus:
      return zoom([this] { model_.zoomBy(1 / zoomPerKey); });
    case Qt::Key_0:
      return zoom([this] { model_.setScale(1); });
    case Qt::Key_Left:
      return nudge(-1, 0);
    case Qt::Key_Right:
      return nudge(1, 0);
    case Qt::Key_Up:
      return nudge(0, -1);
    case Qt::Key_Down:
      return nudge(0, 1);
    default:
      break;
  }
  QWidget::keyPressEvent(event);
}

void PinWindow::closeEvent(QCloseEvent* event) {
  // Its owner takes it away.
  event->ignore();
  emit closeRequested();
}

}  // namespace vellora
