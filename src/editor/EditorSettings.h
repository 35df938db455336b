#pragma once

#include <optional>

#include "editor/Annotation.h"
#include "platform/PreferenceStore.h"

namespace vellora {

/// What new blur and magnifier annotations start with. Each value is read on demand, with its default where nothing or
/// something unreadable is stored. Main thread.
class EditorSettings {
 public:
  static constexpr double defaultBlurStrength = 0.5;
  static constexpr double defaultMagnification = 2;
  static constexpr double minimumMagnification = 1.25;
  static constexpr double maximumMagnification = 8;

  explicit EditorSettings(PreferenceStore& preferences) : preferences_(preferences) {}

  /// "vellora.eraseFillColor"; nothing (the default): taken from around the erased area.
  std::optional<ColorComponents> eraseFillColor() const;
  void setEraseFillColor(const std::optional<ColorComponents>& color);
  /// "vellora.blurStrength", 0 to 1.
  double blurStrength() const;
  void setBlurStrength(double strength);
  /// "vellora.blurStyleDefault" and "vellora.blurEraseDefault": mosaic unless the person chose another; the second, a
  /// boolean, decides where the first is absent.
  BlurStyle blurStyle() const;
  void setBlurStyle(BlurStyle style);
  /// "vellora.magnifierMagnification".
  double magnification() const;
  void setMagnification(double magnification);
  /// "vellora.magnifierShape".
  MagnifierShape magnifierShape() const;
  void setMagnifierShape(MagnifierShape shape);

 private:
  PreferenceStore& preferences_;
};

}  // namespace vellora
