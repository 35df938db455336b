#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vellora {

/// Bytes with an owner.
using Bytes = std::vector<std::uint8_t>;
/// Bytes that belong to someone else.
using ByteView = std::span<const std::uint8_t>;

}  // namespace vellora
