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

  struct Output {
    PictureType type = PictureType::Png;
    std::vector<std::byte> data;  ///< the source's own bytes when `isOriginal`
    int width = 0;
    int height = 0;
    bool isOriginal = false;   ///< nothing smaller was found, in the same type and size
    bool isFlattened = false;  ///< transparency became white, which the type cannot hold
  };

  /// A whole file, smaller. When type and size stay and nothing smaller was found the source's bytes come back, without
  /// its metadata unless that is kept or leaving it out cannot be done without decoding. Several frames or pages:
  /// passed through with the format `original` and no resizing where possible, else refused as Animated.
  static Result<Output, PictureFailure> compress(std::span<const std::byte> file, const CompressOptions& options,
                                                 const CompressControl& control = {});
  /// Pixels without a file, as pasted ones.
  static Result<Output, PictureFailure> compress(const Raster& raster, const CompressOptions& options,
                                                 const CompressControl& control = {});
};

}  // namespace vellora
