#include "editor/PinStyle.h"

namespace vellora {
namespace {

const QString shadowKey = QStringLiteral("vellora.pinShadow");
const QString roundedCornersKey = QStringLiteral("vellora.pinRoundedCorners");

}  // namespace

PinStyle PinStyle::load(const PreferenceStore& preferences) {
  const PinStyle standard;
  return {preferences.boolean(shadowKey).value_or(standard.shadow),
          preferences.boolean(roundedCornersKey).value_or(standard.roundedCorners)};
}

void PinStyle::store(PreferenceStore& preferences) const {
  preferences.setValue(shadowKey, shadow);
  preferences.setValue(roundedCornersKey, roundedCorners);
}

}  // namespace vellora
