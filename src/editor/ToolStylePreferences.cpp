#include "editor/ToolStylePreferences.h"

#include <algorithm>

#include "base/Json.h"
#include "editor/Palette.h"
#include "preferences/PreferenceKeys.h"

namespace vellora {
namespace {

Json encode(const ToolStyle& style) {
  return Json{{"red", style.color.red},       {"green", style.color.green},
              {"blue", style.color.blue},     {"alpha", style.color.alpha},
              {"lineWidth", style.lineWidth}, {"textBackground", style.textBackground},
              {"arrowSketch", style.sketch},  {"textHandwritten", style.textHandwritten},
              {"shapeFill", style.shapeFill}};
}

/// What is missing or unreadable keeps the value of `fallback`.
ToolStyle decode(const Json& value, const ToolStyle& fallback) {
  ToolStyle style = fallback;
  if (const auto color = json::color(value)) style.color = *color;
  if (const Json* width = json::member(value, "lineWidth")) {
    style.lineWidth = std::clamp(json::number(*width).value_or(style.lineWidth), minimumLineWidth, maximumLineWidth);
  }
  const std::pair<const char*, bool*> switches[] = {{"textBackground", &style.textBackground},
                                                    {"arrowSketch", &style.sketch},
                                                    {"textHandwritten", &style.textHandwritten},
                                                    {"shapeFill", &style.shapeFill}};
  for (const auto& [key, target] : switches) {
    if (const Json* stored = json::member(value, key)) *target = json::boolean(*stored).value_or(*target);
  }
  return style;
}

}  // namespace

ToolStyle ToolStylePreferences::defaultStyle(Tool tool) {
  ToolStyle style;
  style.color = Palette::red;
  style.sketch = tool == Tool::Arrow || tool == Tool::Box || tool == Tool::Ellipse;
  return style;
}

void ToolStylePreferences::load() {
  if (styles_) return;
  styles_.emplace();
  const auto stored = json::parse(preferences_.data(preferenceKey::toolStyles).value_or(QByteArray()));
  if (!stored) return;
  for (const Tool tool : allTools) {
    const Json* style = json::member(*stored, storageKey(tool).toStdString());
    if (style && style->is_object()) styles_->emplace(tool, decode(*style, defaultStyle(tool)));
  }
}

ToolStyle ToolStylePreferences::resolvedStyle(Tool tool) {
  load();
  const auto found = styles_->find(tool);
  return found == styles_->end() ? defaultStyle(tool) : found->second;
}

void ToolStylePreferences::set(const ToolStyle& style, Tool tool) {
  load();
  styles_->insert_or_assign(tool, style);
  Json all = Json::object();
  for (const auto& [styledTool, value] : *styles_) all[storageKey(styledTool).toStdString()] = encode(value);
  preferences_.setValue(preferenceKey::toolStyles, json::serialize(all));
}

}  // namespace vellora
