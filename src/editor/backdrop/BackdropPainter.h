#pragma once

#include <memory>

#include "editor/backdrop/BackdropLayout.h"

class QImage;
class QPainter;
class QPainterPath;
class QRectF;

namespace vellora {

/// Draws the backdrop: everything behind the content, and what is done to the content's edges. Keeps what is costly
/// (pictures of the person's, shadows, grain) until its input changes. One per renderer; any one thread at a time.
class BackdropPainter {
 public:
  BackdropPainter();
  ~BackdropPainter();

  /// Paints background, glow and grain over `layout.document`, the shadow of the content and its device frame in their
  /// placement. `painter` has document points as coordinates, only scaled and moved, and shows at most its clip; draws
  /// nothing that depends on the content's pixels. A part painted alone is the same as in the whole. What opaque pieces
  /// are going to cover is left out while the content lies flat.
  void paintBehind(QPainter& painter, const ImageDocument& document, const BackdropLayout& layout);

  /// The shape that shows of the content, in document points before the placement: the pieces with their rounded
  /// corners, or the screen of the device frame. Empty with the backdrop off: nothing is cut.
  static QPainterPath contentShape(const ImageDocument& document, const BackdropLayout& layout);

  /// Paints what stands over the content (a camera, the edge of a window). `painter` has the content's coordinates:
  /// whoever places the content applies the placement to this, too.
  static void paintOver(QPainter& painter, const ImageDocument& document, const BackdropLayout& layout);

  /// Paints a background alone into `rect`, as for a tile that offers it.
  void drawBackground(QPainter& painter, const QRectF& rect, const BackdropBackground& background);

  /// Blurs the edges of the finished document as the settings say; `image` shows all of `layout.document`, at any
  /// scale, as RGB32 or ARGB32_Premultiplied.
  static void applyEdgeBlur(QImage& image, const BackdropSettings& settings);

 private:
  struct Cache;
  std::unique_ptr<Cache> cache_;
};

}  // namespace vellora
