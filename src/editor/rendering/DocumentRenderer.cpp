#include "editor/rendering/DocumentRenderer.h"

#include <QImage>
#include <QPainter>

#include "editor/backdrop/BackdropPainter.h"
#include "editor/rendering/ContentPainter.h"
#include "editor/rendering/SceneChange.h"
#include "editor/rendering/Surface.h"
#include "editor/rendering/Warp.h"
#include "media/codecs/ImageConversion.h"

namespace vellora {
namespace {

bool hasEdgeBlur(const BackdropSettings& settings) {
  return settings.enabled && settings.edgeBlurDirection != BackdropSettings::EdgeBlurDirection::None &&
         settings.edgeBlurStrength > 0;
}

/// The map under which `document` fills an image of `size` exactly.
QTransform filling(const Rect& document, QSize size) {
  const double scaleX = size.width() / document.size.width;
  const double scaleY = size.height() / document.size.height;
  return {scaleX, 0, 0, scaleY, -document.minX() * scaleX, -document.minY() * scaleY};
}

/// How many pixels a point of `area` becomes under a projective map at most.
double greatestScale(const QTransform& map, const Rect& area) {
  double greatest = 0;
  for (const double y : {area.minY(), area.maxY()}) {
    for (const double x : {area.minX(), area.maxX()}) {
      const QPointF here = map.map(QPointF(x, y));
      const QPointF right = map.map(QPointF(x + 1, y)) - here;
      const QPointF down = map.map(QPointF(x, y + 1)) - here;
      greatest = std::max({greatest, std::hypot(right.x(), right.y()), std::hypot(down.x(), down.y())});
    }
  }
  return greatest;
}

}  // namespace

struct DocumentRenderer::Private {
  ContentPainter content;
  BackdropPainter backdrop;
  SceneMemory memory;
  std::vector<std::shared_ptr<const Scene>> scenes;  ///< the last few, the latest first

  /// A document with blurred edges, which no part of it shows without the rest.
  struct Finished {
    std::shared_ptr<const Scene> scene;
    QImage sharp;
    std::unique_ptr<PixelSource> blurred;
  };
  Finished finished;

  std::shared_ptr<const Scene> sceneOf(const ImageDocument& document, const RenderOptions& options) {
    // Two states of a document, with and without what is left out while editing.
    constexpr std::size_t kept = 4;
    const auto found = std::ranges::find_if(scenes, [&](const auto& scene) { return scene->shows(document, options); });
    if (found != scenes.end()) {
      std::rotate(scenes.begin(), found, found + 1);
      return scenes.front();
    }
    scenes.insert(scenes.begin(), makeScene(document, options, memory));
    if (scenes.size() > kept) scenes.pop_back();
    content.keepOnly(scenes);
    return scenes.front();
  }

  void paintScene(QImage& target, const QRect& clip, const Scene& scene, const QTransform& toDevice) {
    const Rect& whole = scene.layout.document;
    if (!isPlausible(whole)) return;
    const QRect area = PixelPlacement(whole, DeviceMap(toDevice)).within(clip & target.rect());
    if (area.isEmpty()) return;
    if (!scene.document.backdrop.enabled) {
      content.paint(target, area, scene, toDevice);
      return;
    }
    {
      Surface surface(target, toDevice);
      backdrop.paintBehind(surface.painter(area), scene.document, scene.layout);
    }
    if (scene.layout.placement.type() <= QTransform::TxScale) {
      content.paint(target, area, scene, scene.layout.placement * toDevice);
    } else {
      paintTurned(target, area, scene, toDevice);
    }
  }

  void paintTurned(QImage& target, const QRect& clip, const Scene& scene, const QTransform& toDevice) {
    const QTransform placed = scene.layout.placement * toDevice;
    const double scale =
        std::clamp(greatestScale(placed, scene.layout.content), 0.01, std::max(4 * scene.document.outputScale(), 0.02));
    Rect reach = scene.layout.content;
    for (const Scene::Item& item : scene.items) reach = reach.united(item.bounds);
    const double margin = std::max(reach.size.width, reach.size.height);
    reach = common(reach, grown(scene.layout.content, std::min(margin, 4096.0)));

    const QTransform toFlat = QTransform::fromScale(scale, scale);
    bool invertible = false;
    const QTransform back = placed.inverted(&invertible);
    if (!invertible) return;
    drawWarped(target, clip, back * toFlat, touchedPixels(reach, DeviceMap(toFlat)), [&](QImage& part, QPoint corner) {
      content.paint(part, part.rect(), scene, toFlat * QTransform::fromTranslate(-corner.x(), -corner.y()));
    });
  }

