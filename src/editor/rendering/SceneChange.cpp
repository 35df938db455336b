#include "editor/rendering/SceneChange.h"

#include <bit>
#include <unordered_map>

#include "editor/painting/AnnotationPainter.h"
#include "editor/rendering/RenderGeometry.h"

namespace vellora {
namespace {

/// One thing that is drawn: how it looks and where.
struct Layer {
  std::uint64_t key;
  Rect bounds;
  const Scene::Item* item = nullptr;  ///< unless it is a piece
};

std::vector<Layer> layersOf(const Scene& scene) {
  std::vector<Layer> layers;
  for (const Scene::Piece& piece : scene.pieces) layers.push_back({piece.key, piece.view.frame, nullptr});
  for (const Scene::Item& item : scene.items) {
    // Of a lens that stays where it is only the glass changes with what it shows.
    if (item.lens) layers.push_back({std::bit_cast<std::uintptr_t>(item.annotation.get()), item.bounds, nullptr});
    layers.push_back({item.key, item.lens ? item.lens->rect() : item.bounds, &item});
  }
  return layers;
}

/// Places gathered one by one; those that overlap, or nearly fill what surrounds both, become one.
class Places {
 public:
  void add(const Rect& rect) {
    if (rect.isEmpty()) return;
    Rect all = rect;
    for (std::size_t i = 0; i < rects_.size();) {
      if (!belongTogether(rects_[i], all)) {
        ++i;
        continue;
      }
      all = all.united(rects_[i]);
      rects_.erase(rects_.begin() + static_cast<std::ptrdiff_t>(i));
      i = 0;
    }
    rects_.push_back(all);
    if (rects_.size() > most) uniteAll();
  }

  std::vector<Rect> take() { return std::move(rects_); }

 private:
  static constexpr std::size_t most = 16;

  static double area(const Rect& rect) { return rect.size.width * rect.size.height; }
  static bool belongTogether(const Rect& a, const Rect& b) {
    return area(a.united(b)) <= 1.3 * (area(a) + area(b) - area(common(a, b)));
  }
  void uniteAll() {
    Rect all = rects_.front();
    for (const Rect& rect : rects_) all = all.united(rect);
    rects_ = {all};
  }

  std::vector<Rect> rects_;
};

struct Comparison {
  std::vector<bool> isKept;  ///< of each layer: whether the other scene has it too
  std::vector<std::size_t> kept;
};

Comparison compared(const std::vector<Layer>& layers, const std::vector<Layer>& others) {
  std::unordered_map<std::uint64_t, int> available;
  for (const Layer& layer : others) ++available[layer.key];
  Comparison result;
  for (std::size_t i = 0; i < layers.size(); ++i) {
    const auto found = available.find(layers[i].key);
    result.isKept.push_back(found != available.end() && found->second-- > 0);
    if (result.isKept.back()) result.kept.push_back(i);
  }
  return result;
}

std::vector<Rect> changedContent(const Scene& before, const Scene& after) {
  Places changed;
  const std::vector<Layer> first = layersOf(before);
  const std::vector<Layer> second = layersOf(after);
  const Comparison old = compared(first, second);
  const Comparison now = compared(second, first);
  if (old.isKept == now.isKept && before.pieces.size() == after.pieces.size()) {
    // Each thing changed in its place.
    for (std::size_t i = 0; i < first.size(); ++i) {
      if (old.isKept[i]) continue;
      // Of a stroke that grows only the end changes.
      const auto isStroke = [](const Layer& layer) {
        return layer.item && layer.item->annotation->kind == Annotation::Kind::Pen;
      };
      if (isStroke(first[i]) && isStroke(second[i])) {
        changed.add(changedBounds(*first[i].item->annotation, *second[i].item->annotation));
      } else {
        changed.add(first[i].bounds);
        changed.add(second[i].bounds);
      }
    }
  } else {
    for (std::size_t i = 0; i < first.size(); ++i) {
      if (!old.isKept[i]) changed.add(first[i].bounds);
    }
    for (std::size_t i = 0; i < second.size(); ++i) {
      if (!now.isKept[i]) changed.add(second[i].bounds);
    }
  }
  // What both have, but between others than before.
  std::size_t begin = 0;
  std::size_t end = std::min(old.kept.size(), now.kept.size());
  const auto same = [&](std::size_t i) { return first[old.kept[i]].key == second[now.kept[i]].key; };
  while (begin < end && same(begin)) ++begin;
  while (end > begin && same(end - 1)) --end;
  for (std::size_t i = begin; i < end; ++i) changed.add(first[old.kept[i]].bounds);
  return changed.take();
}

bool sameLook(const Scene& before, const Scene& after) {
  return before.document.backdrop == after.document.backdrop && before.layout.document == after.layout.document;
}

bool sameFrames(const Scene& before, const Scene& after) {
  return std::ranges::equal(
      before.pieces, after.pieces, {}, [](const Scene::Piece& piece) { return piece.view.frame; },
      [](const Scene::Piece& piece) { return piece.view.frame; });
}

}  // namespace

std::vector<Rect> changedSharpRects(const Scene& before, const Scene& after) {
  const Rect whole = before.layout.document.united(after.layout.document);
  const bool hasBackdrop = before.document.backdrop.enabled || after.document.backdrop.enabled;
  if (hasBackdrop && !(sameLook(before, after) && sameFrames(before, after))) return {whole};
  std::vector<Rect> changed = changedContent(before, after);
  for (Rect& rect : changed) {
    if (hasBackdrop) rect = fromQRectF(after.layout.placement.mapRect(toQRectF(rect)));
    rect = common(rect, whole);
  }
  std::erase_if(changed, [](const Rect& rect) { return rect.isEmpty(); });
  return changed;
}

}  // namespace vellora
