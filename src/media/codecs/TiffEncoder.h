#pragma once

#include <QByteArray>

#include "base/Bitmap.h"

namespace vellora {

/// The picture as an uncompressed TIFF 6.0 file for the clipboard, where speed counts and size does not: RGB, or RGBA
/// with premultiplied ("associated") alpha. Empty when the bitmap is null or the file would not fit 2 GB or memory. Any
/// thread.
QByteArray encodeTiff(const Bitmap& bitmap);

}  // namespace vellora
