#pragma once

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
};

}  // namespace vellora
