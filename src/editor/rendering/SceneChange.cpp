#include "editor/rendering/SceneChange.h"

#include <unordered_map>

#include "editor/rendering/RenderGeometry.h"

namespace vellora {
namespace {

/// One thing that is drawn: how it looks and where.
struct Layer {
  std::uint64_t key;
  Rect bounds;
};

std::vector<Layer> layersOf(const Scene& scene) {
  std::vector<Layer> layers;
  for (const Scene::Piece& piece : scene.pieces) layers.push_back({piece.key, piece.view.frame});
  for (const Scene::Item& item : scene.items) layers.push_back({item.key, item.bounds});
  return layers;
}

void unite(Rect& all, const Rect& rect) {
  if (rect.isEmpty()) return;
  all = all.isEmpty() ? rect : all.united(rect);
}

/// The layers of `layers` that `others` has too, in order; adds those it lacks to `changed`.
std::vector<Layer> shared(const std::vector<Layer>& layers, const std::vector<Layer>& others, Rect& changed) {
  std::unordered_map<std::uint64_t, int> available;
  for (const Layer& layer : others) ++available[layer.key];
  std::vector<Layer> both;
  for (const Layer& layer : layers) {
    const auto found = available.find(layer.key);
    if (found != available.end() && found->second-- > 0) {
      both.push_back(layer);
    } else {
      unite(changed, layer.bounds);
    }
  }
  return both;
}

Rect changedContent(const Scene& before, const Scene& after) {
  Rect changed;
  const std::vector<Layer> first = layersOf(before);
  const std::vector<Layer> second = layersOf(after);
  const std::vector<Layer> kept = shared(first, second, changed);
  const std::vector<Layer> order = shared(second, first, changed);
  // What both have, but between others than before.
  std::size_t begin = 0;
  std::size_t end = std::min(kept.size(), order.size());
  while (begin < end && kept[begin].key == order[begin].key) ++begin;
  while (end > begin && kept[end - 1].key == order[end - 1].key) --end;
  for (std::size_t i = begin; i < end; ++i) unite(changed, kept[i].bounds);
  return changed;
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

Rect changedSharpRect(const Scene& before, const Scene& after) {
  const Rect whole = before.layout.document.united(after.layout.document);
  const bool hasBackdrop = before.document.backdrop.enabled || after.document.backdrop.enabled;
  if (hasBackdrop && !(sameLook(before, after) && sameFrames(before, after))) return whole;
  const Rect changed = changedContent(before, after);
  if (changed.isEmpty()) return {};
  if (!hasBackdrop) return common(changed, whole);
  return common(fromQRectF(after.layout.placement.mapRect(toQRectF(changed))), whole);
}

}  // namespace vellora
