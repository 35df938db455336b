#include "capture/ui/OverlayPainter.h"

#include <algorithm>
#include <cmath>

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include "capture/ui/OverlayTextTable.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

// The overlay lies over pictures of any colour: its chrome is dark in both themes.
const ThemeColors& chrome() {
  return Theme::palette(Appearance::Dark);
}

QColor chromeGround() {
  QColor color = chrome().raised;
  color.setAlphaF(0.94F);
  return color;
}

constexpr double pillPaddingX = 10;
constexpr double badgeHeight = 24;
constexpr double hintHeight = 32;
constexpr double hintPaddingX = 16;

PixelSize pillSize(const QString& text, const QFont& font, double paddingX, double height) {
  const double width = QFontMetricsF(font).horizontalAdvance(text) + 2 * paddingX;
  return {static_cast<int>(std::ceil(width)), static_cast<int>(std::lround(height))};
}

QFont scaled(QFont font, double scale) {
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(font.pixelSize() * scale))));
  return font;
}

}  // namespace

QImage sharedImage(const Bitmap& bitmap) {
  if (bitmap.isNull()) return {};
  auto* owner = new std::shared_ptr<const void>(bitmap.owner());
  return {reinterpret_cast<const uchar*>(bitmap.row(0)),
          bitmap.width(),
          bitmap.height(),
          static_cast<qsizetype>(bitmap.stride()),
          bitmap.alpha() == PixelAlpha::Opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied,
          [](void* kept) { delete static_cast<std::shared_ptr<const void>*>(kept); },
          owner};
}

QRect OverlayPainter::local(const PixelRect& rect) const {
  return {rect.x - display_.frame.x, rect.y - display_.frame.y, rect.width, rect.height};
}

QFont OverlayPainter::figures() const {
  return scaled(tabularFont(badgeFont()), display_.scale);
}
QFont OverlayPainter::words() const {
  return scaled(secondaryFont(), display_.scale);
}

OverlayTexts OverlayPainter::texts(const OverlayScene& scene, bool withHint) const {
  OverlayTexts texts;
  if (scene.display != display_.id) return texts;
  texts.badge = overlayBadge(scene, display_);
  if (!texts.badge.isEmpty()) {
    texts.badgeSize = pillSize(texts.badge, figures(), pixels(pillPaddingX), pixels(badgeHeight));
  }
  if (withHint) texts.hint = overlayHint(scene.hintKey);
  if (!texts.hint.isEmpty()) {
    texts.hintSize = pillSize(texts.hint, words(), pixels(hintPaddingX), pixels(hintHeight));
  }
  return texts;
}

void OverlayPainter::paint(QImage& surface, const QRegion& region, const OverlayParts& parts,
                           double hintOpacity) const {
  QPainter painter(&surface);
  painter.setClipRegion(region);
  paintGround(painter, region, parts.clear);
  for (const PixelRect& edge : parts.frameEdges) painter.fillRect(local(edge), chrome().accent);
  const auto isDirty = [&](const PixelRect& rect) { return region.intersects(local(rect)); };
  painter.setRenderHint(QPainter::Antialiasing);
  if (std::ranges::any_of(parts.handles, isDirty)) paintHandles(painter, parts);
  if (parts.badge && isDirty(*parts.badge)) paintPill(painter, *parts.badge, parts.badgeText, figures());
  if (parts.hint && isDirty(*parts.hint)) {
    painter.setOpacity(hintOpacity);
    paintPill(painter, *parts.hint, parts.hintText, words());
    painter.setOpacity(1);
  }
  if (std::ranges::any_of(parts.marker, isDirty)) paintMarker(painter, parts);
  if (parts.loupe && (isDirty(*parts.loupe) || isDirty(*parts.loupeCaption))) paintLoupe(painter, parts);
}

void OverlayPainter::paintGround(QPainter& painter, const QRegion& region, const PixelRect& clear) const {
  const QImage still = sharedImage(still_);
  const QRect clearHere = local(clear);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  for (const QRect& rect : region) {
    if (still.isNull()) {
      painter.fillRect(rect, QColor(0x30, 0x30, 0x30));
    } else {
      painter.drawImage(rect.topLeft(), still, rect);
    }
  }
  painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  QColor shade(Qt::black);
  shade.setAlphaF(1.0F - static_cast<float>(dimmedTo));
  for (const QRect& rect : region.subtracted(clearHere)) painter.fillRect(rect, shade);
}

