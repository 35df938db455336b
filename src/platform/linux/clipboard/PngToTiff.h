#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace vellora {

/// The same picture as a baseline TIFF 6.0 file: uncompressed, 8 bits a sample, RGB, with straight alpha where the PNG
/// has it. Nothing for what is no PNG or would take more than a gigabyte.
std::optional<std::vector<std::byte>> tiffFromPng(std::span<const std::byte> png);

}  // namespace vellora
