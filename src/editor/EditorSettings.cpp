#include "editor/EditorSettings.h"

#include <algorithm>
#include <cmath>

#include "editor/StoredColor.h"
#include "preferences/PreferenceKeys.h"

namespace vellora {
namespace {

double storedNumber(const PreferenceStore& preferences, const QString& key, double least, double greatest,
                    double fallback) {
  const QVariant stored = preferences.value(key);
  const bool isNumber = stored.typeId() == QMetaType::Double || stored.typeId() == QMetaType::LongLong ||
                        stored.typeId() == QMetaType::Int;
  const double number = isNumber ? stored.toDouble() : fallback;
  return std::isfinite(number) ? std::clamp(number, least, greatest) : fallback;
}

}  // namespace

std::optional<ColorComponents> EditorSettings::eraseFillColor() const {
  return colorFromStored(preferences_.value(preferenceKey::eraseFillColor));
}

void EditorSettings::setEraseFillColor(const std::optional<ColorComponents>& color) {
  if (color) {
    preferences_.setValue(preferenceKey::eraseFillColor, storedColor(*color));
  } else {
    preferences_.remove(preferenceKey::eraseFillColor);
  }
}

double EditorSettings::blurStrength() const {
  return storedNumber(preferences_, preferenceKey::blurStrength, 0, 1, defaultBlurStrength);
}

void EditorSettings::setBlurStrength(double strength) {
  preferences_.setValue(preferenceKey::blurStrength, strength);
}

BlurStyle EditorSettings::blurStyle() const {
  const auto stored = preferences_.integer(preferenceKey::blurStyleDefault);
  if (stored && *stored >= 0 && *stored <= static_cast<qint64>(BlurStyle::Gaussian)) {
    return static_cast<BlurStyle>(*stored);
  }
  const bool erases = preferences_.boolean(preferenceKey::blurEraseDefault).value_or(false);
  return erases ? BlurStyle::Erase : BlurStyle::Mosaic;
}

void EditorSettings::setBlurStyle(BlurStyle style) {
  preferences_.setValue(preferenceKey::blurStyleDefault, static_cast<qlonglong>(style));
  preferences_.setValue(preferenceKey::blurEraseDefault, style == BlurStyle::Erase);
}

double EditorSettings::magnification() const {
  return storedNumber(preferences_, preferenceKey::magnifierMagnification, minimumMagnification, maximumMagnification,
                      defaultMagnification);
}

void EditorSettings::setMagnification(double magnification) {
  preferences_.setValue(preferenceKey::magnifierMagnification, magnification);
}

MagnifierShape EditorSettings::magnifierShape() const {
  const auto stored = preferences_.integer(preferenceKey::magnifierShape);
  return stored == static_cast<qint64>(MagnifierShape::RoundedRect) ? MagnifierShape::RoundedRect
                                                                    : MagnifierShape::Circle;
}

void EditorSettings::setMagnifierShape(MagnifierShape shape) {
  preferences_.setValue(preferenceKey::magnifierShape, static_cast<qlonglong>(shape));
}

}  // namespace vellora
