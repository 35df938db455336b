#include "base/PixelMemory.h"

#include <sys/mman.h>

#include <cstdint>
#include <cstdlib>

namespace vellora {

std::shared_ptr<std::byte[]> allocatePixels(std::size_t bytes) {
  constexpr std::size_t hugePage = std::size_t{2} << 20;
  if (bytes < 2 * hugePage) {
    return {static_cast<std::byte*>(std::calloc(bytes, 1)), [](std::byte* pixels) { std::free(pixels); }};
  }
  const std::size_t whole = bytes + hugePage;
  void* mapping = mmap(nullptr, whole, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapping == MAP_FAILED) return nullptr;
  madvise(mapping, whole, MADV_HUGEPAGE);
  const auto address = reinterpret_cast<std::uintptr_t>(mapping);
  auto* aligned = reinterpret_cast<std::byte*>((address + hugePage - 1) / hugePage * hugePage);
  return {aligned, [mapping, whole](std::byte*) { munmap(mapping, whole); }};
}

}  // namespace vellora
