#pragma once

#include <libheif/heif.h>

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "base/Result.h"
#include "media/pictures/FileBytes.h"
#include "media/pictures/PictureReader.h"
#include "media/pictures/PictureWriter.h"

namespace vellora::heif {

template <auto free>
struct Freed {
  template <class T>
  void operator()(T* object) const {
    free(object);
  }
};
using Context = std::unique_ptr<heif_context, Freed<heif_context_free>>;
using Handle = std::unique_ptr<heif_image_handle, Freed<heif_image_handle_release>>;
using Image = std::unique_ptr<heif_image, Freed<heif_image_release>>;
using Encoder = std::unique_ptr<heif_encoder, Freed<heif_encoder_release>>;
using DecodingOptions = std::unique_ptr<heif_decoding_options, Freed<heif_decoding_options_free>>;
using EncodingOptions = std::unique_ptr<heif_encoding_options, Freed<heif_encoding_options_free>>;
using Nclx = std::unique_ptr<heif_color_profile_nclx, Freed<heif_nclx_color_profile_free>>;

Result<PictureInfo, PictureFailure> inspect(FileBytes file);
Result<DecodedPicture, PictureFailure> decode(FileBytes file, const DecodeOptions& options);
bool canEncode(PictureType type);
Result<std::vector<std::byte>, PictureFailure> encode(const Raster& raster, const PictureMetadata& metadata,
                                                      PictureType type, const WriteOptions& options);

}  // namespace vellora::heif
