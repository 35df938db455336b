#include "capture/ui/OverlayTextTable.h"

#include <cmath>

#include <QtGlobal>

namespace vellora {
namespace {

constexpr qsizetype longestTitle = 60;

/// A length in points, with one decimal place where it needs one.
QString points(int pixels, double scale) {
  const double value = std::round(pixels / scale * 10) / 10;
  return QString::number(value, 'f', std::floor(value) == value ? 0 : 1);
}

QString sizeText(PixelSize size, double scale) {
  QString pixels = QStringLiteral("%1 × %2").arg(size.width).arg(size.height);
  if (scale == 1) return pixels;
  //% "%1 px  ·  %2 × %3 pt"
  return qtTrId("overlay.badge.scaledSize").arg(pixels, points(size.width, scale), points(size.height, scale));
}

}  // namespace

QString overlayHint(const QString& key) {
  if (key == QLatin1String("overlay.hint.area")) {
    //% "Drag an area or click a window  ·  Space from the keyboard  ·  Esc cancels"
    return qtTrId("overlay.hint.area");
  }
  if (key == QLatin1String("overlay.hint.text")) {
    //% "Drag over the text to read  ·  Esc cancels"
    return qtTrId("overlay.hint.text");
  }
  if (key == QLatin1String("overlay.hint.scrolling")) {
    //% "Drag over the part that scrolls  ·  Esc cancels"
    return qtTrId("overlay.hint.scrolling");
  }
  if (key == QLatin1String("overlay.hint.recording")) {
    //% "Drag the area to record or click a window  ·  Esc cancels"
    return qtTrId("overlay.hint.recording");
  }
  if (key == QLatin1String("overlay.hint.adjust")) {
    //% "Drag the handles or use the arrow keys  ·  Return takes it  ·  Esc starts over"
    return qtTrId("overlay.hint.adjust");
  }
  if (key == QLatin1String("overlay.hint.window")) {
    //% "Click a window  ·  Tab goes through them  ·  Esc cancels"
    return qtTrId("overlay.hint.window");
  }
  return {};
}

QString overlayBadge(const OverlayScene& scene, const DisplayInfo& display) {
  if (!scene.clear) return {};
  QString text = scene.title.simplified();
  if (text.size() > longestTitle) text = text.left(longestTitle - 1) + QChar(0x2026);
  if (!scene.showsSize) return text;
  if (!text.isEmpty()) text += QStringLiteral("   ");
  return text + sizeText(scene.clear->size(), display.scale);
}

}  // namespace vellora
