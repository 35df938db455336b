#include "recording/ui/CameraBubble.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QCursor>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

#include "kit/Button.h"
#include "kit/Compositing.h"
#include "kit/Icons.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"
#include "platform/WindowHints.h"
#include "recording/ui/ScreenPlaces.h"

namespace vellora {
namespace {

constexpr double rimWidth = 10;      // inside the edge: pulls that resize
constexpr double sidePerNotch = 24;  // of a wheel
constexpr double notch = 120;
constexpr double edgeWidth = 1.5;

Rect toRect(const QRect& rect) {
  return {{double(rect.x()), double(rect.y())}, {double(rect.width()), double(rect.height())}};
}

/// The rows of a disc, in pixels.
std::vector<PixelRect> discRows(const PixelRect& box) {
  std::vector<PixelRect> rows;
  const double radius = box.height / 2.0;
  for (int y = 0; y < box.height; ++y) {
    const double off = y + 0.5 - radius;
    const double half = std::sqrt(std::max(0.0, radius * radius - off * off));
    const int from = static_cast<int>(std::lround(radius - half));
    if (box.width > 2 * from) rows.push_back({box.x + from, box.y + y, box.width - 2 * from, 1});
  }
  return rows;
}

}  // namespace

CameraBubble::CameraBubble(const DisplayInfo& screen, PreferenceStore& preferences, WindowHints* hints)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint),
      preferences_(preferences),
      hints_(hints),
      place_(BubblePlace::load(preferences)),
      //% "Turn the camera off"
      close_(new IconButton(QStringLiteral("close"), qtTrId("recording.camera.close"), {}, this)) {
  setAttribute(Qt::WA_TranslucentBackground);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_QuitOnClose, false);
  setMouseTracking(true);
  if (QScreen* const target = screenOf(screen)) setScreen(target);
  blended_ = isComposited(this->screen());
  //% "Camera"
  setAccessibleName(qtTrId("recording.camera"));
  setWindowTitle(accessibleName());
  //% "Drag to move, turn the wheel to resize"
  setAccessibleDescription(qtTrId("recording.camera.help"));
  close_->setIconSide(tokens::menuIcon);
  close_->setIconColor(Qt::white);
  close_->setFocusPolicy(Qt::NoFocus);
  close_->setCursor(Qt::ArrowCursor);
  close_->hide();
  connect(close_, &QPushButton::clicked, this, &CameraBubble::closeRequested);
  followTheme(*this);
  follow();
}

Rect CameraBubble::area() const {
  return toRect(screen()->availableGeometry());
}

int CameraBubble::room() const {
  return blended_ ? PanelShadow::margin() : 0;
}

QRect CameraBubble::circle() const {
  return rect().adjusted(room(), room(), -room(), -room());
}

int CameraBubble::pictureSide() const {
  return static_cast<int>(std::lround(circle().width() * devicePixelRatioF()));
}

void CameraBubble::follow() {
  const Rect frame = place_.frameIn(area());
  const QRect next = QRect(static_cast<int>(frame.minX()), static_cast<int>(frame.minY()),
                           static_cast<int>(frame.size.width), static_cast<int>(frame.size.height))
                         .adjusted(-room(), -room(), room(), room());
  const bool isResized = next.size() != size();
  setGeometry(next);
  close_->adjustSize();
  const QRect disc = circle();
  close_->move(disc.center().x() - close_->width() / 2, disc.top() + tokens::space1);
  if (!isResized) return;
  limitParts();
  update();
  emit resized();
}

void CameraBubble::limitParts() {
  if (!isVisible()) return;
  const double ratio = devicePixelRatioF();
  const QRect disc = QRectF(QPointF(circle().topLeft()) * ratio, QSizeF(circle().size()) * ratio).toAlignedRect();
  if (hints_ == nullptr) {
    if (!blended_) setMask(QRegion(circle(), QRegion::Ellipse));
    return;
  }
  const auto rows = discRows({disc.x(), disc.y(), disc.width(), disc.height()});
  if (blended_) {
    hints_->limitInput(winId(), rows);
  } else {
    hints_->limitVisible(winId(), rows);
  }
}

