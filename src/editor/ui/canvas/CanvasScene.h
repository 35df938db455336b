#pragma once

#include <optional>

#include <QImage>
#include <QRegion>

#include "editor/ImageDocument.h"
#include "editor/backdrop/BackdropLayout.h"
#include "editor/rendering/DocumentRenderer.h"

class QColor;
class QPainter;

namespace vellora {

/// What the canvas shows behind its handles, on a plane of device pixels whose origin is the document's point (0, 0):
/// the ground with the document's shadow, a pattern where the document is see-through, the document, and from 600 % on
/// the borders of its pixels.
class CanvasScene {
 public:
  static constexpr double pixelGridFrom = 6;  ///< zoom

  /// Shows another state of the document; returns what of the plane looks different at `scale` pixels per point.
  QRegion setDocument(const ImageDocument& document, double scale);
  const ImageDocument& document() const { return document_; }
  const BackdropLayout& layout() const { return layout_; }
  /// The colour around the document.
  static QColor ground();

  /// Paints `clip` of `target`; `planeToTarget` tells where the plane's origin lies in it, `ratio` the device pixels of
  /// a point of the view.
  void paint(QImage& target, const QRect& clip, QPoint planeToTarget, double scale, double ratio);
  /// The same without the borders of the pixels.
  void paintPlain(QImage& target, const QRect& clip, QPoint planeToTarget, double scale, double ratio);
  bool showsPixelGrid(double scale, double ratio) const { return scale >= pixelGridFrom * ratio && layout_.isFlat; }

 private:
  void paintGround(QPainter& painter, const QRect& clip, QPoint planeToTarget, double scale, double ratio) const;
  void paintPattern(QPainter& painter, const QRegion& region, QPoint planeToTarget, double ratio) const;
  void paintPixelGrid(QPainter& painter, const QRect& clip, QPoint planeToTarget, double scale) const;

  ImageDocument document_;
  BackdropLayout layout_;
  DocumentRenderer renderer_;
};

}  // namespace vellora
