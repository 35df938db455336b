#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vellora {

enum class CompressFormat : std::uint8_t { original, jpeg, png, webp };

/// "original", "jpeg", "png", "webp": as stored and as the command line takes them.
std::string_view textOf(CompressFormat format);
std::optional<CompressFormat> compressFormatFrom(std::string_view text);

/// What is done to every picture of a run.
struct CompressOptions {
  CompressFormat format = CompressFormat::original;
  int quality = 75;              ///< percent
  std::optional<int> maxEdge{};  ///< pixels; absent: no resizing
  /// Beyond the pixels: Exif, XMP and places are left out unless wanted.
  bool keepsMetadata = false;
  bool keepsDates = false;  ///< the file's own dates
  bool operator==(const CompressOptions&) const = default;
};

/// How the longest edge is limited, as stored under "compress.resize".
enum class ResizeLimit : std::uint8_t { off, k4, k2, k1, custom };

std::string_view textOf(ResizeLimit limit);
/// `off` for unknown texts.
ResizeLimit resizeLimitFrom(std::string_view text);
inline constexpr int defaultCustomEdge = 1000;
/// The edge in pixels; nothing for `off`. `customEdge` is that of `custom`.
std::optional<int> maxEdgeOf(ResizeLimit limit, int customEdge);

}  // namespace vellora
