#pragma once

#include <QImage>

#include "base/Bitmap.h"

namespace vellora {

/// What the fourth byte of an opaque picture's pixels has to be. Qt treats the rest of the pixel as opaque either way,
/// but copies the byte when it paints such an image onto a surface that has alpha.
enum class AlphaByte {
  Any,     ///< shares the bitmap's memory: for encoders, and for painting onto surfaces without alpha
  Filled,  ///< 255 everywhere; copies when it is not so already
};

/// The bitmap as an image that keeps its pixels alive, without a copy where the rows lie on word borders. Format_RGB32
/// or Format_ARGB32_Premultiplied. Painting into the result copies it first. Null for a null bitmap. Any thread.
QImage toImage(const Bitmap& bitmap, AlphaByte alphaByte = AlphaByte::Any);

/// The image as a bitmap that keeps its pixels alive. Images of the two formats above are shared, others converted.
/// Null for a null image, and when memory is short. Any thread.
Bitmap toBitmap(QImage image);

}  // namespace vellora
