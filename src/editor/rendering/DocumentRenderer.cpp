#include "editor/rendering/DocumentRenderer.h"

#include <QImage>
#include <QPainter>

#include "editor/backdrop/BackdropLayout.h"
#include "editor/painting/AnnotationPainter.h"
#include "media/codecs/ImageConversion.h"

namespace vellora {

struct DocumentRenderer::Private {
  AnnotationPainter annotations;
};

DocumentRenderer::DocumentRenderer() : d_(std::make_unique<Private>()) {}
DocumentRenderer::~DocumentRenderer() = default;

void DocumentRenderer::paint(QImage& target, const QRect& clip, const ImageDocument& document,
                             const QTransform& toDevice, const RenderOptions& options) {
  QPainter painter(&target);
  painter.setClipRect(clip);
  painter.setTransform(toDevice);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const CapturePiece& piece : document.pieces) {
    const QRectF source(piece.visibleRect.minX() * piece.scale, piece.visibleRect.minY() * piece.scale,
                        piece.visibleRect.size.width * piece.scale, piece.visibleRect.size.height * piece.scale);
    painter.drawImage(QRectF(piece.origin.x, piece.origin.y, piece.pointSize.width, piece.pointSize.height),
                      toImage(piece.image), source);
  }
  for (const AnnotationPtr& annotation : document.annotations) {
    if (isRedaction(*annotation)) {
      const Rect rect = spannedRect(*annotation);
      painter.fillRect(QRectF(rect.minX(), rect.minY(), rect.size.width, rect.size.height), Qt::black);
    }
    d_->annotations.draw(painter, *annotation, options.hiddenGlyphs == annotation->id);
  }
}

Rect DocumentRenderer::changedRect(const ImageDocument& before, const ImageDocument& after) {
  return backdropLayout(before).document.united(backdropLayout(after).document);
}

void DocumentRenderer::clear() {}

QRect repaintRect(const Rect& changed, const QTransform& toDevice) {
  constexpr int reach = 2;
  if (changed.isEmpty()) return {};
  const QRectF rect(changed.minX(), changed.minY(), changed.size.width, changed.size.height);
  return toDevice.mapRect(rect).toAlignedRect().adjusted(-reach, -reach, reach, reach);
}

}  // namespace vellora
