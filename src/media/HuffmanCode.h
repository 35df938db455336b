#pragma once

#include <cstdint>
#include <span>

namespace vellora {

/// Finds the code lengths of an optimal prefix code in which no code is longer than `limit` bits (RFC 1951, 3.2.7; the
/// few codes beyond the limit are shortened at a small loss). A symbol that never occurs gets length 0. At most 288
/// symbols; `limit` is at most 15 and leaves room for all of them.
void findCodeLengths(std::span<const std::uint32_t> frequencies, std::span<std::uint8_t> lengths, int limit);

/// The canonical codes of those lengths (RFC 1951, 3.2.2), bits reversed so that they can be written lowest bit first.
void assignCodes(std::span<const std::uint8_t> lengths, std::span<std::uint16_t> codes);

}  // namespace vellora
