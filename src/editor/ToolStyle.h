#pragma once

#include "base/Color.h"

namespace vellora {

/// How a tool draws next; one per tool, remembered across runs.
struct ToolStyle {
  ColorComponents color;
  double lineWidth = 3;  ///< points
  bool textBackground = false;
  bool sketch = false;
  bool textHandwritten = false;
  bool shapeFill = false;
  friend bool operator==(const ToolStyle&, const ToolStyle&) = default;
};

/// The least and greatest line width a person can choose, in points.
inline constexpr double minimumLineWidth = 1;
inline constexpr double maximumLineWidth = 20;

}  // namespace vellora
