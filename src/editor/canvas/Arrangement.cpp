#include "editor/canvas/Arrangement.h"

#include <algorithm>
#include <map>

#include "editor/canvas/AnnotationGeometry.h"
#include "editor/canvas/PlaneGeometry.h"

namespace vellora {

using namespace geometry;

namespace {

constexpr int highestNumber = 1'000'000;

bool hasCounter(const ImageDocument& document, int number) {
  return std::ranges::any_of(document.annotations, [number](const AnnotationPtr& annotation) {
    return annotation->kind == Annotation::Kind::Counter && annotation->number == number;
  });
}

/// What a rectangle lacks to be aligned with `frame`.
Point alignmentShift(const Rect& rect, const Rect& frame, Alignment alignment) {
  switch (alignment) {
    case Alignment::Left:
      return {frame.minX() - rect.minX(), 0};
    case Alignment::CenterX:
      return {center(frame).x - center(rect).x, 0};
    case Alignment::Right:
      return {frame.maxX() - rect.maxX(), 0};
    case Alignment::Top:
      return {0, frame.minY() - rect.minY()};
    case Alignment::CenterY:
      return {0, center(frame).y - center(rect).y};
    case Alignment::Bottom:
      return {0, frame.maxY() - rect.maxY()};
  }
  return {};
}

ImageDocument shifted(const ImageDocument& document, const std::map<AnnotationId, Point>& shifts) {
  ImageDocument result = document;
  for (AnnotationPtr& annotation : result.annotations) {
    const auto found = shifts.find(annotation->id);
    if (found == shifts.end() || found->second == Point{} || !isFinite(found->second)) continue;
    annotation = makeAnnotation(moved(*annotation, found->second));
  }
  return result;
}

}  // namespace

std::vector<AnnotationPtr> annotationsOf(const ImageDocument& document, const std::set<AnnotationId>& ids) {
  std::vector<AnnotationPtr> found;
  for (const AnnotationPtr& annotation : document.annotations) {
    if (ids.contains(annotation->id)) found.push_back(annotation);
  }
  return found;
}

Rect unitedOutline(std::span<const AnnotationPtr> annotations, AnnotationOutlines& outlines) {
  std::optional<Rect> all;
  for (const AnnotationPtr& annotation : annotations) {
    const Rect outline = outlines.of(annotation);
    if (isFinite(outline)) all = all ? all->united(outline) : outline;
  }
  return all.value_or(Rect{});
}

ImageDocument aligned(const ImageDocument& document, const std::set<AnnotationId>& ids, Alignment alignment,
                      AnnotationOutlines& outlines) {
  const auto selected = annotationsOf(document, ids);
  const Rect frame = selected.size() == 1 ? document.contentRect() : unitedOutline(selected, outlines);
  std::map<AnnotationId, Point> shifts;
  for (const AnnotationPtr& annotation : selected) {
    shifts[annotation->id] = alignmentShift(outlines.of(annotation), frame, alignment);
  }
  return shifted(document, shifts);
}

ImageDocument distributed(const ImageDocument& document, const std::set<AnnotationId>& ids, Distribution way,
                          AnnotationOutlines& outlines) {
  struct Item {
    AnnotationId id;
    double from;
    double length;
  };
  const bool isLevel = way == Distribution::Horizontal;
  std::vector<Item> items;
  double taken = 0;
  for (const AnnotationPtr& annotation : annotationsOf(document, ids)) {
    const Rect outline = outlines.of(annotation);
    if (!isFinite(outline)) continue;
    items.push_back({annotation->id, isLevel ? outline.minX() : outline.minY(),
                     isLevel ? outline.size.width : outline.size.height});
    taken += items.back().length;
  }
  if (items.size() < 3) return document;
  std::ranges::sort(items, {}, [](const Item& item) { return item.from + item.length / 2; });
  const double whole = items.back().from + items.back().length - items.front().from;
  const double gap = (whole - taken) / static_cast<double>(items.size() - 1);
  std::map<AnnotationId, Point> shifts;
  double at = items.front().from;
  for (const Item& item : items) {
    const bool isOutermost = item.id == items.front().id || item.id == items.back().id;
    const double shift = isOutermost ? 0 : at - item.from;
    shifts[item.id] = isLevel ? Point{shift, 0} : Point{0, shift};
    at += item.length + gap;
  }
  return shifted(document, shifts);
}

ImageDocument restacked(const ImageDocument& document, const std::set<AnnotationId>& ids, StackMove move) {
  ImageDocument result = document;
  auto& stack = result.annotations;
  const auto isSelected = [&ids](const AnnotationPtr& annotation) { return ids.contains(annotation->id); };
  switch (move) {
    case StackMove::ToFront:
      std::ranges::stable_partition(stack, std::not_fn(isSelected));
      break;
    case StackMove::ToBack:
      std::ranges::stable_partition(stack, isSelected);
      break;
    case StackMove::Forward:
      for (std::size_t i = stack.size(); i-- > 1;) {
        if (isSelected(stack[i - 1]) && !isSelected(stack[i])) std::swap(stack[i - 1], stack[i]);
      }
      break;
    case StackMove::Backward:
      for (std::size_t i = 1; i < stack.size(); ++i) {
        if (isSelected(stack[i]) && !isSelected(stack[i - 1])) std::swap(stack[i - 1], stack[i]);
      }
      break;
  }
  return result;
}

int nextCounterNumber(const ImageDocument& document) {
  int highest = 0;
  for (const AnnotationPtr& annotation : document.annotations) {
    if (annotation->kind == Annotation::Kind::Counter) highest = std::max(highest, annotation->number);
  }
  return std::min(highest, highestNumber) + 1;
}

std::vector<AnnotationPtr> copiesOf(const ImageDocument& document, std::span<const AnnotationPtr> originals, Point by,
                                    std::span<const AnnotationId> ids) {
  std::vector<AnnotationPtr> copies;
  int next = nextCounterNumber(document);
  for (std::size_t i = 0; i < originals.size(); ++i) {
    Annotation copy = moved(*originals[i], by);
    copy.id = ids[i];
    if (copy.kind == Annotation::Kind::Counter && hasCounter(document, copy.number)) copy.number = next++;
    copies.push_back(makeAnnotation(std::move(copy)));
  }
  return copies;
}

}  // namespace vellora
