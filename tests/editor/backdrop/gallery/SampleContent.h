#pragma once

#include "editor/ImageDocument.h"

class QImage;

namespace vellora::test {

/// A made-up application's window as content, `scale` pixels per point.
CapturePiece sampleWindow(Size size, double scale, bool dark = false);
/// A made-up application on a phone.
CapturePiece samplePhone(double scale);

/// The document drawn plainly: backdrop and pieces, nothing else.
QImage drawn(const ImageDocument& document, double scale);

}  // namespace vellora::test