  void paintFinished(QImage& target, const QRect& clip, const std::shared_ptr<const Scene>& scene,
                     const QTransform& toDevice) {
    const Rect& whole = scene->layout.document;
    if (!isPlausible(whole)) return;
    const PixelPlacement placement(whole, DeviceMap(toDevice));
    const QRect area = placement.within(clip & target.rect());
    if (area.isEmpty()) return;
    // Views far larger than the screen show a smaller picture enlarged; an export is always made at its own size.
    constexpr double mostPixels = 24e6;
    const double pixels = static_cast<double>(placement.width) * static_cast<double>(placement.height);
    const double most = std::max(mostPixels, static_cast<double>(area.width()) * area.height());
    const double share = std::min(1.0, std::sqrt(most / pixels));
    const QSize size(std::max(toPixel(static_cast<double>(placement.width) * share), 1),
                     std::max(toPixel(static_cast<double>(placement.height) * share), 1));
    readyFinished(scene, size);
    if (finished.blurred) drawPixels(PixelTarget(target), area, *finished.blurred, placement, Enlarging::Smooth);
  }

  void readyFinished(const std::shared_ptr<const Scene>& scene, QSize size) {
    const bool sameSize = finished.scene && finished.sharp.size() == size;
    if (sameSize && finished.scene == scene) return;
    const QTransform map = filling(scene->layout.document, size);
    QRegion changed(QRect(QPoint(0, 0), size));
    if (sameSize) {
      changed &= repaintRegion(changedSharpRects(*finished.scene, *scene), map);
    } else {
      finished.sharp = QImage(size, QImage::Format_ARGB32_Premultiplied);
    }
    finished.blurred.reset();
    if (finished.sharp.isNull()) return;
    {
      QPainter painter(&finished.sharp);
      painter.setCompositionMode(QPainter::CompositionMode_Source);
      for (const QRect& rect : changed) painter.fillRect(rect, Qt::transparent);
    }
    for (const QRect& rect : changed) paintScene(finished.sharp, rect, *scene, map);
    finished.scene = scene;
    QImage blurred = finished.sharp.copy();
    if (blurred.isNull()) return;
    BackdropPainter::applyEdgeBlur(blurred, scene->document.backdrop);
    const Bitmap bitmap = toBitmap(std::move(blurred));
    if (!bitmap.isNull()) finished.blurred = std::make_unique<PixelSource>(bitmap);
  }
};

DocumentRenderer::DocumentRenderer() : d_(std::make_unique<Private>()) {}
DocumentRenderer::~DocumentRenderer() = default;

void DocumentRenderer::paint(QImage& target, const QRect& clip, const ImageDocument& document,
                             const QTransform& toDevice, const RenderOptions& options) {
  if (target.isNull() || !DeviceMap(toDevice).isPlausible()) return;
  const std::shared_ptr<const Scene> scene = d_->sceneOf(document, options);
  if (hasEdgeBlur(scene->document.backdrop)) {
    d_->paintFinished(target, clip, scene, toDevice);
    return;
  }
  d_->finished = {};
  d_->paintScene(target, clip, *scene, toDevice);
}

std::vector<Rect> DocumentRenderer::changedRects(const ImageDocument& before, const ImageDocument& after) {
  const auto first = d_->sceneOf(before, {});
  const auto second = d_->sceneOf(after, {});
  std::vector<Rect> changed = changedSharpRects(*first, *second);
  // Blurred edges may reach anywhere.
  const bool reaches = !changed.empty() && hasEdgeBlur(second->document.backdrop);
  if (reaches) changed = {first->layout.document.united(second->layout.document)};
  return changed;
}

void DocumentRenderer::clear() {
  d_ = std::make_unique<Private>();
}

QRegion repaintRegion(const std::vector<Rect>& changed, const QTransform& toDevice) {
  constexpr int reach = 2;
  constexpr int farthest = 1 << 28;  // keeps rectangles in the range of int
  const QRectF plane(-farthest, -farthest, 2.0 * farthest, 2.0 * farthest);
  QRegion region;
  for (const Rect& rect : changed) {
    const QRectF place = toDevice.mapRect(toQRectF(rect)) & plane;
    if (!place.isEmpty()) region |= place.toAlignedRect().adjusted(-reach, -reach, reach, reach);
  }
  return region;
}

}  // namespace vellora
