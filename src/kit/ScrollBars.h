#pragma once

class QAbstractScrollArea;

namespace vellora {

/// Gives the scroll bars of an area the kit's look, a slim handle without a track, now and at every change of the theme.
void styleScrollBars(QAbstractScrollArea& area);

}  // namespace vellora
