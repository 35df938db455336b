#pragma once

#include <cstddef>
#include <vector>

#include "base/Result.h"
#include "media/pictures/FileBytes.h"
#include "media/pictures/PictureReader.h"
#include "media/pictures/PictureWriter.h"

namespace vellora::jxl {

Result<PictureInfo, PictureFailure> inspect(FileBytes file);
Result<DecodedPicture, PictureFailure> decode(FileBytes file, const DecodeOptions& options);
Result<std::vector<std::byte>, PictureFailure> encode(const Raster& raster, const PictureMetadata& metadata,
                                                      const WriteOptions& options);

}  // namespace vellora::jxl
