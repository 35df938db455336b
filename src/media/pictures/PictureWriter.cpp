#include "media/pictures/PictureWriter.h"

#include <algorithm>
#include <new>

#include "media/pictures/ColorConversion.h"
#include "media/pictures/FileBytes.h"
#include "media/pictures/ForeignCodec.h"
#include "media/pictures/PictureEncoders.h"

namespace vellora {
namespace {

EncodedPicture write(const Raster& raster, const PictureMetadata& metadata, PictureType type,
                     const WriteOptions& options) {
  switch (type) {
    case PictureType::Jpeg:
      return writeJpeg(raster, metadata, options);
    case PictureType::Png:
      return writePng(raster, metadata, options);
    case PictureType::WebP:
      return writeWebP(raster, metadata, options);
    case PictureType::Tiff:
      return writeTiff(raster, metadata, options);
    case PictureType::Bmp:
      return writeBmp(raster, metadata, options);
    case PictureType::Gif:
      return writeGif(raster, metadata, options);
    case PictureType::Heic:
    case PictureType::Avif:
    case PictureType::JpegXL:
      break;
  }
  if (!canWrite(type)) return refused(PictureError::CannotEncode, "no encoder for it is installed");
  return foreignCodecFor(type)->encode(raster, metadata, type, options);
}

/// Profiles of grey go with few kinds of files, and those of RGB with grey pixels in none.
bool fitsProfile(const Raster& raster, const std::vector<std::uint8_t>& profile) {
  constexpr std::size_t colorSpaceAt = 16;  // ICC.1, 7.2
  return profile.empty() || (samplesOf(raster.layout()) >= 3 && holdsAt(bytesOf(profile), colorSpaceAt, "RGB "));
}

EncodedPicture writeAsSrgb(const Raster& raster, PictureMetadata metadata, PictureType type,
                           const WriteOptions& options) {
  auto own = Raster::create(raster.width(), raster.height(), raster.layout(), raster.bitsPerSample());
  if (!own) return refused(PictureError::OutOfMemory);
  std::copy_n(raster.row(0), raster.bytes(), own->row(0));
  convertToSrgb(*own, metadata.profile);
  metadata.profile.clear();
  return write(*own, metadata, type, options);
}

}  // namespace

Result<std::vector<std::byte>, PictureFailure> writePicture(const Raster& raster, const PictureMetadata& metadata,
                                                            PictureType type, const WriteOptions& options) {
  if (raster.isNull()) return refused(PictureError::CannotEncode, "no pixels");
  try {
    if (isCancelled(options)) return refused(PictureError::Cancelled);
    auto file = fitsProfile(raster, metadata.profile) ? write(raster, metadata, type, options)
                                                      : writeAsSrgb(raster, metadata, type, options);
    if (file && isCancelled(options)) return refused(PictureError::Cancelled);
    return file;
  } catch (const std::bad_alloc&) {
    return refused(PictureError::OutOfMemory);
  }
}

}  // namespace vellora
