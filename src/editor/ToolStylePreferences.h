#pragma once

#include <map>
#include <optional>

#include "editor/Tool.h"
#include "editor/ToolStyle.h"
#include "platform/PreferenceStore.h"

namespace vellora {

/// Each tool's style, kept under "toolStyles" as one JSON object from storage key to style. Read once, on first use;
/// every change is written at once. Main thread.
class ToolStylePreferences {
 public:
  explicit ToolStylePreferences(PreferenceStore& preferences) : preferences_(preferences) {}

  /// The stored style, else the default.
  ToolStyle resolvedStyle(Tool tool);
  void set(const ToolStyle& style, Tool tool);
  /// Red, 3 points wide; hand-drawn for arrow, box and ellipse.
  static ToolStyle defaultStyle(Tool tool);

 private:
  void load();

  PreferenceStore& preferences_;
  std::optional<std::map<Tool, ToolStyle>> styles_;
};

}  // namespace vellora
