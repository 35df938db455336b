#include "editor/ui/backdrop/TileButton.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

#include "kit/Icons.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr double ringGap = 2;  // between the ring of a chosen tile and its picture
constexpr int iconSide = 16;

}  // namespace

TileButton::TileButton(const QSize& least, const QString& title, QWidget* parent)
    : QAbstractButton(parent), least_(least) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setCheckable(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
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

const QPixmap& TileButton::picture() {
  const double ratio = devicePixelRatioF();
  const QSize wanted = size() * ratio;
  if (picture_.size() != wanted) {
    picture_ = QPixmap(wanted);
    picture_.fill(Qt::transparent);
    QPainter painter(&picture_);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(ratio, ratio);
    preview_(painter, QRectF(rect()));
  }
  return picture_;
}

void TileButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const ThemeColors& palette = Theme::shared().palette();
  const bool ringed = isChecked() || focus_.visible();
  const double inset = ringed ? tokens::focusRingWidth + ringGap : 0;
  const QRectF tile = snapped(painter, QRectF(rect()).adjusted(inset, inset, -inset, -inset));
  const double radius = tokens::controlRadius - (ringed ? 2 : 0);
  if (preview_) {
    QPainterPath shape;
    shape.addRoundedRect(tile, radius, radius);
    QBrush brush(picture());
    const double ratio = devicePixelRatioF();
    brush.setTransform(QTransform::fromScale(1 / ratio, 1 / ratio) *
                       QTransform::fromScale(tile.width() / width(), tile.height() / height()) *
                       QTransform::fromTranslate(tile.left(), tile.top()));
    painter.setRenderHint(QPainter::SmoothPixmapTransform, ringed);
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
  if (ringed) {
    strokeRounded(painter, rect(), tokens::controlRadius + 1, focus_.visible() ? palette.text : palette.accent,
                  tokens::focusRingWidth);
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
