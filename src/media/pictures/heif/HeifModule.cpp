#include <new>

#include "media/pictures/ForeignCodec.h"
#include "media/pictures/heif/HeifHandles.h"

namespace vellora {
namespace {

class HeifCodec final : public ForeignCodec {
 public:
  Result<PictureInfo, PictureFailure> inspect(FileBytes file) const override {
    try {
      return heif::inspect(file);
    } catch (const std::bad_alloc&) {
      return refused(PictureError::OutOfMemory);
    }
  }
  Result<DecodedPicture, PictureFailure> decode(FileBytes file, const DecodeOptions& options) const override {
    try {
      return heif::decode(file, options);
    } catch (const std::bad_alloc&) {
      return refused(PictureError::OutOfMemory);
    }
  }
  bool canEncode(PictureType type) const override { return heif::canEncode(type); }
  Result<std::vector<std::byte>, PictureFailure> encode(const Raster& raster, const PictureMetadata& metadata,
                                                        PictureType type, const WriteOptions& options) const override {
    try {
      return heif::encode(raster, metadata, type, options);
    } catch (const std::bad_alloc&) {
      return refused(PictureError::OutOfMemory);
    }
  }
};

}  // namespace
}  // namespace vellora

extern "C" __attribute__((visibility("default"))) const vellora::ForeignCodec* vellora_foreign_codec() {
  static const vellora::HeifCodec codec;
  return &codec;
}
