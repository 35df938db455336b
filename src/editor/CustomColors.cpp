#include "editor/CustomColors.h"

#include "editor/StoredColor.h"
#include "preferences/PreferenceKeys.h"

namespace vellora {

const std::vector<ColorComponents>& CustomColors::colors() {
  if (colors_) return *colors_;
  colors_.emplace();
  const QVariant stored = preferences_.value(preferenceKey::customColors);
  if (stored.typeId() != QMetaType::QVariantList) return *colors_;
  for (const QVariant& entry : stored.toList()) {
    const auto color = colorFromStored(entry);
    if (color && colors_->size() < limit) colors_->push_back(*color);
  }
  return *colors_;
}

std::optional<std::size_t> CustomColors::add(const ColorComponents& color) {
  if (colors().size() >= limit) return std::nullopt;
  colors_->push_back(color);
  save();
  return colors_->size() - 1;
}

void CustomColors::update(const ColorComponents& color, std::size_t index) {
  if (index >= colors().size()) return;
  (*colors_)[index] = color;
  save();
}

void CustomColors::remove(std::size_t index) {
  if (index >= colors().size()) return;
  colors_->erase(colors_->begin() + static_cast<std::ptrdiff_t>(index));
  save();
}

void CustomColors::save() {
  QVariantList list;
  for (const ColorComponents& color : *colors_) list.append(storedColor(color));
  preferences_.setValue(preferenceKey::customColors, list);
}

}  // namespace vellora
