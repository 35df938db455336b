#pragma once

#include <functional>
#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

#include "editor/painting/AnnotationPainter.h"
#include "editor/rendering/LensLayer.h"
#include "editor/rendering/PixelSource.h"
#include "editor/rendering/Scene.h"

namespace vellora {

class Surface;

/// Draws the content of documents, without the backdrop behind it: pieces, annotations, redactions, blurs and lenses in
/// their order. Keeps the pieces' smaller sizes and the pictures of blurs and lenses.
///
/// Redactions are safe by construction: pieces are read through PixelSource, which has them applied, so nothing that
/// scales, blurs or enlarges can meet a hidden pixel. In their place in the z-order they are drawn once more, over the
/// annotations below; and over what a blur or a lens shows they are drawn all, also those that lie above it.
class ContentPainter {
 public:
  /// Draws the part `clip` of `target` under `toDevice`, which scales and moves only.
  void paint(QImage& target, const QRect& clip, const Scene& scene, const QTransform& toDevice);

  /// Lets go of what none of `scenes` needs. Call it with all that will be drawn again.
  void keepOnly(const std::vector<std::shared_ptr<const Scene>>& scenes);

  /// How many pictures of blurs and lenses were made so far.
  std::uint64_t picturesMade() const { return picturesMade_; }

 private:
  /// What a blur or a lens shows.
  struct Picture {
    Rect place;  ///< in document points
    PixelSource color;
    std::unique_ptr<PixelSource> soft;  ///< with transparency, where `color` has none
  };
  using Drawing = std::function<void(Surface&, const QRect& clip)>;

  void readyPieces(const Scene& scene);
  void readyPictures(const Scene& scene, const QRect& clip, const DeviceMap& map);
  void makePictures(const Scene& scene, std::span<const std::size_t> items);
  void makePicture(const Scene& scene, std::size_t index, const QImage& below, QPoint corner);

  void drawPieces(Surface& surface, const QRect& clip, const Scene& scene);
  void drawItem(Surface& surface, const QRect& clip, const Scene& scene, std::size_t index);
  void drawRedaction(Surface& surface, const QRect& clip, const Scene& scene, const Scene::Item& item);
  void drawGaussian(Surface& surface, const QRect& clip, const Scene& scene, const Scene::Item& item);
  void drawLens(Surface& surface, const QRect& clip, const Scene& scene, std::size_t index);
  /// The pixels `part` of a lens without what is below it; null when memory is short.
  QImage lensImage(const QRect& part, const QTransform& toDevice, const Scene& scene, std::size_t index);
  void drawRedactionsAbove(Surface& surface, const QRect& clip, const Scene& scene, std::size_t index);
  /// Draws with the scene's shape as a stencil, if there is one.
  void drawShaped(Surface& surface, const QRect& clip, const Scene& scene, const Drawing& drawing);

  AnnotationPainter annotations_;
  std::unordered_map<std::uint64_t, std::unique_ptr<PixelSource>> sources_;  ///< by key of the picture
  std::unordered_map<std::uint64_t, std::unique_ptr<Picture>> pictures_;     ///< by key of the item
  LensLayers layers_;
  std::uint64_t picturesMade_ = 0;
};

}  // namespace vellora
