#include "editor/painting/CounterNumber.h"

#include <algorithm>

#include "editor/painting/Contrast.h"
#include "editor/painting/PaintCache.h"

namespace vellora {

void drawCounterNumber(QPainter& painter, int number, Point center, double radius, const QColor& color) {
  TextSetting setting{.text = QString::number(number), .fontSize = radius, .weight = QFont::Bold};
  auto text = PaintCache::ofThisThread().text(setting);
  const double room = 1.6 * radius;
  if (setting.text.size() > 2 && text->size().width > room) {
    setting.fontSize *= room / text->size().width;
    text = PaintCache::ofThisThread().text(setting);
  }
  text->draw(painter, {center.x - text->size().width / 2, center.y - text->size().height / 2}, color);
}

ColorComponents numberColor(const ColorComponents& badge) {
  constexpr double brightest = 0.8;
  return luminance(badge) > brightest ? ColorComponents{0, 0, 0, 1} : ColorComponents{1, 1, 1, 1};
}

}  // namespace vellora
