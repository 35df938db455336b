#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/Result.h"
#include "media/pictures/PictureFailure.h"
#include "media/pictures/PictureReader.h"
#include "media/pictures/PictureType.h"
#include "media/pictures/PictureWriter.h"
#include "media/pictures/Raster.h"

namespace vellora {

/// What a module does with the types it is for. The libraries behind HEIC, AVIF and JPEG XL bring video codecs of many
/// megabytes along, so each lives in a module that is loaded when such a file is first met or asked for, and stays
/// loaded. All functions: any thread, no exceptions.
class ForeignCodec {
 public:
  ForeignCodec() = default;
  ForeignCodec(const ForeignCodec&) = delete;
  ForeignCodec& operator=(const ForeignCodec&) = delete;

  virtual Result<PictureInfo, PictureFailure> inspect(std::span<const std::byte> file) const = 0;
  /// The picture upright, in the colors `metadata.profile` names (sRGB without one). Of the options only `keepsDepth`
  /// and `keepsMetadata` count; the caller converts the colors.
  virtual Result<DecodedPicture, PictureFailure> decode(std::span<const std::byte> file,
                                                        const DecodeOptions& options) const = 0;
  /// Whether the libraries found at run time can write the type.
  virtual bool canEncode(PictureType type) const = 0;
  /// As `writePicture`, for a type that canEncode() affirms.
  virtual Result<std::vector<std::byte>, PictureFailure> encode(const Raster& raster, const PictureMetadata& metadata,
                                                                PictureType type,
                                                                const WriteOptions& options) const = 0;

 protected:
  ~ForeignCodec() = default;  // a module's only codec lives as long as the program
};

/// The one function a module exports.
using ForeignCodecEntry = const ForeignCodec*();
inline constexpr char foreignCodecEntryName[] = "vellora_foreign_codec";

/// The codec for HEIC, AVIF or JPEG XL, loaded at the first call; null for other types, and when the module or one of
/// its libraries is not installed. Any thread.
const ForeignCodec* foreignCodecFor(PictureType type);

}  // namespace vellora
