#pragma once

#include <optional>
#include <span>
#include <string>

namespace vellora {

/// A way in which a camera gives pictures.
struct CameraMode {
  std::string format;         ///< as libavdevice names it: a pixel format, or "mjpeg"
  bool isCompressed = false;  ///< has to be decoded
  int width = 0;              ///< pixels
  int height = 0;
  double rate = 0;  ///< pictures a second; 0: not known
};

/// The mode whose size is next to the wished one, unless it gives far less than 24 pictures a second, as many cameras
/// do with large pictures that are not compressed. Among equals a rate next to 30, and one that need not be decoded.
std::optional<CameraMode> bestMode(std::span<const CameraMode> modes, int width, int height);

}  // namespace vellora
