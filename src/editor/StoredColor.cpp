#include "editor/StoredColor.h"

#include <array>

namespace vellora {

QVariant storedColor(const ColorComponents& color) {
  return QVariantList{color.red, color.green, color.blue, color.alpha};
}

std::optional<ColorComponents> colorFromStored(const QVariant& stored) {
  if (stored.typeId() != QMetaType::QVariantList) return std::nullopt;
  const QVariantList list = stored.toList();
  std::array<double, 4> parts{};
  if (list.size() != static_cast<qsizetype>(parts.size())) return std::nullopt;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    bool isNumber = false;
    parts[i] = list[static_cast<qsizetype>(i)].toDouble(&isNumber);
    if (!isNumber || !(parts[i] >= 0 && parts[i] <= 1)) return std::nullopt;
  }
  return ColorComponents{parts[0], parts[1], parts[2], parts[3]};
}

}  // namespace vellora
