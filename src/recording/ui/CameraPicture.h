#pragma once

#include <QImage>

#include "platform/CameraCapture.h"

namespace vellora {

/// The middle square of a camera's picture, mirrored as in a looking-glass, reduced or enlarged to `side` × `side`
/// device pixels; opaque. Every pixel it stands for counts, so that small pictures are calm. Null for a picture without
/// pixels. Any thread.
QImage mirroredSquare(const CameraFrame& frame, int side);

}  // namespace vellora
