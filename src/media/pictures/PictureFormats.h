#pragma once

#include "base/Result.h"
#include "media/pictures/FileBytes.h"
#include "media/pictures/PictureFailure.h"
#include "media/pictures/PictureReader.h"

namespace vellora {

// The readers of the types. `inspect…` gives the size upright. `decode…` gives the pixels as they stand in the file:
// not yet turned, in the colors of `metadata.profile` (CMYK is already RGB), with the file's own depth (at least 8
// bits), and the orientation of its `info` still to be applied. May throw std::bad_alloc.

Result<PictureInfo, PictureFailure> inspectJpeg(FileBytes file);
Result<DecodedPicture, PictureFailure> decodeJpeg(FileBytes file, const DecodeOptions& options);

Result<PictureInfo, PictureFailure> inspectPng(FileBytes file);
Result<DecodedPicture, PictureFailure> decodePngPicture(FileBytes file, const DecodeOptions& options);

Result<PictureInfo, PictureFailure> inspectWebP(FileBytes file);
Result<DecodedPicture, PictureFailure> decodeWebP(FileBytes file, const DecodeOptions& options);

Result<PictureInfo, PictureFailure> inspectTiff(FileBytes file);
Result<DecodedPicture, PictureFailure> decodeTiff(FileBytes file, const DecodeOptions& options);

Result<PictureInfo, PictureFailure> inspectBmp(FileBytes file);
Result<DecodedPicture, PictureFailure> decodeBmp(FileBytes file, const DecodeOptions& options);

Result<PictureInfo, PictureFailure> inspectGif(FileBytes file);
Result<DecodedPicture, PictureFailure> decodeGif(FileBytes file, const DecodeOptions& options);

/// A raster for what a file announces; TooLarge and OutOfMemory as failures. `spareBytes` as in Raster::create.
Result<Raster, PictureFailure> rasterFor(int width, int height, RasterLayout layout, int bitsPerSample = 8,
                                         std::size_t spareBytes = 0);

}  // namespace vellora
