#include "base/Bitmap.h"

#include <sys/mman.h>

#include <cstdlib>

namespace vellora {
namespace {

constexpr std::size_t hugePage = std::size_t{2} << 20;

/// Screen-sized pictures get a mapping of their own: in huge pages where the kernel has them (filling 33 MB in pages of
/// 4 kB costs 8000 page faults), and given back to the system as soon as the last user lets go.
std::shared_ptr<std::byte[]> allocatePixels(std::size_t bytes) {
  if (bytes < 2 * hugePage) {
    return {static_cast<std::byte*>(std::malloc(bytes)), [](std::byte* pixels) { std::free(pixels); }};
  }
  const std::size_t whole = bytes + hugePage;
  void* mapping = mmap(nullptr, whole, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapping == MAP_FAILED) return nullptr;
  madvise(mapping, whole, MADV_HUGEPAGE);
  const auto address = reinterpret_cast<std::uintptr_t>(mapping);
  auto* aligned = reinterpret_cast<std::byte*>((address + hugePage - 1) / hugePage * hugePage);
  return {aligned, [mapping, whole](std::byte*) { munmap(mapping, whole); }};
}

}  // namespace

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
