#pragma once

#include <optional>

#include <QString>

#include "base/Geometry.h"
#include "editor/backdrop/Rgba.h"
#include "editor/backdrop/SmoothGrid.h"

namespace vellora {

/// The curated picture `identifier`, composed for a rectangle of the shape of `size` and detailed enough for that many
/// pixels. The pictures are soft fields of colour and light, computed and the same everywhere; nothing for an unknown
/// identifier. Any thread.
std::optional<SmoothGrid<Rgba>> curatedPicture(const QString& identifier, PixelSize size);

/// How many nodes the field of a picture for that many pixels has.
PixelSize curatedPictureNodes(PixelSize size);

}  // namespace vellora
