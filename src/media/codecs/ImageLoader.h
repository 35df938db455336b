#pragma once

#include <QByteArray>
#include <QString>

#include "base/Bitmap.h"
#include "base/Result.h"

namespace vellora {

/// Why a picture could not be loaded.
enum class ImageLoadError {
  NotFound,
  NotPermitted,
  NotAFile,     ///< a folder, a device…
  TooLarge,     ///< the file, or the picture in it, is beyond the limits
  NotAnImage,   ///< no known format
  Unsupported,  ///< a known format, but this kind of it, or its reader is not installed
  Damaged,
  OutOfMemory,
};

/// "load.error.notAnImage" and so on: the key of the sentence to show.
QString localizationKey(ImageLoadError error);

struct LoadedImage {
  Bitmap bitmap;     ///< 8-bit sRGB, turned upright
  double scale = 1;  ///< device pixels per point, from a PNG's resolution; else 1
};

namespace imageLimits {
inline constexpr qint64 fileBytes = qint64{512} << 20;
inline constexpr qint64 decodedBytes = qint64{512} << 20;  ///< width × height × 4
inline constexpr int edge = Bitmap::maximumEdge;
}  // namespace imageLimits

/// Loads pictures: PNG, JPEG, WebP, TIFF, BMP, GIF (first frame), HEIC and AVIF. The format is told from the content.
/// Palettes, grey, CMYK and 16 bits become 8-bit colour, an embedded colour profile is converted to sRGB, and the
/// orientation a camera noted is applied. Sizes are checked before anything is decoded. Any thread, several at once;
/// takes as long as it takes.
namespace ImageLoader {

Result<LoadedImage, ImageLoadError> fromFile(const QString& path);
Result<LoadedImage, ImageLoadError> fromData(const QByteArray& data);

}  // namespace ImageLoader
}  // namespace vellora
