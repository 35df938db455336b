#pragma once

class QAbstractScrollArea;

namespace vellora {

inline constexpr int scrollBarWidth = 12;  ///< points

/// Gives the vertical scroll bar of an area the kit's look, a slim handle without a track, now and at every change of
/// the theme. `width` in points.
void styleScrollBars(QAbstractScrollArea& area, int width = scrollBarWidth);

}  // namespace vellora
