#pragma once

#include <array>
#include <optional>

#include <QString>

#include "editor/Annotation.h"

namespace vellora {

/// What the pointer does on the canvas. Stored by raw value.
enum class Tool { Select, Arrow, Box, Ellipse, Line, Text, Blur, Counter, Magnifier, Pen };

inline constexpr std::array allTools{Tool::Select, Tool::Arrow, Tool::Box,     Tool::Ellipse,   Tool::Line,
                                     Tool::Text,   Tool::Blur,  Tool::Counter, Tool::Magnifier, Tool::Pen};

/// The tool of a raw value; nothing for 10 and more or less than 0.
std::optional<Tool> toolFromRaw(std::int64_t raw);
/// "select", "arrow" and so on: how the tool's style is stored.
QString storageKey(Tool tool);
/// "tool.rectangle" and so on: the key of the tool's name and tooltip.
const char* localizationKey(Tool tool);
/// The kind of annotation the tool draws; nothing for Select.
std::optional<Annotation::Kind> drawnKind(Tool tool);
/// The tool that draws a kind.
Tool toolOf(Annotation::Kind kind);

}  // namespace vellora
