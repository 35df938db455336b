#include "base/Bitmap.h"

#include "base/PixelMemory.h"

namespace vellora {

std::optional<MutableBitmap> MutableBitmap::create(PixelSize size, PixelAlpha alpha) {
  if (size.width <= 0 || size.height <= 0) return std::nullopt;
  if (size.width > Bitmap::maximumEdge || size.height > Bitmap::maximumEdge) return std::nullopt;
  const std::size_t stride = static_cast<std::size_t>(size.width) * 4;
  const std::size_t bytes = stride * static_cast<std::size_t>(size.height);
  if (bytes > Bitmap::maximumBytes) return std::nullopt;
  std::shared_ptr<std::byte[]> memory = allocatePixels(bytes);
  if (!memory) return std::nullopt;
  MutableBitmap bitmap;
  bitmap.memory_ = std::move(memory);
  bitmap.size_ = size;
  bitmap.stride_ = stride;
  bitmap.alpha_ = alpha;
  return bitmap;
}

Bitmap MutableBitmap::finish() && {
  const std::byte* pixels = memory_.get();
  return {pixels, size_, stride_, alpha_, std::shared_ptr<const void>(std::move(memory_), pixels)};
}

}  // namespace vellora
