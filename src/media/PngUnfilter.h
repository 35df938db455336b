#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace vellora {

/// Undoing the filters of PNG (third edition, 9.2). A row in the file begins with the number of its filter; an unknown
/// one makes these functions return false.

/// Takes a row of 3 bytes a pixel to blue, green, red, 255. `above` is the row over it in that form, for the first row
/// all black. Works from left to right; `row` may lie over `filtered` where no pixel covers one still to be read.
bool unfilterRgb(const std::byte* filtered, const std::uint32_t* above, std::uint32_t* row, std::size_t width);

/// Takes a row of 4 bytes a pixel to blue, green, red, alpha. `above` is the row over it, for the first all 0.
bool unfilterRgba(const std::byte* filtered, const std::uint32_t* above, std::uint32_t* row, std::size_t width);

/// Any row as it is; its filters look `distance` bytes back. `above` for the first row is all 0. `row` may begin at
/// `filtered` or before it, also where they overlap.
bool unfilterBytes(const std::byte* filtered, std::span<const std::uint8_t> above, std::span<std::uint8_t> row,
                   std::size_t distance);

}  // namespace vellora
