#pragma once

#include <cstddef>
#include <vector>

#include "base/Bitmap.h"
#include "base/Result.h"

namespace vellora {

enum class PngError {
  Empty,     ///< no pixels
  TooLarge,  ///< an edge or the area is above Bitmap's limits
  OutOfMemory,
};

struct PngOptions {
  /// Device pixels per point: a picture of scale 2 opens at half its pixel size in programs that honour the pHYs chunk.
  double scale = 1;
  /// Most threads to use, the calling one included; 0 for as many as the machine has, up to eight.
  int threads = 0;
};

/// Makes a PNG file (W3C PNG, third edition) of an sRGB picture, without loss. An opaque picture of at most 256 colours
/// becomes an indexed file, any other opaque one RGB, one with alpha RGBA with the colours divided by alpha again. The
/// only metadata are its colour space and its resolution.
///
/// Made for screens, which are mostly flat areas and repeated glyphs. Instead of handing bytes to a general compressor,
/// this one matches whole pixels against the three places where a screen repeats itself (PixelMatcher), chooses a
/// filter for a few rows at a time by trying it on one of them (PngStrip), and codes with Huffman codes made for each
/// block (DeflateBlock). The rows are cut into strips that any number of threads take in turn; each strip ends on a
/// byte border (RFC 1951, 3.2.4) so that together they are one zlib stream (RFC 1950), whose checksum is joined from
/// those of the strips. Needs about one megabyte per thread and the output's size; never a second copy of the picture.
///
/// Any thread; waits until done.
Result<std::vector<std::byte>, PngError> encodePng(const Bitmap& bitmap, const PngOptions& options);

}  // namespace vellora
