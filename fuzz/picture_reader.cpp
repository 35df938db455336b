// Any bytes: telling the type, the header alone, and decoding with the conversion of colors, depth and orientation.
#include <cstdint>
#include <cstdlib>
#include <span>

#include "media/pictures/PictureReader.h"

namespace {

/// Larger pictures would only make the runs slow.
constexpr std::size_t mostBytes = std::size_t{32} << 20;

void require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto file = std::as_bytes(std::span(data, size));
  const auto info = vellora::inspectPicture(file);
  // What cannot be inspected is not decoded either.
  if (!info) return 0;
  require(info->width > 0 && info->height > 0 && info->frames > 0);
  const bool keeps = size % 2 == 0;
  const vellora::DecodeOptions options{.neededEdge = keeps ? 0 : 16, .keepsDepth = keeps, .keepsMetadata = keeps};
  if (vellora::decodedBytesOf(*info, options) > mostBytes) return 0;
  const auto picture = vellora::decodePicture(file, options);
  if (!picture) return 0;
  const auto& raster = picture->raster;
  require(raster.bytes() <= vellora::decodedBytesOf(*info, options));
  // Every sample is there to be read.
  unsigned int sum = 0;
  for (std::size_t i = 0; i < raster.bytes(); i += 64) sum += raster.row(0)[i];
  require(sum != ~0U);
  return 0;
}
