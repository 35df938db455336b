#pragma once

#include "platform/PreferenceStore.h"

namespace vellora {

/// How a pinned picture is framed.
struct PinStyle {
  /// Of the picture's corners where they are round, in points.
  static constexpr double cornerRadius = 16;

  bool shadow = true;
  bool roundedCorners = false;
  friend bool operator==(const PinStyle&, const PinStyle&) = default;

  /// What a new pin starts with: the style last chosen for any pin, "vellora.pinShadow" and
  /// "vellora.pinRoundedCorners".
  static PinStyle load(const PreferenceStore& preferences);
  void store(PreferenceStore& preferences) const;
};

}  // namespace vellora
