#pragma once

#include <QFont>

class QPaintDevice;

namespace vellora {

/// The font of texts on documents: Inter, or Shantell Sans when written by hand (at 1.08 of the size, since its letters
/// are small); the desktop's font where these are missing. `size` counts in document points, which the font has only on
/// textDevice(); without hinting. Any thread.
QFont textFont(double size, bool handwritten, QFont::Weight weight);

/// A device with one pixel a point, to lay text out for.
const QPaintDevice& textDevice();

}  // namespace vellora
