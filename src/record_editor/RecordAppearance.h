#pragma once

#include <cstdint>
#include <optional>

#include "base/Color.h"
#include "base/Json.h"
#include "editor/BackdropSettings.h"

namespace vellora {

/// The ground the screen piece is set on.
struct RecordBackdropSettings {
  bool enabled = false;
  BackdropBackground background{};
  BackdropSettings::Aspect aspect = BackdropSettings::Aspect::Auto;
  double insetFraction = 0.06;  ///< margin as a fraction of the canvas
  double shadow = 0.32;         ///< 0 to 1
  std::optional<DeviceFrame> deviceFrame{};
  friend bool operator==(const RecordBackdropSettings&, const RecordBackdropSettings&) = default;
};

/// The camera piece's look.
struct RecordCameraSettings {
  bool mirrored = true;
  bool backgroundEnabled = false;  ///< replaces what is behind the person
  BackdropBackground background{};
  friend bool operator==(const RecordCameraSettings&, const RecordCameraSettings&) = default;
};

/// How captions look.
struct CaptionStyle {
  double fontSize = 42;  ///< in lines of a picture of 1080
  ColorComponents textColor{1, 1, 1, 1};
  ColorComponents boxColor{0, 0, 0, 0.65};
  double position = 0.9;  ///< of the lower edge, as a fraction of the picture's height
  friend bool operator==(const CaptionStyle&, const CaptionStyle&) = default;
};

// The stored forms: one key a field, in their order. Backgrounds, aspects and device frames are stored as those of a
// picture's backdrop are. Readers give a missing key its default, and nothing when `value` is no object or a key holds
// another type.
Json encodeRecordBackdrop(const RecordBackdropSettings& settings);
std::optional<RecordBackdropSettings> decodeRecordBackdrop(const Json& value);
Json encodeRecordCamera(const RecordCameraSettings& settings);
std::optional<RecordCameraSettings> decodeRecordCamera(const Json& value);
Json encodeCaptionStyle(const CaptionStyle& style);
std::optional<CaptionStyle> decodeCaptionStyle(const Json& value);

}  // namespace vellora
