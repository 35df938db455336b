#include <algorithm>
#include <cmath>

#include <QPaintEvent>
#include <QPainter>

#include "editor/ui/compressor/ComparisonParts.h"
#include "editor/ui/compressor/ComparisonView.h"
#include "kit/Icons.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int captionHeight = 24;
constexpr int captionPadding = 8;
constexpr int checkerSide = 8;
constexpr double dividerWidth = 2;
constexpr double chevronReach = 4;
constexpr double chevronGap = 4;

QPixmap checkerTile(double ratio) {
  const bool dark = Theme::shared().appearance() == Appearance::Dark;
  const int side = std::max(1, static_cast<int>(std::lround(checkerSide * ratio)));
  QPixmap tile(2 * side, 2 * side);
  tile.fill(dark ? QColor(0x2A2C30) : QColor(0xFFFFFF));
  QPainter painter(&tile);
  const QColor other = dark ? QColor(0x3A3D42) : QColor(0xE6E8EB);
  painter.fillRect(0, 0, side, side, other);
  painter.fillRect(side, side, side, side, other);
  return tile;
}

/// Makes device pixels the painter's unit, and whole ones wherever a fractional scale puts the widget in its window.
void useDevicePixels(QPainter& painter, const QWidget& widget) {
  const double ratio = widget.devicePixelRatioF();
  const QPointF inWindow = QPointF(widget.mapTo(widget.window(), QPoint())) * ratio;
  const QPointF shift = QPointF(inWindow.toPoint()) - inWindow;
  painter.setTransform(QTransform(1 / ratio, 0, 0, 1 / ratio, shift.x() / ratio, shift.y() / ratio));
}

}  // namespace

void ComparisonView::paintEvent(QPaintEvent* event) {
  followScreen();
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  painter.fillRect(event->rect(), palette.sunken);
  if (!message_.isEmpty()) {
    paintMessage(painter);
  } else if (hasPictures()) {
    painter.save();
    useDevicePixels(painter, *this);
    paintPictures(painter, event->rect());
    painter.restore();
    paintCaptions(painter);
    if (isDivided()) paintDivider(painter);
  }
  if (focus_.visible()) strokeRounded(painter, rect(), 0, palette.accent, tokens::focusRingWidth);
}

void ComparisonView::paintPictures(QPainter& painter, const QRect& part) {
  const double ratio = devicePixelRatioF();
  const QRect dirty = QRectF(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio).toAlignedRect();
  const QRect shown = viewport_.visible();
  const int divider = isDivided() ? dividerPixel() : shown.right() + 1;
  const auto paintSide = [&](const ComparisonPicture& picture, QRect clip) {
    clip &= dirty;
    if (clip.isEmpty()) return;
    if (picture.hasAlpha()) {
      painter.save();
      painter.setBrushOrigin(viewport_.origin());
      painter.fillRect(clip, QBrush(checkerTile(ratio)));
      painter.restore();
    }
    ComparisonPicture::Placement placement;
    placement.origin = viewport_.origin();
    const QSizeF whole = QSizeF(viewport_.picture()) * viewport_.zoom();
    placement.scaleX = whole.width() / picture.size().width();
    placement.scaleY = whole.height() / picture.size().height();
    placement.hardEdges = viewport_.zoom() > 1;
    picture.paint(painter, clip, placement);
  };
  paintSide(*pair_.before, QRect(shown.topLeft(), QPoint(divider - 1, shown.bottom())));
  if (isDivided()) paintSide(*pair_.after, QRect(QPoint(divider, shown.top()), shown.bottomRight()));
}

void ComparisonView::paintDivider(QPainter& painter) {
  const ThemeColors& palette = Theme::shared().palette();
  const double ratio = devicePixelRatioF();
  const QRect shown = viewport_.visible();
  QRectF line(0, shown.top() / ratio, dividerWidth, shown.height() / ratio);
  line.moveLeft(dividerX() - dividerWidth / 2);
  // White between two dark lines shows on every picture.
  const double edge = hairline(painter);
  painter.fillRect(snapped(painter, line).adjusted(-edge, 0, edge, 0), QColor(0, 0, 0, 90));
  painter.fillRect(snapped(painter, line), Qt::white);

  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF handle = handleRect();
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0, 0, 0, 60));
  painter.drawEllipse(handle.adjusted(-1, 0, 1, 2));
  painter.setBrush(Qt::white);
  painter.drawEllipse(handle);
  const QColor ink = drag_ == Drag::Divider ? palette.accentFill : QColor(0x1C2024);
  painter.setPen(QPen(ink, tokens::iconStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF middle = handle.center();
  for (const double side : {-1.0, 1.0}) {
    const double x = middle.x() + side * chevronGap;
    painter.drawPolyline(QPolygonF({QPointF(x, middle.y() - chevronReach), QPointF(x + side * chevronReach, middle.y()),
                                    QPointF(x, middle.y() + chevronReach)}));
  }
  painter.restore();
}

QRectF ComparisonView::captionRect(Side side) const {
  const QString& text = side == Side::Before ? captionBefore_ : captionAfter_;
  if (text.isEmpty()) return {};
  const double textWidth = QFontMetricsF(tabularFont(badgeFont())).horizontalAdvance(text);
  const double most = width() - 2.0 * tokens::space3;
  QRectF rect(0, 0, std::min(std::ceil(textWidth) + 2 * captionPadding, most), captionHeight);
  const double y = height() - tokens::space3 - captionHeight;
  rect.moveTopLeft({side == Side::Before ? tokens::space3 : width() - tokens::space3 - rect.width(), y});
  return rect;
}

void ComparisonView::paintCaptions(QPainter& painter) {
  const QRect shown = viewport_.visible();
  const bool divided = isDivided();
  const double divider = divided ? dividerX() : width();
  const auto paintCaption = [&](Side side, const QString& text, const QRectF& room) {
    const QRectF rect = captionRect(side);
    if (rect.isEmpty() || !rect.intersects(room)) return;
    painter.save();
    // The divider wipes over a caption as it does over its picture.
    painter.setClipRect(room, Qt::IntersectClip);
    paintComparisonGround(painter, rect, tokens::controlRadius);
    painter.setFont(tabularFont(badgeFont()));
    painter.setPen(Theme::shared().palette().text);
    const QString fitting =
        painter.fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(rect.width()) - 2 * captionPadding + 1);
    painter.drawText(rect, Qt::AlignCenter, fitting);
    painter.restore();
  };
  if (!divided || dividerPixel() > shown.left()) {
    paintCaption(Side::Before, captionBefore_, QRectF(0, 0, divider, height()));
  }
  if (divided && dividerPixel() <= shown.right()) {
    paintCaption(Side::After, captionAfter_, QRectF(divider, 0, width() - divider, height()));
  }
}

void ComparisonView::paintMessage(QPainter& painter) {
  painter.setFont(bodyFont());
  painter.setPen(Theme::shared().palette().secondaryText);
  const QRect room = rect().adjusted(tokens::space6, tokens::space6, -tokens::space6, -tokens::space6);
  painter.drawText(room, Qt::AlignCenter | Qt::TextWordWrap, message_);
}

void ComparisonView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  followScreen();
}

}  // namespace vellora
