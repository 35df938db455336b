#pragma once

#include <QByteArray>
#include <QImage>

#include "base/Result.h"
#include "media/codecs/ImageLoader.h"

namespace vellora {

/// Decodes a HEIC or AVIF picture; the colour space is attached, not yet converted. Loads the module that can on first
/// use; Unsupported when that is not installed. Any thread.
Result<QImage, ImageLoadError> readHeif(const QByteArray& data);

}  // namespace vellora
