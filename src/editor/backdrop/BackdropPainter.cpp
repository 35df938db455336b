#include "editor/backdrop/BackdropPainter.h"

#include <algorithm>
#include <cmath>
#include <optional>

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
  cache_->ground.paint(painter, toQt(layout.document), settings, settings.shadow > 0 ? &*cache_->shadow : nullptr);
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
