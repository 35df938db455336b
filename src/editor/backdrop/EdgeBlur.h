#pragma once

#include "editor/BackdropSettings.h"

class QImage;

namespace vellora {

/// Blurs a picture the more the nearer to its edge, on the sides `direction` names. `strength` 0 to 1 says how far in
/// it begins and how soft it gets; both in parts of the picture, so that it looks the same at every size. Formats
/// RGB32 and ARGB32_Premultiplied.
void blurEdges(QImage& image, BackdropSettings::EdgeBlurDirection direction, double strength);

}  // namespace vellora
