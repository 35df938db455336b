#include "record_editor/RecordAppearance.h"

#include <algorithm>

#include "base/JsonFields.h"
#include "editor/BackdropRecord.h"

namespace vellora {

Json encodeRecordBackdrop(const RecordBackdropSettings& settings) {
  Json object{{"enabled", settings.enabled},
              {"background", encodeBackground(settings.background)},
              {"aspect", static_cast<int>(settings.aspect)},
              {"insetFraction", settings.insetFraction},
              {"shadow", settings.shadow}};
  if (settings.deviceFrame) object["deviceFrame"] = deviceFrameName(*settings.deviceFrame);
  return object;
}

std::optional<RecordBackdropSettings> decodeRecordBackdrop(const Json& value) {
  RecordBackdropSettings settings;
  json::FieldReader fields(value);
  fields.into(settings.enabled, "enabled", json::boolean);
  fields.into(settings.background, "background", decodeBackground);
  fields.rawValue(settings.aspect, "aspect", BackdropSettings::Aspect::SixteenNine);
  fields.into(settings.insetFraction, "insetFraction", json::number);
  fields.into(settings.shadow, "shadow", json::number);
  fields.into(settings.deviceFrame, "deviceFrame", decodeDeviceFrame);
  if (!fields.ok()) return std::nullopt;
  settings.insetFraction = std::clamp(settings.insetFraction, 0.0, backdropLimits::insetFraction);
  settings.shadow = std::clamp(settings.shadow, 0.0, 1.0);
  return settings;
}

Json encodeRecordCamera(const RecordCameraSettings& settings) {
  return Json{{"mirrored", settings.mirrored},
              {"backgroundEnabled", settings.backgroundEnabled},
              {"background", encodeBackground(settings.background)}};
}

std::optional<RecordCameraSettings> decodeRecordCamera(const Json& value) {
  RecordCameraSettings settings;
  json::FieldReader fields(value);
  fields.into(settings.mirrored, "mirrored", json::boolean);
  fields.into(settings.backgroundEnabled, "backgroundEnabled", json::boolean);
  fields.into(settings.background, "background", decodeBackground);
  return fields.ok() ? std::optional(settings) : std::nullopt;
}

Json encodeCaptionStyle(const CaptionStyle& style) {
  return Json{{"fontSize", style.fontSize},
              {"textColor", json::fromColor(style.textColor)},
              {"boxColor", json::fromColor(style.boxColor)},
              {"position", style.position}};
}

std::optional<CaptionStyle> decodeCaptionStyle(const Json& value) {
  CaptionStyle style;
  json::FieldReader fields(value);
  fields.into(style.fontSize, "fontSize", json::number);
  fields.into(style.textColor, "textColor", json::color);
  fields.into(style.boxColor, "boxColor", json::color);
  fields.into(style.position, "position", json::number);
  if (!fields.ok()) return std::nullopt;
  style.fontSize = std::clamp(style.fontSize, 8.0, 400.0);
  style.position = std::clamp(style.position, 0.0, 1.0);
  return style;
}

}  // namespace vellora
