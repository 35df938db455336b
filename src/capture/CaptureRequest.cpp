#include "capture/CaptureRequest.h"

#include <algorithm>

#include "base/Json.h"

namespace vellora {
namespace {

constexpr std::pair<CaptureRequest::Kind, const char*> kindNames[] = {{CaptureRequest::Kind::FullScreen, "fullscreen"},
                                                                      {CaptureRequest::Kind::Area, "area"},
                                                                      {CaptureRequest::Kind::Window, "window"}};
constexpr qsizetype maximumRequestBytes = 64 << 10;

std::optional<int> coordinate(const Json& value) {
  constexpr std::int64_t limit = 1 << 20;
  const auto number = json::integer(value);
  if (!number || *number < -limit || *number > limit) return std::nullopt;
  return static_cast<int>(*number);
}

std::optional<PixelRect> decodeRegion(const Json& value) {
  if (!value.is_array() || value.size() != 4) return std::nullopt;
  std::array<int, 4> parts{};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const auto part = coordinate(value[i]);
    if (!part) return std::nullopt;
    parts[i] = *part;
  }
  const PixelRect rect{parts[0], parts[1], parts[2], parts[3]};
  if (rect.isEmpty()) return std::nullopt;
  return rect;
}

std::optional<std::uint32_t> decodeId(const Json& value) {
  const auto number = json::integer(value);
  if (!number || *number < 0 || *number > UINT32_MAX) return std::nullopt;
  return static_cast<std::uint32_t>(*number);
}

const DisplayInfo* displayHolding(const std::vector<DisplayInfo>& displays, const PixelRect& rect) {
  const DisplayInfo* best = nullptr;
  std::int64_t bestArea = 0;
  for (const DisplayInfo& display : displays) {
    const PixelRect part = display.frame.intersected(rect);
    const std::int64_t area = std::int64_t{part.width} * part.height;
    if (area > bestArea) {
      best = &display;
      bestArea = area;
    }
  }
  return best;
}

Result<CaptureTarget, CaptureError> fullScreenTarget(const CaptureRequest& request, const ShareableContent& content,
                                                     std::optional<PixelPoint> pointer) {
  const auto& displays = content.displays;
  auto found = displays.end();
  if (request.display) {
    found = std::ranges::find(displays, *request.display, &DisplayInfo::id);
  } else {
    if (pointer)
      found = std::ranges::find_if(displays, [&](const DisplayInfo& d) { return d.frame.contains(*pointer); });
    if (found == displays.end()) found = displays.begin();
  }
  if (found == displays.end()) return failure(CaptureError::NoDisplay);
  return CaptureTarget{{found->frame, found->id}, found->scale, *found, std::nullopt};
}

Result<CaptureTarget, CaptureError> windowTarget(WindowId id, const ShareableContent& content) {
  const auto window = std::ranges::find(content.windows, id, &WindowInfo::id);
  if (window == content.windows.end()) return failure(CaptureError::WindowGone);
  const DisplayInfo* display = displayHolding(content.displays, window->frame);
  return CaptureTarget{{window->frame, display ? display->id : 0}, display ? display->scale : 1, std::nullopt, id};
}

}  // namespace

QByteArray encode(const CaptureRequest& request) {
  Json object;
  for (const auto& [kind, name] : kindNames) {
    if (kind == request.kind) object["kind"] = name;
  }
  if (const auto& r = request.region) object["region"] = {r->x, r->y, r->width, r->height};
  if (request.window) object["window"] = *request.window;
  if (request.display) object["display"] = *request.display;
  object["delay"] = request.delay;
  object["copy"] = request.copy;
  object["save"] = request.save;
  object["edit"] = request.edit;
  object["pin"] = request.pin;
  if (!request.outputFile.isEmpty()) object["outputFile"] = request.outputFile.toStdString();
  return json::serialize(object);
}

std::optional<CaptureRequest> decodeCaptureRequest(const QByteArray& text) {
  if (text.size() > maximumRequestBytes) return std::nullopt;
  const auto object = json::parse(text);
  if (!object) return std::nullopt;
  CaptureRequest request;
  const Json* kind = json::member(*object, "kind");
  const auto kindName = kind ? json::string(*kind) : std::nullopt;
  const auto named = std::ranges::find_if(
      kindNames, [&](const auto& entry) { return kindName && *kindName == QLatin1StringView(entry.second); });
  if (named == std::end(kindNames)) return std::nullopt;
  request.kind = named->first;

  if (const Json* region = json::member(*object, "region")) {
    request.region = decodeRegion(*region);
    if (!request.region) return std::nullopt;
  }
  const std::pair<const char*, std::optional<std::uint32_t>*> ids[] = {{"window", &request.window},
                                                                       {"display", &request.display}};
  for (const auto& [key, target] : ids) {
    const Json* value = json::member(*object, key);
    if (!value) continue;
    *target = decodeId(*value);
    if (!*target) return std::nullopt;
  }
  if (const Json* delay = json::member(*object, "delay")) {
    const auto seconds = json::number(*delay);
    if (!seconds || *seconds < 0 || *seconds > maximumCaptureDelay) return std::nullopt;
    request.delay = *seconds;
  }
  const std::pair<const char*, bool*> flags[] = {
      {"copy", &request.copy}, {"save", &request.save}, {"edit", &request.edit}, {"pin", &request.pin}};
  for (const auto& [key, target] : flags) {
    const Json* value = json::member(*object, key);
    if (!value) continue;
    const auto flag = json::boolean(*value);
    if (!flag) return std::nullopt;
    *target = *flag;
  }
  if (const Json* output = json::member(*object, "outputFile")) {
    const auto path = json::string(*output);
    if (!path || !path->startsWith(u'/')) return std::nullopt;
    request.outputFile = *path;
  }
  return request;
}

std::optional<AfterCaptureActions> namedActions(const CaptureRequest& request) {
  const std::pair<bool, AfterCaptureAction> flags[] = {{request.edit, AfterCaptureAction::ShowEditor},
                                                       {request.copy, AfterCaptureAction::Copy},
                                                       {request.save, AfterCaptureAction::Save},
                                                       {request.pin, AfterCaptureAction::Pin}};
  qint64 raw = 0;
  for (const auto& [isSet, action] : flags) {
    if (isSet) raw |= static_cast<qint64>(action);
  }
  if (raw == 0) return std::nullopt;
  return AfterCaptureActions::fromRaw(raw);
}

Result<CaptureTarget, CaptureError> resolveTarget(const CaptureRequest& request, const ShareableContent& content,
                                                  std::optional<PixelPoint> pointer) {
  if (request.kind == CaptureRequest::Kind::Window && request.window) return windowTarget(*request.window, content);
  if (request.kind == CaptureRequest::Kind::Area && request.region) {
    const DisplayInfo* display = displayHolding(content.displays, *request.region);
    if (!display) return failure(CaptureError::NoDisplay);
    return CaptureTarget{{*request.region, display->id}, display->scale, std::nullopt, std::nullopt};
  }
  return fullScreenTarget(request, content, pointer);
}

void capture(CaptureEngine& engine, const CaptureTarget& target, CaptureEngine::Callback<CaptureEngine::Image> done) {
  if (target.display) return engine.captureDisplay(*target.display, std::move(done));
  if (target.window) return engine.captureWindow(*target.window, target.scale, std::move(done));
  engine.captureRegion(target.origin.rect, target.scale, std::move(done));
}

}  // namespace vellora
