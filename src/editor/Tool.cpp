#include "editor/Tool.h"

namespace vellora {
namespace {

struct ToolNames {
  const char* storageKey;
  const char* localizationKey;
};

constexpr std::array<ToolNames, allTools.size()> names{{{"select", "tool.select"},
                                                        {"arrow", "tool.arrow"},
                                                        {"box", "tool.rectangle"},
                                                        {"ellipse", "tool.ellipse"},
                                                        {"line", "tool.line"},
                                                        {"text", "tool.text"},
                                                        {"blur", "tool.pixelate"},
                                                        {"counter", "tool.counter"},
                                                        {"magnifier", "tool.magnifier"},
                                                        {"pen", "tool.pen"}}};

}  // namespace

std::optional<Tool> toolFromRaw(std::int64_t raw) {
  if (raw < 0 || raw >= static_cast<std::int64_t>(allTools.size())) return std::nullopt;
  return static_cast<Tool>(raw);
}

QString storageKey(Tool tool) {
  return QString::fromLatin1(names[static_cast<std::size_t>(tool)].storageKey);
}

const char* localizationKey(Tool tool) {
  return names[static_cast<std::size_t>(tool)].localizationKey;
}

std::optional<Annotation::Kind> drawnKind(Tool tool) {
  if (tool == Tool::Select) return std::nullopt;
  return static_cast<Annotation::Kind>(static_cast<int>(tool) - 1);
}

Tool toolOf(Annotation::Kind kind) {
  return static_cast<Tool>(static_cast<int>(kind) + 1);
}

}  // namespace vellora
