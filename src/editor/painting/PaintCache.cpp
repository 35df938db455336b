#include "editor/painting/PaintCache.h"

#include <bit>
#include <span>

#include <QThreadStorage>

namespace vellora {
namespace {

class Fingerprint {
 public:
  void add(std::uint64_t value) {
    a_ = (std::rotl(a_, 29) ^ value) * 0x9E3779B97F4A7C15U;
    b_ = (std::rotl(b_, 41) + value) * 0xC2B2AE3D27D4EB4FU;
  }
  void add(double value) { add(std::bit_cast<std::uint64_t>(value)); }
  void add(Point point) {
    add(point.x);
    add(point.y);
  }
  std::pair<std::uint64_t, std::uint64_t> value() const { return {a_ ^ (a_ >> 32), b_ ^ (b_ >> 29)}; }

 private:
  std::uint64_t a_ = 0x243F6A8885A308D3U;
  std::uint64_t b_ = 0x13198A2E03707344U;
};

}  // namespace

PaintCache& PaintCache::ofThisThread() {
  static QThreadStorage<PaintCache*> caches;
  if (!caches.hasLocalData()) caches.setLocalData(new PaintCache);
  return *caches.localData();
}

std::shared_ptr<const LaidOutText> PaintCache::text(const TextSetting& setting) {
  constexpr qsizetype anyLayout = 200;  // even a short text has fonts and lines
  if (const auto* known = texts_.object(setting)) return *known;
  const auto text = std::make_shared<const LaidOutText>(setting);
  texts_.insert(setting, new std::shared_ptr(text), setting.text.size() + anyLayout);
  return text;
}

std::shared_ptr<const Ink> PaintCache::ink(const Annotation& annotation, const Measures& measures) {
  constexpr qsizetype anyPath = 100;
  const InkKey key = keyOf(annotation, measures);
  if (const auto* known = inks_.object(key)) return *known;
  const auto ink = std::make_shared<const Ink>(inkOf(annotation, measures));
  inks_.insert(key, new std::shared_ptr(ink), ink->lines.whole().elementCount() + ink->ground.elementCount() + anyPath);
  return ink;
}

PaintCache::InkKey PaintCache::keyOf(const Annotation& annotation, const Measures& measures) {
  Fingerprint print;
  print.add(static_cast<std::uint64_t>(annotation.kind));
  print.add(measures.lineWidth);
  if (annotation.kind == Annotation::Kind::Pen) {
    if (annotation.penPoints) {
      print.add(annotation.penPoints->size());
      for (const Point& point : *annotation.penPoints) print.add(point);
    }
    if (annotation.penPressures) {
      for (const double pressure : *annotation.penPressures) print.add(pressure);
    }
    return print.value();
  }
  print.add(annotation.sketchSeed);
  print.add(measures.p1);
  print.add(measures.p2);
  print.add(std::uint64_t{measures.control.has_value()});
  print.add(measures.control.value_or(Point{}));
  return print.value();
}

}  // namespace vellora
