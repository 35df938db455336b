#pragma once

#include "media/movies/LibavPointers.h"

namespace vellora {

struct PictureSize {
  int width = 0;  ///< pixels
  int height = 0;
};

/// Makes pictures of one size, upright and in 8-bit 4:2:0 with limited range, of what a decoder gives, whose size and
/// kind may change on the way.
class PictureConverter {
 public:
  /// 8 bits and a matrix are what changes; primaries and transfer stay as they are.
  struct Colors {
    AVColorSpace matrix = AVCOL_SPC_BT709;
    AVColorPrimaries primaries = AVCOL_PRI_BT709;
    AVColorTransferCharacteristic transfer = AVCOL_TRC_BT709;
  };

  /// H.264 level 5.1 has no more; larger pictures become smaller.
  static constexpr int mostEdge = 4096;
  static constexpr double mostPixels = 4096.0 * 2304.0;

  explicit PictureConverter(const AVStream& stream);

  PictureSize size() const;
  AVRational aspectRatio() const;  ///< of a pixel
  const Colors& colors() const { return colors_; }

  /// Null when the pixels are of a kind that cannot be read, or memory is short.
  FramePointer convert(const AVFrame& picture);

 private:
  FramePointer scale(const AVFrame& picture);
  FramePointer turn(const AVFrame& picture) const;

  PictureSize scaled_;
  AVRational aspectRatio_;
  int quarterTurns_ = 0;  // clockwise
  Colors colors_;
  ScalerPointer scaler_;
};

}  // namespace vellora
