#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace vellora {

/// Rows of pixels on their way into a PNG: one 32-bit word a pixel, its lowest byte red, then green, blue, and alpha or
/// 0.

/// Takes a row of opaque BGRX bytes; the fourth byte becomes 0.
void readOpaqueRow(const std::byte* source, std::span<std::uint32_t> row);

/// Takes a row of premultiplied BGRA bytes and divides the colours by their alpha, to the nearest value. Where alpha is
/// 0 the whole pixel is 0.
void readPremultipliedRow(const std::byte* source, std::span<std::uint32_t> row);

/// Whether two rows of `width` pixels hold the same picture. `mask` says which bits of a word count.
bool samePixels(const std::byte* a, const std::byte* b, std::size_t width, std::uint32_t mask);

/// Whether every pixel of a row has the full alpha of 255.
bool isSolidRow(const std::byte* source, std::size_t width);

/// Multiplies the colours of a row by their alpha, to the nearest value. Here the lowest byte of a pixel is blue, as in
/// the bitmap at `target`.
void premultiplyRow(std::span<const std::uint32_t> row, std::byte* target);

/// The filters of PNG (third edition, 9.2), by the numbers that stand in the file.
enum class RowFilter : std::uint8_t { None = 0, Sub = 1, Up = 2, Paeth = 4 };

/// What `filter` makes of a row; each byte of a pixel by itself. `above` is the row over it, all 0 for the first.
void filterRow(RowFilter filter, std::span<const std::uint32_t> row, std::span<const std::uint32_t> above,
               std::span<std::uint32_t> filtered);

}  // namespace vellora
