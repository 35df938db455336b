#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "base/Bitmap.h"
#include "media/ByteBuffer.h"
#include "media/PixelRows.h"

namespace vellora {

/// How a PNG stores its pixels.
enum class PngPixels { Indexed, Rgb, Rgba };

/// At most 256 colours and the way from a colour to its place, for opaque pictures.
class PngPalette;

/// Some rows of a picture as a piece of a zlib stream.
struct PngStrip {
  ByteBuffer deflated;         ///< whole bytes; the next strip's follow directly
  std::uint32_t checksum = 1;  ///< Adler-32 of the filtered bytes
  std::uint64_t filteredBytes = 0;
};

/// Compresses strips, one after the other; each thread has its own.
class PngStripEncoder {
 public:
  virtual ~PngStripEncoder() = default;

  /// Compresses the rows from `begin` to before `end` behind what `strip` already holds; `last` ends the stream. False
  /// when memory is short.
  virtual bool encode(int begin, int end, bool last, PngStrip& strip) = 0;

  /// `palette` is used with Indexed only; it and the bitmap's pixels must outlive the encoder.
  static std::unique_ptr<PngStripEncoder> create(const Bitmap& bitmap, PngPixels pixels, const PngPalette* palette);
};

}  // namespace vellora
