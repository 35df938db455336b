#include "media/pictures/ForeignCodec.h"

#include "base/Module.h"

namespace vellora {
namespace {

const ForeignCodec* loadModule(const char* name) {
  const auto entry = moduleFunction<ForeignCodecEntry>(name, foreignCodecEntryName);
  return entry == nullptr ? nullptr : entry();
}

}  // namespace

const ForeignCodec* foreignCodecFor(PictureType type) {
  switch (type) {
    case PictureType::Heic:
    case PictureType::Avif: {
      static const ForeignCodec* const heif = loadModule("libvellora_heif.so");
      return heif;
    }
    case PictureType::JpegXL: {
      static const ForeignCodec* const jxl = loadModule("libvellora_jxl.so");
      return jxl;
    }
    default:
      return nullptr;
  }
}

}  // namespace vellora
