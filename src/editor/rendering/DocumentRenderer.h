#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <QRect>
#include <QRegion>
#include <QTransform>

#include "base/Bitmap.h"
#include "editor/ImageDocument.h"

class QImage;

namespace vellora {

/// What of a document is left out while it is being edited.
struct RenderOptions {
  std::optional<AnnotationId> hiddenGlyphs;  ///< a text being edited in place: only its filled ground is drawn
};

/// Draws documents: the one renderer of canvas, export, history, pins and command line, so that a document looks the
/// same everywhere. Blurs and lenses are kept and made anew only when what they show changes. One thread at a time;
/// each user has one of its own.
class DocumentRenderer {
 public:
  DocumentRenderer();
  ~DocumentRenderer();

  /// Draws the part `clip` (device pixels) of the document into `target`, over what is there. `toDevice` is an affine
  /// map from document points to the pixels of `target`; only scaling and moving. `target` is Format_RGB32 or
  /// Format_ARGB32_Premultiplied. Painting part by part gives the same pixels as painting at once.
  void paint(QImage& target, const QRect& clip, const ImageDocument& document, const QTransform& toDevice,
             const RenderOptions& options = {});

  /// The places of the document (in document points) that look different in `after`: a few, none of them empty.
  /// Everything that depends on a changed place (lenses that show it, blurs that reach it) counts.
  std::vector<Rect> changedRects(const ImageDocument& before, const ImageDocument& after);

  /// Lets go of everything kept.
  void clear();

 private:
  struct Private;
  std::unique_ptr<Private> d_;
};

/// The pixels to paint anew for a change that changedRects() told: `changed` under `toDevice`, with the reach of
/// smoothing.
QRegion repaintRegion(const std::vector<Rect>& changed, const QTransform& toDevice);

/// The finished picture of a document: its document rectangle at `scale` pixels per point (absent: the document's own
/// output scale), transparent where nothing is. Nothing when it is empty, beyond Bitmap's limits, or memory is short.
/// Any thread.
std::optional<Bitmap> renderDocument(const ImageDocument& document, std::optional<double> scale = std::nullopt);

/// The size in pixels renderDocument() gives.
PixelSize renderedSize(const ImageDocument& document, double scale);

}  // namespace vellora