void CameraBubble::appear() {
  (void)winId();
  // The desktop has made the window by the time it has answered where the pointer is.
  (void)QCursor::pos();
  show();
}

void CameraBubble::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  limitParts();
}

void CameraBubble::setPicture(QImage picture) {
  picture_ = std::move(picture);
  update(circle());
}

void CameraBubble::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRectF disc = snapped(painter, circle());
  if (blended_) shadow_.paint(painter, disc, disc.width() / 2);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const ThemeColors& dark = Theme::palette(Appearance::Dark);
  if (picture_.isNull()) {
    painter.setBrush(dark.sunken);
    painter.drawEllipse(disc);
    QRectF icon(0, 0, 32, 32);
    icon.moveCenter(disc.center());
    paintIcon(painter, QStringLiteral("video"), snapped(painter, icon), dark.secondaryText);
  } else {
    QBrush brush(picture_);
    const double scale = disc.width() / picture_.width();
    brush.setTransform(QTransform(scale, 0, 0, scale, disc.left(), disc.top()));
    painter.setRenderHint(QPainter::SmoothPixmapTransform, picture_.width() != pictureSide());
    painter.setBrush(brush);
    painter.drawEllipse(disc);
  }
  if (close_->isVisible()) {
    // The button is seen on any picture.
    painter.setBrush(QColor(0, 0, 0, 140));
    painter.drawEllipse(QRectF(close_->geometry()).center(), tokens::minimumHit / 2.0, tokens::minimumHit / 2.0);
  }
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(255, 255, 255, blended_ ? 90 : 255), edgeWidth));
  painter.drawEllipse(disc.adjusted(edgeWidth / 2, edgeWidth / 2, -edgeWidth / 2, -edgeWidth / 2));
}

bool CameraBubble::isOnRim(QPointF position) const {
  const QPointF off = position - QRectF(circle()).center();
  return std::hypot(off.x(), off.y()) > circle().width() / 2.0 - rimWidth;
}

void CameraBubble::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressedInside_ = event->position() - QPointF(circle().topLeft());
  const QPointF off = event->position() - QRectF(circle()).center();
  pressedDistance_ = std::max(1.0, std::hypot(off.x(), off.y()));
  pressedSide_ = circle().width();
  pull_ = isOnRim(event->position()) ? Pull::Resize : Pull::Move;
}

void CameraBubble::mouseMoveEvent(QMouseEvent* event) {
  switch (pull_) {
    case Pull::None: {
      const QPointF off = event->position() - QRectF(circle()).center();
      const bool rising = off.x() * off.y() < 0;
      setCursor(!isOnRim(event->position()) ? Qt::OpenHandCursor : rising ? Qt::SizeBDiagCursor : Qt::SizeFDiagCursor);
      return;
    }
    case Pull::Move: {
      // Onto another display it goes with the pointer.
      for (QScreen* const other : screen()->virtualSiblings()) {
        if (other != screen() && other->geometry().contains(event->globalPosition().toPoint())) setScreen(other);
      }
      const QPointF corner = event->globalPosition() - pressedInside_;
      place_.moveTo({corner.x(), corner.y()}, area());
      setCursor(Qt::ClosedHandCursor);
      return follow();
    }
    case Pull::Resize: {
      const QPointF off = event->globalPosition() - (QPointF(pos()) + QRectF(circle()).center());
      place_.resize(pressedSide_ * std::hypot(off.x(), off.y()) / pressedDistance_, area());
      return follow();
    }
  }
}

void CameraBubble::mouseReleaseEvent(QMouseEvent*) {
  if (pull_ == Pull::None) return;
  pull_ = Pull::None;
  remember();
}

void CameraBubble::wheelEvent(QWheelEvent* event) {
  place_.resize(place_.side + event->angleDelta().y() / notch * sidePerNotch, area());
  follow();
  remember();
  event->accept();
}

void CameraBubble::enterEvent(QEnterEvent*) {
  close_->show();
  update();
}

void CameraBubble::leaveEvent(QEvent*) {
  close_->hide();
  update();
}

void CameraBubble::remember() {
  place_.store(preferences_);
}

}  // namespace vellora
