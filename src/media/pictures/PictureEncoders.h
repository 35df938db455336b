#pragma once

#include <cstddef>
#include <vector>

#include "base/Result.h"
#include "media/pictures/PictureFailure.h"
#include "media/pictures/PictureReader.h"
#include "media/pictures/PictureWriter.h"
#include "media/pictures/Raster.h"

namespace vellora {

// The writers of the types, each as `writePicture`. May throw std::bad_alloc.

using EncodedPicture = Result<std::vector<std::byte>, PictureFailure>;

EncodedPicture writeJpeg(const Raster& raster, const PictureMetadata& metadata, const WriteOptions& options);
EncodedPicture writePng(const Raster& raster, const PictureMetadata& metadata, const WriteOptions& options);
EncodedPicture writeWebP(const Raster& raster, const PictureMetadata& metadata, const WriteOptions& options);
EncodedPicture writeTiff(const Raster& raster, const PictureMetadata& metadata, const WriteOptions& options);
EncodedPicture writeBmp(const Raster& raster, const PictureMetadata& metadata, const WriteOptions& options);
EncodedPicture writeGif(const Raster& raster, const PictureMetadata& metadata, const WriteOptions& options);

inline bool isCancelled(const WriteOptions& options) {
  return options.isCancelled && options.isCancelled();
}

}  // namespace vellora
