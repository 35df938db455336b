#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/Geometry.h"

namespace vellora {

class X11Connection;

/// How many device pixels a point has on each display. The rules are those of the toolkit our windows are drawn with,
/// so that the scale of a picture and the scale of a window on the same display are one number, whether or not the
/// process has windows.
class X11Scale {
 public:
  /// A variable of the environment; nothing when it is not set.
  using Variable = std::function<std::optional<std::string>(const char* name)>;

  /// Reads the environment and the display's settings (two or three round trips).
  static X11Scale read(X11Connection& connection);
  /// `settingsDpi` is what the desktop asks for (Xft/DPI of the settings manager, else Xft.dpi of the resources), 0 for
  /// none.
  X11Scale(const Variable& variable, int settingsDpi);

  /// `position` counts from 0, the primary display first; `millimetres` is the display's physical size, empty when
  /// unknown.
  double factor(const std::string& name, int position, PixelSize pixels, PixelSize millimetres) const;

 private:
  enum class Rounding { PassThrough, Round, Ceil, Floor, RoundPreferFloor };
  double rounded(double factor) const;

  double global_ = 1;
  bool useDpi_ = true;
  bool usePhysicalDpi_ = false;
  int dpi_ = 0;
  Rounding rounding_ = Rounding::PassThrough;
  std::vector<std::pair<std::string, double>> byName_;
  std::vector<double> byPosition_;  // 0: none for that position
};

/// The number after "Xft.dpi:" in a resource database as the display's root window holds it; 0 when there is none.
int resourceDpi(const std::string& resources);
/// The value of Xft/DPI in a settings property (XSETTINGS 0.5), in dots per inch; nothing when it is absent or damaged.
std::optional<int> settingsDpi(const std::string& property);

}  // namespace vellora
