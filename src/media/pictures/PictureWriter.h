#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "base/Result.h"
#include "media/pictures/PictureFailure.h"
#include "media/pictures/PictureReader.h"
#include "media/pictures/PictureType.h"
#include "media/pictures/Raster.h"

namespace vellora {

struct WriteOptions {
  std::optional<double>
      quality;      ///< 0 to 1 for lossy types; absent: lossless, or the encoder's default where it has none
  int threads = 1;  ///< most to use, the calling one included
  std::function<bool()> isCancelled{};  ///< asked now and then; may be empty
};

/// The picture as a file of `type`, in memory. Types without alpha get a white ground; GIF gets a palette of 256
/// colors. Metadata goes along as far as the type can hold it; what is empty is not written. Grey pictures with a
/// profile become sRGB. Any thread.
Result<std::vector<std::byte>, PictureFailure> writePicture(const Raster& raster, const PictureMetadata& metadata,
                                                            PictureType type, const WriteOptions& options = {});

/// A lossy WebP file of 8-bit RGBA samples with straight alpha, by libwebp's one-call encoder. `quality` 0 to 99.
class WebPEncoder {
 public:
  /// Nothing for an empty picture, one whose buffer would overflow, and when the encoder gives up.
  static std::optional<std::vector<std::byte>> lossy(const Raster& raster, int quality);
};

}  // namespace vellora
