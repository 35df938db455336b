#include "editor/painting/TextFont.h"

#include <QFontDatabase>
#include <QImage>

#include "base/Log.h"

namespace vellora {
namespace {

bool hasHandDrawnFace() {
  static const bool has = [] {
    const bool found = QFontDatabase::hasFamily(QStringLiteral("Shantell Sans"));
    if (!found) log::warning(QStringLiteral("Shantell Sans: missing ShantellSans-SemiBold.ttf in bundle"));
    return found;
  }();
  return has;
}

bool hasInter() {
  static const bool has = QFontDatabase::hasFamily(QStringLiteral("Inter"));
  return has;
}

}  // namespace

QFont textFont(double size, bool handwritten, QFont::Weight weight) {
  constexpr double handDrawnScale = 1.08;
  QFont font;
  if (handwritten && hasHandDrawnFace()) {
    font.setFamilies({QStringLiteral("Shantell Sans")});
    font.setPointSizeF(size * handDrawnScale);
    font.setWeight(QFont::DemiBold);
  } else {
    if (hasInter()) font.setFamilies({QStringLiteral("Inter")});
    font.setPointSizeF(size);
    font.setWeight(weight);
  }
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setStyleStrategy(QFont::PreferAntialias);
  return font;
}

const QPaintDevice& textDevice() {
  static const QImage device = [] {
    constexpr int dotsPerMeter = 2835;  // 72 an inch
    QImage image(1, 1, QImage::Format_Grayscale8);
    image.setDotsPerMeterX(dotsPerMeter);
    image.setDotsPerMeterY(dotsPerMeter);
    return image;
  }();
  return device;
}

}  // namespace vellora
