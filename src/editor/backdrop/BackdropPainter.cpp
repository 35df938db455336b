#include "editor/backdrop/BackdropPainter.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include "editor/backdrop/ContentShadow.h"
#include "editor/backdrop/DeviceFrames.h"
#include "editor/backdrop/EdgeBlur.h"
#include "editor/backdrop/GroundPainter.h"

namespace vellora {
namespace {

QRectF toQt(const Rect& rect) {
  return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

std::optional<DeviceFramePainter> framePainter(const BackdropSettings& settings, const BackdropLayout& layout) {
  if (!settings.deviceFrame) return std::nullopt;
  return DeviceFramePainter(*settings.deviceFrame, toQt(layout.content), settings.innerRadius);
}

double cornerRadius(const CapturePiece& piece, const BackdropSettings& settings) {
  return std::min(settings.innerRadius, std::min(piece.pointSize.width, piece.pointSize.height) / 2);
}

QPainterPath roundedPieces(const ImageDocument& document, const BackdropSettings& settings) {
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  for (const CapturePiece& piece : document.pieces) {
    const double radius = cornerRadius(piece, settings);
    path.addRoundedRect(toQt(piece.frame()), radius, radius);
  }
  return path;
}

/// Where opaque content will cover everything, in document points: what a straight content covers for sure.
std::vector<QRectF> coveredAreas(const ImageDocument& document, const BackdropSettings& settings,
                                 const BackdropLayout& layout) {
  std::vector<QRectF> areas;
  if (!layout.isFlat) return areas;
  for (const CapturePiece& piece : document.pieces) {
    if (piece.image.isNull() || piece.image.alpha() != PixelAlpha::Opaque) continue;
    const double radius = cornerRadius(piece, settings) + 1;
    const QRectF inner = toQt(piece.frame()).adjusted(1, radius, -1, -radius);
    if (!inner.isEmpty()) areas.push_back(inner);
  }
  return areas;
}

/// The same of a frame, which is opaque itself.
std::vector<QRectF> framedArea(const DeviceFramePainter& frame, const BackdropLayout& layout) {
  if (!layout.isFlat) return {};
  const QRectF screen = frame.screen().boundingRect();
  const double corner = std::min(screen.width(), screen.height()) / 8;
  const QRectF area = screen.adjusted(1, corner, -1, -corner);
  if (area.isEmpty() || !frame.silhouette().contains(area)) return {};
  return {area};
}

bool isDrawn(const ImageDocument& document, const BackdropLayout& layout) {
  return document.backdrop.enabled && !layout.document.isEmpty();
}

}  // namespace

struct BackdropPainter::Cache {
  GroundPainter ground;
  QPainterPath silhouette;  ///< of the shadow below
  QRectF visible;
  double strength = 0;
  std::optional<ContentShadow> shadow;
};

BackdropPainter::BackdropPainter() : cache_(std::make_unique<Cache>()) {}
BackdropPainter::~BackdropPainter() = default;

void BackdropPainter::paintBehind(QPainter& painter, const ImageDocument& document, const BackdropLayout& layout) {
  if (!isDrawn(document, layout)) return;
  const BackdropSettings settings = document.backdrop.clamped();
  const auto frame = framePainter(settings, layout);
  if (settings.shadow > 0) {
    const QPainterPath silhouette =
        layout.placement.map(frame ? frame->silhouette() : roundedPieces(document, settings));
    if (!cache_->shadow || cache_->strength != settings.shadow || cache_->visible != toQt(layout.document) ||
        cache_->silhouette != silhouette) {
      const double extent = std::min(std::sqrt(layout.framed.size.width * layout.framed.size.height),
                                     2 * std::min(layout.framed.size.width, layout.framed.size.height));
      cache_->shadow.emplace(silhouette, toQt(layout.document), settings.shadow,
                             std::min(extent * settings.contentScale, 4000.0));
      cache_->silhouette = silhouette;
      cache_->visible = toQt(layout.document);
      cache_->strength = settings.shadow;
    }
  }
  const auto covered = frame ? framedArea(*frame, layout) : coveredAreas(document, settings, layout);
  cache_->ground.paint(painter, toQt(layout.document), settings, settings.shadow > 0 ? &*cache_->shadow : nullptr,
                       covered);
  if (!frame) return;
  painter.save();
  painter.setClipRect(toQt(layout.document), Qt::IntersectClip);
  painter.setWorldTransform(layout.placement, true);
  frame->paint(painter);
  painter.restore();
}

QPainterPath BackdropPainter::contentShape(const ImageDocument& document, const BackdropLayout& layout) {
  if (!isDrawn(document, layout)) return {};
  const BackdropSettings settings = document.backdrop.clamped();
  const auto frame = framePainter(settings, layout);
  return frame ? frame->screen() : roundedPieces(document, settings);
}

void BackdropPainter::paintOver(QPainter& painter, const ImageDocument& document, const BackdropLayout& layout) {
  if (!isDrawn(document, layout)) return;
  if (const auto frame = framePainter(document.backdrop.clamped(), layout)) frame->paintOver(painter);
}

void BackdropPainter::drawBackground(QPainter& painter, const QRectF& rect, const BackdropBackground& background) {
  BackdropSettings settings;
  settings.background = background;
  cache_->ground.paint(painter, rect, settings.clamped(), nullptr);
}

void BackdropPainter::applyEdgeBlur(QImage& image, const BackdropSettings& settings) {
  if (settings.enabled) blurEdges(image, settings.edgeBlurDirection, settings.clamped().edgeBlurStrength);
}

}  // namespace vellora
