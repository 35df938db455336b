#include "editor/rendering/Scene.h"

#include <bit>

#include "editor/backdrop/BackdropPainter.h"
#include "editor/painting/AnnotationPainter.h"
#include "editor/rendering/GaussianBlur.h"

namespace vellora {
namespace {

/// Mixes numbers into one of 64 bits.
class Key {
 public:
  Key& operator<<(std::uint64_t value) {
    state_ = (state_ ^ value) * 0x9E3779B97F4A7C15U;
    state_ ^= state_ >> 29;
    return *this;
  }
  Key& operator<<(double value) { return *this << std::bit_cast<std::uint64_t>(value); }
  Key& operator<<(const void* address) {
    return *this << static_cast<std::uint64_t>(std::bit_cast<std::uintptr_t>(address));
  }
  Key& operator<<(const Rect& rect) {
    return *this << rect.origin.x << rect.origin.y << rect.size.width << rect.size.height;
  }
  std::uint64_t value() const { return state_; }

 private:
  std::uint64_t state_ = 0x243F6A8885A308D3U;
};

std::uint64_t pixelsKey(const PieceView& view) {
  return (Key() << static_cast<const void*>(view.pixels.row(0)) << static_cast<std::uint64_t>(view.pixels.width())
                << static_cast<std::uint64_t>(view.pixels.height()) << static_cast<std::uint64_t>(view.pixels.alpha()))
      .value();
}

std::uint64_t keyOf(const CellGrid& grid) {
  Key key;
  key << grid.rect << static_cast<std::uint64_t>(grid.columns);
  for (const std::uint32_t cell : grid.cells) key << std::uint64_t{cell};
  return key.value();
}

/// The most things below a lens that it draws anew at every paint.
constexpr int mostInLens = 16;

/// Enough around a blur that nothing beyond has a say.
double blurReach(double sigma, double scale) {
  return 3 * sigma + (2 << blurReduction(sigma * scale)) / scale;
}

/// Builds the items of a scene from the bottom up.
class Builder {
 public:
  Builder(Scene& scene, SceneMemory& memory) : scene_(scene), memory_(memory) {}

  void build() {
    const std::vector<Redaction> plan = redactions();
    addItems(plan);
    chooseScale();
    for (std::size_t i = 0; i < scene_.items.size(); ++i) {
      if (scene_.items[i].kind == Scene::Item::Kind::Lens) chooseLensKind(i);
      scene_.items[i].key = keyOfItem(i);
    }
  }

 private:
  using Item = Scene::Item;

  std::vector<Redaction> redactions() {
    std::vector<PieceView> views;
    for (const Scene::Piece& piece : scene_.pieces) views.push_back(piece.view);
    return memory_.redactions.plan(views, scene_.document.annotations);
  }

  void addItems(const std::vector<Redaction>& plan) {
    auto redaction = plan.begin();
    for (const AnnotationPtr& annotation : scene_.document.annotations) {
      Item item;
      item.annotation = annotation;
      if (redaction != plan.end() && redaction->annotation == annotation) {
        item.kind = Item::Kind::Redaction;
        item.grid = redaction->grid;
        item.bounds = grown(spannedRect(*annotation), largestPixel());  // it covers whole pixels of the pieces
        ++redaction;
      } else if (annotation->kind == Annotation::Kind::Blur) {
        if (annotation->blurStyle != BlurStyle::Gaussian) continue;
        item.kind = Item::Kind::Gaussian;
        item.bounds = spannedRect(*annotation);
      } else if (annotation->kind == Annotation::Kind::Magnifier) {
        item.kind = Item::Kind::Lens;
        item.lens = lensOf(annotation);
        if (!item.lens) continue;
        item.bounds = item.lens->bounds();
        item.source = item.lens->source();
      } else {
        item.bounds = boundsOf(annotation);
        item.hideGlyphs = scene_.options.hiddenGlyphs == annotation->id;
      }
      if (!isPlausible(item.bounds)) continue;
      if (item.grid) item.keepsToPieces = !hidesBesidePieces(item);
      scene_.items.push_back(std::move(item));
    }
  }

  Rect boundsOf(const AnnotationPtr& annotation) {
    const auto known = memory_.bounds.find(annotation);
    if (known != memory_.bounds.end()) return known->second;
    return memory_.bounds[annotation] = paintedBounds(*annotation);
  }

  const std::optional<Lens>& lensOf(const AnnotationPtr& annotation) {
    const auto known = memory_.lenses.find(annotation);
    if (known != memory_.lenses.end()) return known->second;
    return memory_.lenses[annotation] = Lens::of(*annotation);
  }

  bool hidesBesidePieces(const Item& redaction) const {
    return std::ranges::any_of(scene_.items, [&](const Item& below) {
      const Rect hidden = common(below.bounds, redaction.bounds);
      if (below.grid || hidden.isEmpty()) return false;
      return std::ranges::none_of(scene_.pieces,
                                  [&](const Scene::Piece& piece) { return holds(piece.view.frame, hidden); });
    });
  }

  double largestPixel() const {
    double edge = 0;
    for (const Scene::Piece& piece : scene_.pieces) edge = std::max({edge, piece.view.stepX, piece.view.stepY});
    return edge;
  }

