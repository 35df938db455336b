#pragma once

#include <optional>

#include "base/Geometry.h"
#include "base/Json.h"
#include "editor/BackdropSettings.h"

namespace vellora {

/// Where one piece stands on the output canvas.
struct PiecePlacement {
  Rect rect;                  ///< in canvas units
  bool fill = false;          ///< fills the rectangle rather than fits into it
  double cornerFraction = 0;  ///< corner radius as a fraction of the shorter side
  bool visible = true;
  friend bool operator==(const PiecePlacement&, const PiecePlacement&) = default;
};

/// Which corners of the screen piece are rounded.
struct RoundedCorners {
  bool topLeft = true;
  bool topRight = true;
  bool bottomRight = true;
  bool bottomLeft = true;
  friend bool operator==(const RoundedCorners&, const RoundedCorners&) = default;
};

/// The arrangement of the pieces on the output canvas, in canvas units.
struct ScenePose {
  Size canvas;
  Rect content;          ///< what the backdrop's margin leaves
  Rect screenPlacement;  ///< the place given to the screen piece
  Rect screen;           ///< where its picture stands in it
  bool screenVisible = true;
  bool screenFill = false;
  double screenCornerRadius = 0;
  RoundedCorners screenCorners{};
  std::optional<DeviceFrame> deviceShell{};
  PiecePlacement cameraPlacement{};
  Rect camera;  ///< where its picture stands
  double cameraCornerRadius = 0;
  friend bool operator==(const ScenePose&, const ScenePose&) = default;
};

/// The stored form: one key a field in their order. "screenCorners" is an array of four booleans, clockwise from the
/// top left; "deviceShell" a text ("browserLight" and so on), left out when there is none; "cameraPlacement" an object.
Json encodePose(const ScenePose& pose);
/// A missing key has its default. Nothing when `value` is no object or a key holds another type.
std::optional<ScenePose> decodePose(const Json& value);

}  // namespace vellora