void OverlayPainter::paintPill(QPainter& painter, const PixelRect& place, const QString& text,
                               const QFont& font) const {
  const QRectF box = local(place);
  const double radius = std::min(box.height() / 2, pixels(tokens::controlRadius));
  painter.setPen(Qt::NoPen);
  painter.setBrush(chromeGround());
  painter.drawRoundedRect(box, radius, radius);
  painter.setPen(chrome().text);
  painter.setFont(font);
  painter.drawText(box, Qt::AlignCenter, text);
}

void OverlayPainter::paintHandles(QPainter& painter, const OverlayParts& parts) const {
  const double rim = std::max(1.0, std::round(pixels(1.5)));
  for (const PixelRect& handle : parts.handles) {
    const QRectF box = local(handle);
    painter.setPen(Qt::NoPen);
    painter.setBrush(chrome().accent);
    painter.drawEllipse(box);
    painter.setBrush(Qt::white);
    painter.drawEllipse(box.adjusted(rim, rim, -rim, -rim));
  }
}

/// White arms with a dark rim are seen on every ground.
void OverlayPainter::paintMarker(QPainter& painter, const OverlayParts& parts) const {
  painter.setRenderHint(QPainter::Antialiasing, false);
  const int rim = std::max(1, static_cast<int>(std::lround(pixels(1))));
  for (const PixelRect& arm : parts.marker) {
    painter.fillRect(local(arm), QColor(0, 0, 0, 200));
    painter.fillRect(local(arm).adjusted(rim, rim, -rim, -rim), Qt::white);
  }
  painter.setRenderHint(QPainter::Antialiasing);
}

void OverlayPainter::paintLoupe(QPainter& painter, const OverlayParts& parts) const {
  // Nothing may reach beyond the announced rectangle, smoothed edges included.
  const QRectF glass = QRectF(local(*parts.loupe)).adjusted(1, 1, -1, -1);
  const double rim = std::max(1.0, std::round(pixels(overlay::loupeRim)));
  const int count = overlay::loupePixels;
  const double cell = std::max(1.0, std::round(pixels(overlay::loupeZoom)));
  QRectF inner(0, 0, count * cell, count * cell);
  inner.moveCenter(glass.center());
  const PixelPoint center{parts.loupePixel.x - display_.frame.x, parts.loupePixel.y - display_.frame.y};

  const QImage still = sharedImage(still_);
  const QImage source = still.copy(center.x - count / 2, center.y - count / 2, count, count);

  painter.setPen(Qt::NoPen);
  painter.setBrush(chromeGround());
  painter.drawEllipse(glass);
  if (!source.isNull()) {
    QBrush magnified(source);
    magnified.setTransform(QTransform(cell, 0, 0, cell, inner.x(), inner.y()));
    painter.setBrush(magnified);
    painter.drawEllipse(inner);
  }

  // A faint grid tells the pixels apart.
  QPainterPath round;
  round.addEllipse(inner);
  painter.save();
  painter.setClipPath(round, Qt::IntersectClip);
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (int i = 1; i < count; ++i) {
    const int x = static_cast<int>(std::lround(inner.x() + i * cell));
    const int y = static_cast<int>(std::lround(inner.y() + i * cell));
    painter.fillRect(QRectF(x, inner.y(), 1, inner.height()), QColor(128, 128, 128, 48));
    painter.fillRect(QRectF(inner.x(), y, inner.width(), 1), QColor(128, 128, 128, 48));
  }
  painter.restore();

  const int before = count / 2;
  const QRectF middle(inner.x() + before * cell, inner.y() + before * cell, cell, cell);
  const double line = std::max(1.0, std::round(pixels(1)));
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(0, 0, 0, 200), line, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.drawRect(middle.adjusted(-line * 1.5, -line * 1.5, line * 1.5, line * 1.5));
  painter.setPen(QPen(Qt::white, line, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.drawRect(middle.adjusted(-line / 2, -line / 2, line / 2, line / 2));

  painter.setPen(QPen(Qt::white, rim));
  painter.drawEllipse(inner.adjusted(-rim / 2 + 0.5, -rim / 2 + 0.5, rim / 2 - 0.5, rim / 2 - 0.5));

  if (still.isNull() || !still.rect().contains(center.x, center.y)) return;
  const QColor color = still.pixelColor(center.x, center.y);
  paintPill(painter, *parts.loupeCaption, color.name().toUpper(), figures());
}

}  // namespace vellora
