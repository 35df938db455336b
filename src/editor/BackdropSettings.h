#pragma once

#include <array>
#include <optional>
#include <variant>
#include <vector>

#include <QString>

#include "base/Color.h"
#include "base/Geometry.h"

namespace vellora {

/// A colour at a place of a gradient, 0 its start and 1 its end.
struct GradientStop {
  double position = 0;
  ColorComponents color;
  friend bool operator==(const GradientStop&, const GradientStop&) = default;
};

/// What a backdrop is painted with.
struct BackdropBackground {
  struct Solid {
    ColorComponents color;
    friend bool operator==(const Solid&, const Solid&) = default;
  };
  struct Gradient {
    std::vector<GradientStop> stops;  ///< by position
    double angle = 135;               ///< degrees, 0 to the right, growing clockwise on screen
    friend bool operator==(const Gradient&, const Gradient&) = default;
  };
  struct Image {
    QString path;  ///< absolute; a picture of the person's own
    friend bool operator==(const Image&, const Image&) = default;
  };
  struct BuiltInImage {
    QString identifier;  ///< "arc", "haze", "lavender", "ember", "moss", "lagoon", "sky"
    friend bool operator==(const BuiltInImage&, const BuiltInImage&) = default;
  };
  std::variant<Solid, Gradient, Image, BuiltInImage> value = Solid{{0.851, 0.851, 0.851, 1}};
  friend bool operator==(const BackdropBackground&, const BackdropBackground&) = default;
};

/// The device drawn around the content.
enum class DeviceFrame { BrowserLight, BrowserDark, LaptopLight, LaptopDark, PhoneLight, PhoneDark };

/// The decorative ground a document is set on. A plain value.
struct BackdropSettings {
  /// Stored by raw value.
  enum class Aspect { Auto, Square, ThreeFour, FourThree, SixteenNine };
  /// Stored by raw value.
  enum class EdgeBlurDirection { None, Bottom, Left, Right, All };

  bool enabled = false;
  BackdropBackground background;
  Aspect aspect = Aspect::Auto;
  double insetFraction = 0.06;  ///< margin as a fraction of the content's longer side
  double shadow = 0.32;         ///< 0 to 1
  double innerRadius = 10;      ///< of the content's corners, in points
  std::optional<DeviceFrame> deviceFrame;
  double tiltX = 0;     ///< degrees about the vertical axis
  double tiltY = 0;     ///< degrees about the horizontal axis
  double rotation = 0;  ///< degrees clockwise
  EdgeBlurDirection edgeBlurDirection = EdgeBlurDirection::None;
  double edgeBlurStrength = 0;  ///< 0 to 1
  double noiseIntensity = 0;    ///< 0 to 1
  double glowIntensity = 0;     ///< 0 to 1
  Point glowCenter{0.5, 0.85};  ///< as fractions of the document's width and height
  double contentScale = 1;
  Point contentOffset;  ///< as fractions of the document's width and height
  friend bool operator==(const BackdropSettings&, const BackdropSettings&) = default;

  /// The size of the document for a content of `image`: itself when the backdrop is off, else with the margin, grown to
  /// the aspect.
  Size documentSize(Size image) const;

  /// The same settings with every number inside its limits; numbers that are not finite become the default. What is
  /// drawn and what is stored goes through here, so that no document asks for the absurd.
  BackdropSettings clamped() const;
};

/// Width divided by height; nothing for Auto.
std::optional<double> aspectRatio(BackdropSettings::Aspect aspect);

/// The greatest values of a backdrop; the least are 0, or the same below 0 for angles and offsets.
namespace backdropLimits {
inline constexpr double insetFraction = 1;
inline constexpr double innerRadius = 2000;
inline constexpr double tilt = 30;
inline constexpr double rotation = 45;
inline constexpr double minimumContentScale = 0.1;
inline constexpr double contentScale = 4;
inline constexpr double contentOffset = 1;
inline constexpr std::size_t gradientStops = 16;
inline constexpr qsizetype pathLength = 4096;
}  // namespace backdropLimits

/// A built-in solid background.
struct BackdropPreset {
  const char* name;
  ColorComponents color;
};

/// The built-in solids in the order they are shown; the second one is a new backdrop's background.
inline constexpr std::array<BackdropPreset, 10> backdropPresets{{{"White", {1, 1, 1, 1}},
                                                                 {"Gray", {0.851, 0.851, 0.851, 1}},
                                                                 {"Black", {0, 0, 0, 1}},
                                                                 {"Blue", {0.243, 0.388, 0.867, 1}},
                                                                 {"Purple", {0.557, 0.306, 0.776, 1}},
                                                                 {"Pink", {0.839, 0.251, 0.624, 1}},
                                                                 {"Red", {0.898, 0.282, 0.302, 1}},
                                                                 {"Orange", {0.969, 0.42, 0.082, 1}},
                                                                 {"Green", {0.188, 0.643, 0.424, 1}},
                                                                 {"Teal", {0.071, 0.647, 0.580, 1}}}};

/// A built-in gradient.
struct BackdropGradientPreset {
  const char* name;
  BackdropBackground::Gradient gradient;
};

/// The built-in gradients in the order they are shown.
const std::vector<BackdropGradientPreset>& backdropGradientPresets();

/// The identifiers of the curated pictures in the order they are shown.
inline constexpr std::array<const char*, 7> curatedPictures{"arc",  "haze",   "lavender", "ember",
                                                            "moss", "lagoon", "sky"};

}  // namespace vellora
