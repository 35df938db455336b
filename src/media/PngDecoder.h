#pragma once

#include <cstddef>
#include <span>

#include "base/Bitmap.h"
#include "base/Result.h"

namespace vellora {

enum class PngDecodeError {
  Unsupported,  ///< maybe a fine file, but of a kind left to a reader that knows every kind
  Damaged,
  TooLarge,  ///< beyond the limits, or beyond Bitmap's
  OutOfMemory,
};

struct PngLimits {
  int edge = Bitmap::maximumEdge;
  std::size_t bytes = Bitmap::maximumBytes;  ///< width × height × 4
};

/// Reads a PNG file (W3C PNG, third edition) as screenshots are: up to 8 bits a sample, not interlaced, grey, RGB or
/// indexed, with or without transparency, in sRGB or without a word about its colours. 16 bits, interlacing, other
/// colour spaces, an orientation (eXIf), and ancillary chunks that break a rule are Unsupported. The result is Opaque
/// when no pixel lets anything through, its fourth bytes then being 255.
///
/// The header tells how many bytes the data inflates to; data that gives more or fewer is Damaged, and data too short
/// to be able to is found so before any memory is taken. The bytes are inflated at once into the end of the picture's
/// own memory, from where each row is unfiltered to its place: a row's place never reaches the rows still to be read,
/// since a pixel takes no more bytes in the file than in the bitmap. Needs the picture's size, and that of the
/// compressed data when the file has it in pieces.
///
/// Any thread.
Result<Bitmap, PngDecodeError> decodePng(std::span<const std::byte> file, const PngLimits& limits = {});

}  // namespace vellora
