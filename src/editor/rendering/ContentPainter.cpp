#include "editor/rendering/ContentPainter.h"

#include <unordered_set>

#include "editor/backdrop/BackdropPainter.h"
#include "editor/rendering/GaussianBlur.h"
#include "editor/rendering/Surface.h"
#include "media/codecs/ImageConversion.h"

namespace vellora {
namespace {

/// What a lens shows where nothing is.
const QColor emptyGlass(0xE3, 0xE5, 0xE9);

QTransform moved(const QTransform& toDevice, QPoint corner) {
  return toDevice * QTransform::fromTranslate(-corner.x(), -corner.y());
}

/// The pixels of a piece that an area touches.
PixelCover coverOf(const PieceView& piece, const std::shared_ptr<const CellGrid>& grid) {
  const auto pixel = [](double value, int most) {
    return static_cast<int>(std::clamp(value, 0.0, static_cast<double>(most)));
  };
  const Rect& area = grid->rect;
  const int left = pixel(std::floor((area.minX() - piece.frame.minX()) / piece.stepX), piece.pixels.width());
  const int top = pixel(std::floor((area.minY() - piece.frame.minY()) / piece.stepY), piece.pixels.height());
  const int right = pixel(std::ceil((area.maxX() - piece.frame.minX()) / piece.stepX), piece.pixels.width());
  const int bottom = pixel(std::ceil((area.maxY() - piece.frame.minY()) / piece.stepY), piece.pixels.height());
  return {{left, top, right - left, bottom - top},
          grid,
          {piece.frame.minX(), 0, piece.stepX},
          {piece.frame.minY(), 0, piece.stepY}};
}

/// The pixels, at the scale of effects, of what an item shows; blurs begin and end on whole blocks.
QRect pictureBox(const Scene& scene, const Scene::Item& item) {
  const double scale = scene.effectScale;
  int block = 1;
  if (item.kind == Scene::Item::Kind::Gaussian) {
    block <<= blurReduction(blurSigma(item.annotation->blurStrength) * scale);
  }
  const auto first = [&](double value) { return toPixel(std::floor(value * scale / block)) * block; };
  const auto end = [&](double value) { return toPixel(std::ceil(value * scale / block)) * block; };
  const QPoint corner(first(item.source.minX()), first(item.source.minY()));
  return {corner, QSize(end(item.source.maxX()) - corner.x(), end(item.source.maxY()) - corner.y())};
}

double areaOf(const QRect& rect) {
  return static_cast<double>(rect.width()) * rect.height();
}

}  // namespace

void ContentPainter::paint(QImage& target, const QRect& clip, const Scene& scene, const QTransform& toDevice) {
  Surface surface(target, toDevice);
  const QRect area = clip & target.rect();
  if (area.isEmpty() || !surface.map().isPlausible()) return;
  readyPieces(scene);
  readyPictures(scene, area, surface.map());
  drawPieces(surface, area, scene);
  for (std::size_t i = 0; i < scene.items.size(); ++i) drawItem(surface, area, scene, i);
}

void ContentPainter::keepOnly(const std::vector<std::shared_ptr<const Scene>>& scenes) {
  std::unordered_set<std::uint64_t> pieces;
  std::unordered_set<std::uint64_t> items;
  for (const auto& scene : scenes) {
    for (const Scene::Piece& piece : scene->pieces) pieces.insert(piece.pixelsKey);
    for (const Scene::Item& item : scene->items) items.insert(item.key);
  }
  std::erase_if(sources_, [&](const auto& entry) { return !pieces.contains(entry.first); });
  std::erase_if(pictures_, [&](const auto& entry) { return !items.contains(entry.first); });
  layers_.keepOnly(items);
}

void ContentPainter::readyPieces(const Scene& scene) {
  for (const Scene::Piece& piece : scene.pieces) {
    auto& source = sources_[piece.pixelsKey];
    if (!source) source = std::make_unique<PixelSource>(piece.view.pixels);
    std::vector<PixelCover> covers;
    for (const Scene::Item& item : scene.items) {
      if (item.grid) covers.push_back(coverOf(piece.view, item.grid));
    }
    source->setCovers(std::move(covers));
  }
}

void ContentPainter::readyPictures(const Scene& scene, const QRect& clip, const DeviceMap& map) {
  const auto isMissing = [&](const Scene::Item& item) { return item.hasPicture() && !pictures_.contains(item.key); };
  std::vector<bool> wanted(scene.items.size());
  std::vector<std::size_t> order;
  for (std::size_t i = scene.items.size(); i-- > 0;) {
    const Scene::Item& item = scene.items[i];
    if (!isMissing(item) || pictureBox(scene, item).isEmpty()) continue;
    if (!wanted[i] && !touchedPixels(item.bounds, map).intersects(clip)) continue;
    order.push_back(i);
    const Rect seen = grown(item.source, 8 / scene.effectScale);
    for (std::size_t below = 0; below < i; ++below) {
      if (meet(scene.items[below].bounds, seen)) wanted[below] = true;
    }
  }
  if (order.empty()) return;
  std::ranges::reverse(order);

  // One walk through the document serves many pictures; that bounds the time a crowd of them takes.
  constexpr double mostPixels = 64e6;
  constexpr std::size_t crowd = 64;
  QRect all;
  for (const std::size_t index : order) all |= pictureBox(scene, scene.items[index]);
  if (order.size() > crowd && areaOf(all) <= mostPixels) {
    makePictures(scene, order);
    return;
  }
  for (const std::size_t index : order) makePictures(scene, std::span(&index, 1));
}

void ContentPainter::makePictures(const Scene& scene, std::span<const std::size_t> items) {
  QRect box;
  for (const std::size_t index : items) box |= pictureBox(scene, scene.items[index]);
  if (box.isEmpty()) return;
  QImage below(box.size(), QImage::Format_ARGB32_Premultiplied);
  if (below.isNull()) return;
  below.fill(Qt::transparent);
  const QTransform toPixels = moved(QTransform::fromScale(scene.effectScale, scene.effectScale), box.topLeft());
  {
    Surface surface(below, toPixels);
    drawPieces(surface, below.rect(), scene);
  }
  std::size_t drawn = 0;
  for (const std::size_t index : items) {
    {
      Surface surface(below, toPixels);
      for (; drawn < index; ++drawn) drawItem(surface, below.rect(), scene, drawn);
    }
    makePicture(scene, index, below, box.topLeft());
  }
}

void ContentPainter::makePicture(const Scene& scene, std::size_t index, const QImage& below, QPoint corner) {
  const Scene::Item& item = scene.items[index];
  const QRect box = pictureBox(scene, item);
  QImage shown = below.copy(box.translated(-corner));
  if (shown.isNull()) return;
  {
    Surface surface(shown, moved(QTransform::fromScale(scene.effectScale, scene.effectScale), box.topLeft()));
    drawRedactionsAbove(surface, shown.rect(), scene, index);
  }
  const double scale = scene.effectScale;
  const Rect place{{box.x() / scale, box.y() / scale}, {box.width() / scale, box.height() / scale}};
  const Bitmap picture = toBitmap(std::move(shown));
  if (picture.isNull()) return;
  ++picturesMade_;
  if (item.kind == Scene::Item::Kind::FlatLens) {
    pictures_[item.key] = std::make_unique<Picture>(Picture{place, PixelSource(picture), nullptr});
    return;
  }
  const auto blurred = gaussianBlur(picture, blurSigma(item.annotation->blurStrength) * scale);
  if (!blurred) return;
  auto soft = blurred->soft.isNull() ? nullptr : std::make_unique<PixelSource>(blurred->soft);
  pictures_[item.key] = std::make_unique<Picture>(Picture{place, PixelSource(blurred->color), std::move(soft)});
}

void ContentPainter::drawPieces(Surface& surface, const QRect& clip, const Scene& scene) {
  drawShaped(surface, clip, scene, [&](Surface& to, const QRect& area) {
    for (const Scene::Piece& piece : scene.pieces) {
      drawPixels(to.target(), area, *sources_.at(piece.pixelsKey), PixelPlacement(piece.view.frame, to.map()),
                 to.enlarging());
    }
  });
  if (scene.document.backdrop.enabled && scene.document.backdrop.deviceFrame) {
    QPainter& painter = surface.painter(clip);
    painter.save();
    BackdropPainter::paintOver(painter, scene.document, scene.layout);
    painter.restore();
  }
}

void ContentPainter::drawShaped(Surface& surface, const QRect& clip, const Scene& scene, const Drawing& drawing) {
  if (scene.shape.isEmpty()) {
    drawing(surface, clip);
    return;
  }
  // Only tiles that the shape's edge runs through are drawn aside and cut out.
  constexpr int tileEdge = 256;
  const QPainterPath shape = surface.toDevice().map(scene.shape);
  const QRect area = shape.boundingRect().toAlignedRect() & clip;
  const auto tileOf = [](int pixel) { return static_cast<int>(std::floor(static_cast<double>(pixel) / tileEdge)); };
  for (int row = tileOf(area.top()); row <= tileOf(area.bottom()); ++row) {
    for (int column = tileOf(area.left()); column <= tileOf(area.right()); ++column) {
      const QRect tile(column * tileEdge, row * tileEdge, tileEdge, tileEdge);
      const QRect part = tile & area;
      if (part.isEmpty()) continue;
      if (shape.contains(QRectF(tile))) {
        drawing(surface, part);
        continue;
      }
      QImage aside(part.size(), QImage::Format_ARGB32_Premultiplied);
      if (aside.isNull()) return;
      aside.fill(Qt::transparent);
      {
        Surface to(aside, moved(surface.toDevice(), part.topLeft()), surface.enlarging());
        drawing(to, aside.rect());
      }
      surface.fillWithPicture(scene.shape, aside, part.topLeft(), part);
    }
  }
}

void ContentPainter::drawItem(Surface& surface, const QRect& clip, const Scene& scene, std::size_t index) {
  const Scene::Item& item = scene.items[index];
  const QRect touched = touchedPixels(item.bounds, surface.map()) & clip;
  if (touched.isEmpty()) return;
  switch (item.kind) {
    case Scene::Item::Kind::Drawn: {
      QPainter& painter = surface.painter(clip);
      painter.save();
      annotations_.draw(painter, *item.annotation, item.hideGlyphs);
      painter.restore();
      return;
    }
    case Scene::Item::Kind::Redaction:
      drawRedaction(surface, clip, scene, item);
      return;
    case Scene::Item::Kind::Gaussian:
      drawGaussian(surface, touched, scene, item);
      return;
    case Scene::Item::Kind::Lens:
    case Scene::Item::Kind::FlatLens:
      drawLens(surface, touched, scene, index);
      return;
  }
}

void ContentPainter::drawRedaction(Surface& surface, const QRect& clip, const Scene& scene, const Scene::Item& item) {
  const auto area = [&](const Surface& to) { return touchedPixels(item.grid->rect, to.map()); };
  if (!item.keepsToPieces) {
    drawCells(surface.target(), area(surface) & clip, *item.grid, surface.map());
    return;
  }
  drawShaped(surface, area(surface) & clip, scene, [&](Surface& to, const QRect& part) {
    for (const Scene::Piece& piece : scene.pieces) {
      const QRect shown = PixelPlacement(piece.view.frame, to.map()).within(part);
      drawCells(to.target(), shown, *item.grid, to.map());
    }
  });
}

void ContentPainter::drawGaussian(Surface& surface, const QRect& clip, const Scene& scene, const Scene::Item& item) {
  const auto found = pictures_.find(item.key);
  if (found == pictures_.end()) return;
  Picture& picture = *found->second;
  drawShaped(surface, clip, scene, [&](Surface& to, const QRect& area) {
    const PixelPlacement placement(picture.place, to.map());
    if (!picture.soft) {
      drawPixels(to.target(), area, picture.color, placement, Enlarging::Smooth);
      return;
    }
    // Opaque pieces are blurred up to their very edge; beside the pieces nothing is.
    QRegion filled;
    QRegion sheer;
    for (const Scene::Piece& piece : scene.pieces) {
      const bool opaque = piece.view.pixels.alpha() == PixelAlpha::Opaque;
      (opaque ? filled : sheer) |= PixelPlacement(piece.view.frame, to.map()).within(area);
    }
    for (const QRect& part : filled) drawPixels(to.target(), part, picture.color, placement, Enlarging::Smooth);
    for (const QRect& part : sheer - filled) {
      drawPixels(to.target(), part, *picture.soft, placement, Enlarging::Smooth);
    }
  });
}

void ContentPainter::drawLens(Surface& surface, const QRect& clip, const Scene& scene, std::size_t index) {
  const Scene::Item& item = scene.items[index];
  const Lens& lens = *item.lens;
  const QRect body = touchedPixels(lens.body(), surface.map());
  for (const QRect& part : QRegion(clip).subtracted(body)) lens.drawMark(surface.target(), part, surface.map());
  // Only what is of a usual size is made whole and kept.
  constexpr double mostPixels = 4e6;
  const bool isKept = areaOf(body) <= mostPixels;
  const QRect part = isKept ? body : body & clip;
  if (!part.intersects(clip)) return;
  const QTransform local = moved(surface.toDevice(), part.topLeft());
  const LensLayer* layer = isKept ? layers_.find(item.key, part.size(), local) : nullptr;
  if (layer) {
    layer->draw(surface.target(), clip, part.topLeft());
    return;
  }
  QImage image = lensImage(part, surface.toDevice(), scene, index);
  if (image.isNull()) return;
  LensLayer made(std::move(image), local);
  made.draw(surface.target(), clip, part.topLeft());
  if (isKept) layers_.keep(item.key, std::move(made));
}

QImage ContentPainter::lensImage(const QRect& part, const QTransform& toDevice, const Scene& scene, std::size_t index) {
  const Scene::Item& item = scene.items[index];
  const Lens& lens = *item.lens;
  QImage image(part.size(), QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return {};
  image.fill(Qt::transparent);
  const PixelTarget target(image);
  const DeviceMap map(moved(toDevice, part.topLeft()));
  lens.drawShadow(target, target.area, map);
  lens.drawMark(target, target.area, map);
  const QRect glass = touchedPixels(lens.rect(), map) & target.area;
  if (!glass.isEmpty()) {
    QImage shown(glass.size(), QImage::Format_ARGB32_Premultiplied);
    if (shown.isNull()) return {};
    shown.fill(emptyGlass);
    {
      Surface inner(shown, moved(lens.magnifying() * toDevice, part.topLeft() + glass.topLeft()),
                    Enlarging::CrispIfWhole);
      const auto found = pictures_.find(item.key);
      if (found != pictures_.end()) {
        drawPixels(inner.target(), shown.rect(), found->second->color,
                   PixelPlacement(found->second->place, inner.map()), Enlarging::CrispIfWhole);
      } else if (item.kind == Scene::Item::Kind::Lens) {
        drawPieces(inner, shown.rect(), scene);
        for (std::size_t i = 0; i < index; ++i) {
          if (!scene.items[i].lens && !scene.items[i].hasPicture()) drawItem(inner, shown.rect(), scene, i);
        }
        drawRedactionsAbove(inner, shown.rect(), scene, index);
      }
    }
    lens.drawGlass(target, glass, map, shown, glass.topLeft());
  }
  lens.drawRim(target, target.area, map);
  return image;
}

void ContentPainter::drawRedactionsAbove(Surface& surface, const QRect& clip, const Scene& scene, std::size_t index) {
  for (std::size_t i = index + 1; i < scene.items.size(); ++i) {
    if (scene.items[i].kind == Scene::Item::Kind::Redaction) drawItem(surface, clip, scene, i);
  }
}

}  // namespace vellora
