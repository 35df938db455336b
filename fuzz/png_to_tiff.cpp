#include "platform/linux/clipboard/PngToTiff.h"

#include <cstddef>
#include <cstdint>
#include <span>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  (void)vellora::tiffFromPng(std::as_bytes(std::span(data, size)));
  return 0;
}
