#include "recording/ui/BubblePlace.h"

#include <algorithm>
#include <cmath>

namespace vellora {
namespace {

const QString key = QStringLiteral("record.cameraBubble");

/// The room a side of that length has between the margins.
double roomFor(double side, double length) {
  return std::max(0.0, length - side - 2 * BubblePlace::margin);
}

double snapped(double position, double from, double room) {
  if (room <= 0) return 0;
  const double inside = position - from;
  if (inside < BubblePlace::snapReach) return 0;
  if (inside > room - BubblePlace::snapReach) return 1;
  return inside / room;
}

}  // namespace

Rect BubblePlace::frameIn(const Rect& area) const {
  const double fitting = std::min({side, area.size.width, area.size.height});
  return {{std::round(area.minX() + std::min(margin, (area.size.width - fitting) / 2) +
                      x * roomFor(fitting, area.size.width)),
           std::round(area.minY() + std::min(margin, (area.size.height - fitting) / 2) +
                      y * roomFor(fitting, area.size.height))},
          {fitting, fitting}};
}

void BubblePlace::moveTo(Point corner, const Rect& area) {
  x = snapped(corner.x, area.minX() + margin, roomFor(side, area.size.width));
  y = snapped(corner.y, area.minY() + margin, roomFor(side, area.size.height));
}

void BubblePlace::resize(double wanted, const Rect& area) {
  const Rect before = frameIn(area);
  side = std::round(std::clamp(wanted, leastSide, mostSide));
  const auto keep = [&](double& part, double middle, double from, double length) {
    const double room = roomFor(side, length);
    if (part <= 0 || part >= 1 || room <= 0) return;
    part = std::clamp((middle - side / 2 - from - margin) / room, 0.0, 1.0);
  };
  keep(x, before.minX() + before.size.width / 2, area.minX(), area.size.width);
  keep(y, before.minY() + before.size.height / 2, area.minY(), area.size.height);
}

BubblePlace BubblePlace::load(const PreferenceStore& preferences) {
  const QVariantList stored = preferences.value(key).toList();
  if (stored.size() != 3) return {};
  BubblePlace place;
  double* const parts[] = {&place.side, &place.x, &place.y};
  for (int i = 0; i < 3; ++i) {
    bool isNumber = false;
    *parts[i] = stored[i].toDouble(&isNumber);
    if (!isNumber || !std::isfinite(*parts[i])) return {};
  }
  place.side = std::clamp(place.side, leastSide, mostSide);
  place.x = std::clamp(place.x, 0.0, 1.0);
  place.y = std::clamp(place.y, 0.0, 1.0);
  return place;
}

void BubblePlace::store(PreferenceStore& preferences) const {
  preferences.setValue(key, QVariantList{side, x, y});
}

}  // namespace vellora
