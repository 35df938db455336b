#include "editor/ui/backdrop/TileButton.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

#include "kit/Icons.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int ringRoom = 4;
constexpr int iconSide = 16;

}  // namespace

TileButton::TileButton(const QSize& side, const QString& title, QWidget* parent)
    : QAbstractButton(parent), side_(side) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setCheckable(true);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setTitle(title);
  connect(&Theme::shared(), &Theme::changed, this, [this] {
    picture_ = {};
    update();
  });
}

void TileButton::setTitle(const QString& title) {
  setAccessibleName(title);
  setToolTip(title);
}

void TileButton::setPreview(Preview preview) {
  preview_ = std::move(preview);
  picture_ = {};
  update();
}

void TileButton::setIconName(const QString& name) {
  iconName_ = name;
  update();
}

QSize TileButton::sizeHint() const {
  return side_ + QSize(2 * ringRoom, 2 * ringRoom);
}

const QPixmap& TileButton::picture() {
  const double ratio = devicePixelRatioF();
  if (picture_.isNull() || picture_.devicePixelRatio() != ratio) {
    picture_ = QPixmap(side_ * ratio);
    picture_.setDevicePixelRatio(ratio);
    picture_.fill(Qt::transparent);
    QPainter painter(&picture_);
    painter.setRenderHint(QPainter::Antialiasing);
    preview_(painter, QRectF(QPointF(0, 0), side_));
  }
  return picture_;
}

void TileButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const ThemeColors& palette = Theme::shared().palette();
  QRectF tile(QPointF(0, 0), side_);
  tile.moveCenter(QRectF(rect()).center());
  tile = snapped(painter, tile);
  const double radius = tokens::controlRadius;
  if (preview_) {
    QPainterPath shape;
    shape.addRoundedRect(tile, radius, radius);
    QBrush brush(picture());
    const double ratio = devicePixelRatioF();
    brush.setTransform(QTransform::fromScale(1 / ratio, 1 / ratio) *
                       QTransform::fromTranslate(tile.left(), tile.top()));
    painter.fillPath(shape, brush);
    QColor edge = palette.text;
    edge.setAlphaF(0.14F);
    strokeRounded(painter, tile, radius, edge);
  } else {
    fillRounded(painter, tile, radius, palette.sunken);
    strokeRounded(painter, tile, radius, palette.controlBorder);
  }
  if (isDown() || underMouse()) fillRounded(painter, tile, radius, isDown() ? palette.pressed : palette.hover);
  if (!iconName_.isEmpty()) {
    QRectF icon(0, 0, iconSide, iconSide);
    icon.moveCenter(tile.center());
    if (preview_) {
      painter.setPen(Qt::NoPen);
      painter.setBrush(QColor(0, 0, 0, 110));
      painter.drawEllipse(icon.adjusted(-4, -4, 4, 4));
    }
    paintIcon(painter, iconName_, snapped(painter, icon), preview_ ? QColor(Qt::white) : palette.secondaryText);
  }
  if (isChecked() || focus_.visible()) {
    const double grow = 3;
    strokeRounded(painter, tile.adjusted(-grow, -grow, grow, grow), radius + grow,
                  focus_.visible() && !isChecked() ? palette.text : palette.accent, tokens::focusRingWidth);
  }
}

void TileButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
    return;
  }
  QAbstractButton::keyPressEvent(event);
}

void TileButton::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  QAbstractButton::focusInEvent(event);
  update();
}

void TileButton::focusOutEvent(QFocusEvent* event) {
  focus_.focusOut();
  QAbstractButton::focusOutEvent(event);
  update();
}

}  // namespace vellora
