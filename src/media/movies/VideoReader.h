#pragma once

#include <cstdint>

#include "base/Result.h"
#include "media/movies/MediaReader.h"

namespace vellora {

/// When a picture is seen, in seconds from the file's start.
struct PictureSpan {
  double start = 0;
  double end = 0;
};

/// A file's first video track, picture by picture, as it is to be looked at. Used by one thread at a time.
class VideoReader {
 public:
  virtual ~VideoReader() = default;
  /// Pixels of an upright picture.
  virtual int width() const = 0;
  virtual int height() const = 0;
  /// Seconds; 0 when the file does not say.
  virtual double duration() const = 0;

  /// Goes on to the next picture. False at the end, where the last picture stays.
  virtual bool next() = 0;
  /// Goes to the picture that is seen at `time`, or to the nearest there is. False when there is none.
  virtual bool seek(double time) = 0;
  /// Of the current picture.
  virtual PictureSpan span() const = 0;
  /// Draws the current picture, stretched over `width` × `height` pixels of 32 bits, blue first, opaque; rows have
  /// room for `pixelsPerRow(width)`, and what is behind `width` may be anything. False when there is none or it cannot
  /// be shown.
  virtual bool draw(std::uint32_t* pixels, int width, int height) = 0;
  /// Pixels from one drawn row to the next.
  static constexpr int pixelsPerRow(int width) { return (width + 15) / 16 * 16; }
};

}  // namespace vellora
