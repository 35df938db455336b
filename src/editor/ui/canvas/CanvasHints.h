#pragma once

#include <QCursor>
#include <QString>

#include "editor/canvas/CanvasModel.h"

namespace vellora {

/// The shape of the pointer over a place of the canvas.
QCursor cursorOf(PointerHint hint);

/// What a drag from there does, in one line.
QString hintText(PointerHint hint, Tool tool, bool cropping);

/// The size under way while something is drawn, resized or cropped; empty when there is none to tell.
QString sizeText(const CanvasModel& model);

/// What the canvas holds, for those who cannot see it.
QString canvasDescription(const CanvasModel& model);

}  // namespace vellora
