#include "record_editor/ScenePose.h"

#include "base/JsonFields.h"
#include "editor/BackdropRecord.h"

namespace vellora {
namespace {

Json encodePlacement(const PiecePlacement& placement) {
  return Json{{"rect", json::fromRect(placement.rect)},
              {"fill", placement.fill},
              {"cornerFraction", placement.cornerFraction},
              {"visible", placement.visible}};
}

std::optional<PiecePlacement> decodePlacement(const Json& value) {
  PiecePlacement placement;
  json::FieldReader fields(value);
  fields.into(placement.rect, "rect", json::rect);
  fields.into(placement.fill, "fill", json::boolean);
  fields.into(placement.cornerFraction, "cornerFraction", json::number);
  fields.into(placement.visible, "visible", json::boolean);
  return fields.ok() ? std::optional(placement) : std::nullopt;
}

std::optional<RoundedCorners> decodeCorners(const Json& value) {
  if (!value.is_array() || value.size() != 4) return std::nullopt;
  RoundedCorners corners;
  bool* const flags[] = {&corners.topLeft, &corners.topRight, &corners.bottomRight, &corners.bottomLeft};
  for (std::size_t i = 0; i < 4; ++i) {
    const auto flag = json::boolean(value[i]);
    if (!flag) return std::nullopt;
    *flags[i] = *flag;
  }
  return corners;
}

}  // namespace

Json encodePose(const ScenePose& pose) {
  const RoundedCorners& corners = pose.screenCorners;
  Json object{
      {"canvas", json::fromSize(pose.canvas)},
      {"content", json::fromRect(pose.content)},
      {"screenPlacement", json::fromRect(pose.screenPlacement)},
      {"screen", json::fromRect(pose.screen)},
      {"screenVisible", pose.screenVisible},
      {"screenFill", pose.screenFill},
      {"screenCornerRadius", pose.screenCornerRadius},
      {"screenCorners", Json::array({corners.topLeft, corners.topRight, corners.bottomRight, corners.bottomLeft})}};
  if (pose.deviceShell) object["deviceShell"] = deviceFrameName(*pose.deviceShell);
  object["cameraPlacement"] = encodePlacement(pose.cameraPlacement);
  object["camera"] = json::fromRect(pose.camera);
  object["cameraCornerRadius"] = pose.cameraCornerRadius;
  return object;
}

std::optional<ScenePose> decodePose(const Json& value) {
  ScenePose pose;
  json::FieldReader fields(value);
  fields.into(pose.canvas, "canvas", json::size);
  fields.into(pose.content, "content", json::rect);
  fields.into(pose.screenPlacement, "screenPlacement", json::rect);
  fields.into(pose.screen, "screen", json::rect);
  fields.into(pose.screenVisible, "screenVisible", json::boolean);
  fields.into(pose.screenFill, "screenFill", json::boolean);
  fields.into(pose.screenCornerRadius, "screenCornerRadius", json::number);
  fields.into(pose.screenCorners, "screenCorners", decodeCorners);
  fields.into(pose.deviceShell, "deviceShell", decodeDeviceFrame);
  fields.into(pose.cameraPlacement, "cameraPlacement", decodePlacement);
  fields.into(pose.camera, "camera", json::rect);
  fields.into(pose.cameraCornerRadius, "cameraCornerRadius", json::number);
  return fields.ok() ? std::optional(pose) : std::nullopt;
}

}  // namespace vellora