  /// Where there is anything to show: blurs and lenses look no further.
  Rect populated() const {
    Rect all = scene_.layout.content;
    if (scene_.document.backdrop.enabled) all = grown(all, std::max(all.size.width, all.size.height));
    return all;
  }

  void chooseScale() {
    constexpr double mostPixels = 48e6;
    const double wanted = std::clamp(scene_.document.outputScale(), 0.1, 8.0);
    const Rect limits = populated();
    double pixels = 0;
    for (Item& item : scene_.items) {
      if (item.kind == Item::Kind::Gaussian) {
        item.source = common(grown(item.bounds, blurReach(blurSigma(item.annotation->blurStrength), wanted)), limits);
      } else if (item.kind == Item::Kind::Lens) {
        item.source = common(item.source, limits);
      } else {
        continue;
      }
      pixels += item.source.size.width * item.source.size.height * wanted * wanted;
    }
    scene_.effectScale = wanted * std::min(1.0, std::sqrt(mostPixels / std::max(pixels, 1.0)));
  }

  void chooseLensKind(std::size_t index) {
    Item& lens = scene_.items[index];
    int crowd = 0;
    for (std::size_t i = 0; i < index; ++i) {
      const Item& below = scene_.items[i];
      if (!meet(below.bounds, lens.lens->source())) continue;
      const bool plain = below.kind == Item::Kind::Drawn || below.kind == Item::Kind::Redaction;
      if (!plain || ++crowd > mostInLens) {
        lens.kind = Item::Kind::FlatLens;
        return;
      }
    }
  }

  /// Pictures hold no more than `source`; what is drawn anew also shows what lies beside the content.
  static Rect shownBy(const Item& item) { return item.kind == Item::Kind::Lens ? item.lens->source() : item.source; }

  std::uint64_t keyOfItem(std::size_t index) const {
    const Item& item = scene_.items[index];
    Key key;
    key << static_cast<std::uint64_t>(item.kind);
    if (item.kind == Item::Kind::Redaction)
      return (key << keyOf(*item.grid) << std::uint64_t{item.keepsToPieces}).value();
    key << static_cast<const void*>(item.annotation.get()) << std::uint64_t{item.hideGlyphs};
    if (item.kind == Item::Kind::Drawn) return key.value();

    // Smoothing reaches a few pixels further.
    const Rect seen = grown(shownBy(item), 8 / scene_.effectScale);
    key << scene_.effectScale << item.source;
    if (!scene_.shape.isEmpty()) key << scene_.document.backdrop.innerRadius << scene_.layout.content;
    const auto frame = scene_.document.backdrop.deviceFrame;
    key << static_cast<std::uint64_t>(frame ? static_cast<int>(*frame) + 1 : 0);
    for (const Scene::Piece& piece : scene_.pieces) {
      if (meet(piece.view.frame, seen)) key << piece.key;
    }
    for (std::size_t i = 0; i < scene_.items.size(); ++i) {
      const Item& other = scene_.items[i];
      if (i == index || !meet(other.bounds, seen)) continue;
      if (i < index) {
        key << other.key;
      } else if (other.kind == Item::Kind::Redaction) {
        key << keyOfItem(i);
      }
    }
    return key.value();
  }

  Scene& scene_;
  SceneMemory& memory_;
};

bool samePiece(const CapturePiece& a, const CapturePiece& b) {
  const bool samePixels = a.image.size() == b.image.size() && a.image.alpha() == b.image.alpha() &&
                          (a.image.isNull() ? b.image.isNull() : !b.image.isNull() && a.image.row(0) == b.image.row(0));
  return samePixels && a.scale == b.scale && a.frame() == b.frame() && a.visibleRect == b.visibleRect;
}

}  // namespace

bool Scene::shows(const ImageDocument& other, const RenderOptions& otherOptions) const {
  return options.hiddenGlyphs == otherOptions.hiddenGlyphs && asked.annotations == other.annotations &&
         asked.backdrop == other.backdrop && std::ranges::equal(asked.pieces, other.pieces, samePiece);
}

ImageDocument drawablePart(const ImageDocument& document) {
  ImageDocument part = document;
  std::erase_if(part.pieces, [](const CapturePiece& piece) { return !viewOf(piece); });
  std::erase(part.annotations, nullptr);
  return part;
}

std::shared_ptr<const Scene> makeScene(const ImageDocument& document, const RenderOptions& options,
                                       SceneMemory& memory) {
  auto scene = std::make_shared<Scene>();
  scene->asked = document;
  scene->options = options;
  scene->document = drawablePart(document);
  scene->layout = backdropLayout(scene->document);
  scene->shape = BackdropPainter::contentShape(scene->document, scene->layout);
  for (const CapturePiece& piece : scene->document.pieces) {
    const PieceView view = *viewOf(piece);
    std::uint64_t pixels = pixelsKey(view);
    const auto isTaken = [&](const Scene::Piece& other) { return other.pixelsKey == pixels; };
    while (std::ranges::any_of(scene->pieces, isTaken)) ++pixels;
    scene->pieces.push_back({view, (Key() << pixels << view.frame).value(), pixels});
  }
  // What was deleted long ago goes now and then.
  const std::size_t most = 4 * document.annotations.size() + 64;
  if (memory.bounds.size() > most) memory.bounds.clear();
  if (memory.lenses.size() > most) memory.lenses.clear();
  Builder(*scene, memory).build();
  return scene;
}

}  // namespace vellora
