#pragma once

#include <memory>

#include "editor/backdrop/BackdropLayout.h"

class QImage;
class QPainter;
class QPainterPath;

namespace vellora {

/// Draws the backdrop: everything behind the content, and what is done to the content's edges. Keeps what is costly
/// (pictures of the person's, shadows, grain) until its input changes. One per renderer; any one thread at a time.
class BackdropPainter {
 public:
  BackdropPainter();
  ~BackdropPainter();

  /// Paints background, glow and grain over `layout.document`, then the shadow and the device frame of the content in
  /// its placement. `painter` has document points as coordinates; draws nothing that depends on the content's pixels.
  void paintBehind(QPainter& painter, const ImageDocument& document, const BackdropLayout& layout);

  /// The shape that shows of the content, in document points before the placement: the pieces with their rounded
  /// corners. Empty with the backdrop off: nothing is cut.
  static QPainterPath contentShape(const ImageDocument& document, const BackdropLayout& layout);

  /// Paints what stands over the content (a notch, the edge of a screen), before the placement.
  void paintOver(QPainter& painter, const ImageDocument& document, const BackdropLayout& layout);

  /// Blurs the edges of the finished document as the settings say; `image` shows `layout.document` at `scale` pixels
  /// per point.
  static void applyEdgeBlur(QImage& image, const BackdropSettings& settings, double scale);

 private:
  struct Cache;
  std::unique_ptr<Cache> cache_;
};

}  // namespace vellora
