#include <new>

#include "media/pictures/ForeignCodec.h"
#include "media/pictures/QuietThread.h"
#include "media/pictures/heif/HeifHandles.h"
#include "media/pictures/heif/HevcDecoder.h"

namespace vellora {
namespace {

/// What reading makes of a damaged file is told by the result alone.
template <class Work>
auto guarded(const Work& work) {
  return quietly([&work]() -> decltype(work()) {
    try {
      return work();
    } catch (const std::bad_alloc&) {
      return refused(PictureError::OutOfMemory);
    }
  });
}

class HeifCodec final : public ForeignCodec {
 public:
  Result<PictureInfo, PictureFailure> inspect(FileBytes file) const override {
    return guarded([&] { return heif::inspect(file); });
  }
  Result<DecodedPicture, PictureFailure> decode(FileBytes file, const DecodeOptions& options) const override {
    return guarded([&] { return heif::decode(file, options); });
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
  vellora::heif::useStrictHevcDecoder();
  return &codec;
}
