#pragma once

#include "editor/ImageDocument.h"

namespace vellora::test {

/// A made-up application's window as content, `scale` pixels per point.
CapturePiece sampleWindow(Size size, double scale, bool dark = false);
/// A made-up application on a phone.
CapturePiece samplePhone(double scale);

}  // namespace vellora::test
