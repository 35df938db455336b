#include <algorithm>
#include <iterator>

#include "media/pictures/ForeignCodec.h"
#include "media/pictures/PictureType.h"

namespace vellora {

bool canWrite(PictureType type) {
  if (type < PictureType::Heic) return true;
  const ForeignCodec* codec = foreignCodecFor(type);
  return codec != nullptr && codec->canEncode(type);
}

const std::vector<PictureType>& writableTypes() {
  static const std::vector<PictureType> writable = [] {
    std::vector<PictureType> types;
    std::copy_if(allPictureTypes.begin(), allPictureTypes.end(), std::back_inserter(types), canWrite);
    return types;
  }();
  return writable;
}

}  // namespace vellora
