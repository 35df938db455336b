#include "media/SharedPng.h"

#include "media/PngEncoder.h"

namespace vellora {

std::optional<std::span<const std::byte>> SharedPng::bytes() {
  std::call_once(encoding_, [this] {
    auto png = encodePng(image_, {.scale = scale_});
    if (!png) return;
    png_ = std::move(*png);
    encoded_ = true;
  });
  if (!encoded_) return std::nullopt;
  return std::span<const std::byte>(png_);
}

}  // namespace vellora
