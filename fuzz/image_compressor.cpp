// A whole compression of any bytes: the first two choose what is wanted, the rest is the file. What comes out is whole.
#include <cstdint>
#include <cstdlib>
#include <span>

#include "editor/compressor/ImageCompressor.h"
#include "media/pictures/PictureReader.h"

using namespace vellora;

namespace {

/// Larger pictures would only make the runs slow.
constexpr std::size_t mostBytes = std::size_t{2} << 20;
/// Modules' encoders take long, and are not what is looked at.
constexpr PictureType lastOwnType = PictureType::Gif;

void require(bool condition) {
  if (!condition) std::abort();
}

CompressOptions optionsFrom(std::uint8_t first, std::uint8_t second) {
  CompressOptions options;
  options.format = static_cast<CompressFormat>(first & 3);
  options.keepsMetadata = (first & 4) != 0;
  options.quality = first >> 1;
  if (second != 0) options.maxEdge = second;
  return options;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const CompressOptions options = optionsFrom(data[0], data[1]);
  const auto file = std::as_bytes(std::span(data + 2, size - 2));
  const auto info = inspectPicture(file);
  if (!info || info->type > lastOwnType) return 0;
  if (decodedBytesOf(*info, ImageCompressor::decodingOf(*info, options)) > mostBytes) return 0;
  const auto output = ImageCompressor::compress(file, options);
  if (!output) return 0;
  const bool keepsTypeAndSize =
      output->type == info->type && output->width == info->width && output->height == info->height;
  // An orientation that has to be said again takes up to 64 bytes.
  require(!keepsTypeAndSize || !output->isOriginal || output->data.size() <= file.size() + 64);
  require(!options.keepsMetadata || !keepsTypeAndSize || output->data.size() <= file.size());
  const auto result = decodePicture(output->data);
  require(static_cast<bool>(result));
  require(result->raster.width() == output->width && result->raster.height() == output->height);
  require(result->info.type == output->type && result->info.frames == output->frames);
  return 0;
}
