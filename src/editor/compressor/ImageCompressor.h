#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "base/Result.h"
#include "editor/compressor/CompressOptions.h"
#include "media/pictures/PictureFailure.h"
#include "media/pictures/PictureReader.h"
#include "media/pictures/PictureType.h"
#include "media/pictures/Raster.h"

namespace vellora {

struct CompressControl {
  int threads = 1;  ///< most to use for one picture, the calling one included
  std::function<bool()> isCancelled{};
};

/// The rules of making one picture smaller. Any thread.
class ImageCompressor {
 public:
  struct WebPCodec {
    int quality = 0;  ///< 0 to 99
    bool operator==(const WebPCodec&) const = default;
  };
  struct PlatformCodec {
    PictureType type = PictureType::Png;
    std::optional<double> quality{};  ///< 0 to 1; absent: lossless
    bool operator==(const PlatformCodec&) const = default;
  };
  using Codec = std::variant<WebPCodec, PlatformCodec>;

  /// The encoder for a picture that came as `source` (absent: not known, as for pasted pixels).
  static Codec codecFor(std::optional<PictureType> source, const CompressOptions& options);
  static PictureType typeOf(const Codec& codec);

  /// The size that keeps the longer edge within `maxEdge`.
  struct Size {
    int width = 0;
    int height = 0;
    bool operator==(const Size&) const = default;
  };
  static Size resizedSize(int width, int height, std::optional<int> maxEdge);

  /// What has to be decoded of a picture to make the result.
  static DecodeOptions decodingOf(const PictureInfo& source, const CompressOptions& options);

  struct Output {
    PictureType type = PictureType::Png;
    std::vector<std::byte> data;
    int width = 0;
    int height = 0;
    bool isOriginal = false;   ///< `data` is the source's own, at most without its metadata
    bool isFlattened = false;  ///< transparency became white, which the type cannot hold
    int frames = 1;            ///< of an animation, or pages
  };

  /// A whole file, smaller. When type and size stay, the result is never larger than the source's own bytes without
  /// their metadata, or with them if they are kept; those come back when nothing smaller was found. Only metadata that
  /// cannot be taken out without decoding leaves no choice but the encoded picture. Several frames or pages pass
  /// through in the same way when type and size stay and the first of them can be decoded, else they are refused as
  /// Animated.
  static Result<Output, PictureFailure> compress(std::span<const std::byte> file, const CompressOptions& options,
                                                 const CompressControl& control = {});
  /// Pixels without a file, as pasted ones.
  static Result<Output, PictureFailure> compress(const Raster& raster, const CompressOptions& options,
                                                 const CompressControl& control = {});
};

}  // namespace vellora
