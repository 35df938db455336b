#include "editor/BackdropRecord.h"

#include <algorithm>
#include <utility>

#include "base/JsonFields.h"

namespace vellora {
namespace {

constexpr std::pair<DeviceFrame, const char*> frameNames[] = {
    {DeviceFrame::BrowserLight, "browserLight"}, {DeviceFrame::BrowserDark, "browserDark"},
    {DeviceFrame::LaptopLight, "laptopLight"},   {DeviceFrame::LaptopDark, "laptopDark"},
    {DeviceFrame::PhoneLight, "phoneLight"},     {DeviceFrame::PhoneDark, "phoneDark"},
};

struct BackgroundEncoder {
  Json operator()(const BackdropBackground::Solid& solid) const {
    return Json{{"kind", "solid"}, {"color", json::fromColor(solid.color)}};
  }
  Json operator()(const BackdropBackground::Gradient& gradient) const {
    Json stops = Json::array();
    for (const GradientStop& stop : gradient.stops) {
      stops.push_back(Json{{"position", stop.position}, {"color", json::fromColor(stop.color)}});
    }
    return Json{{"kind", "gradient"}, {"stops", std::move(stops)}, {"angle", gradient.angle}};
  }
  Json operator()(const BackdropBackground::Image& image) const {
    return Json{{"kind", "image"}, {"path", json::fromString(image.path)}};
  }
  Json operator()(const BackdropBackground::BuiltInImage& picture) const {
    return Json{{"kind", "builtInImage"}, {"identifier", json::fromString(picture.identifier)}};
  }
};

template <class Reader>
auto read(const Json& object, const char* key, Reader reader) -> decltype(reader(object)) {
  const Json* value = json::member(object, key);
  if (!value) return std::nullopt;
  return reader(*value);
}

std::optional<BackdropBackground::Gradient> decodeGradient(const Json& value) {
  const Json* records = json::member(value, "stops");
  if (!records || !records->is_array() || records->empty()) return std::nullopt;
  BackdropBackground::Gradient gradient;
  for (std::size_t i = 0; i < std::min(records->size(), backdropLimits::gradientStops); ++i) {
    const auto position = read((*records)[i], "position", json::number);
    const auto color = read((*records)[i], "color", json::color);
    if (!position || !color) return std::nullopt;
    gradient.stops.push_back({*position, *color});
  }
  if (const auto angle = read(value, "angle", json::number)) gradient.angle = *angle;
  return gradient;
}

}  // namespace

const char* deviceFrameName(DeviceFrame frame) {
  return std::ranges::find(frameNames, frame, &std::pair<DeviceFrame, const char*>::first)->second;
}

std::optional<DeviceFrame> decodeDeviceFrame(const Json& value) {
  const auto name = json::string(value);
  const auto found = std::ranges::find_if(frameNames, [&](const auto& entry) { return name == entry.second; });
  return found == std::end(frameNames) ? std::nullopt : std::optional(found->first);
}

Json encodeBackground(const BackdropBackground& background) {
  return std::visit(BackgroundEncoder{}, background.value);
}

std::optional<BackdropBackground> decodeBackground(const Json& value) {
  const auto kind = read(value, "kind", json::string);
  if (!kind) return std::nullopt;
  if (*kind == u"solid") {
    if (const auto color = read(value, "color", json::color)) {
      return BackdropBackground{BackdropBackground::Solid{*color}};
    }
  } else if (*kind == u"gradient") {
    if (const auto gradient = decodeGradient(value)) return BackdropBackground{*gradient};
  } else if (*kind == u"image") {
    const auto path = read(value, "path", json::string);
    if (path && path->size() <= backdropLimits::pathLength) {
      return BackdropBackground{BackdropBackground::Image{*path}};
    }
  } else if (*kind == u"builtInImage") {
    if (const auto identifier = read(value, "identifier", json::string)) {
      return BackdropBackground{BackdropBackground::BuiltInImage{*identifier}};
    }
  }
  return std::nullopt;
}

Json encodeBackdrop(const BackdropSettings& settings) {
  const BackdropSettings s = settings.clamped();
  Json object{{"enabled", s.enabled},
              {"background", encodeBackground(s.background)},
              {"aspect", static_cast<int>(s.aspect)},
              {"insetFraction", s.insetFraction},
              {"shadow", s.shadow},
              {"innerRadius", s.innerRadius}};
  if (s.deviceFrame) object["deviceFrame"] = deviceFrameName(*s.deviceFrame);
  object["tiltX"] = s.tiltX;
  object["tiltY"] = s.tiltY;
  object["rotation"] = s.rotation;
  object["edgeBlurDirection"] = static_cast<int>(s.edgeBlurDirection);
  object["edgeBlurStrength"] = s.edgeBlurStrength;
  object["noiseIntensity"] = s.noiseIntensity;
  object["glowIntensity"] = s.glowIntensity;
  object["glowCenter"] = json::fromPoint(s.glowCenter);
  object["contentScale"] = s.contentScale;
  object["contentOffset"] = json::fromPoint(s.contentOffset);
  return object;
}

std::optional<BackdropSettings> decodeBackdrop(const Json& value) {
  if (!value.is_object()) return std::nullopt;
  BackdropSettings s;
  json::FieldReader fields(value);
  fields.into(s.enabled, "enabled", json::boolean);
  if (const auto background = read(value, "background", decodeBackground)) s.background = *background;
  fields.rawValue(s.aspect, "aspect", BackdropSettings::Aspect::SixteenNine);
  fields.into(s.insetFraction, "insetFraction", json::number);
  fields.into(s.shadow, "shadow", json::number);
  fields.into(s.innerRadius, "innerRadius", json::number);
  s.deviceFrame = read(value, "deviceFrame", decodeDeviceFrame);
  fields.into(s.tiltX, "tiltX", json::number);
  fields.into(s.tiltY, "tiltY", json::number);
  fields.into(s.rotation, "rotation", json::number);
  fields.rawValue(s.edgeBlurDirection, "edgeBlurDirection", BackdropSettings::EdgeBlurDirection::All);
  fields.into(s.edgeBlurStrength, "edgeBlurStrength", json::number);
  fields.into(s.noiseIntensity, "noiseIntensity", json::number);
  fields.into(s.glowIntensity, "glowIntensity", json::number);
  fields.into(s.glowCenter, "glowCenter", json::point);
  fields.into(s.contentScale, "contentScale", json::number);
  fields.into(s.contentOffset, "contentOffset", json::point);
  if (!fields.ok()) return std::nullopt;
  return s.clamped();
}

}  // namespace vellora
