#include "editor/compressor/QualityUse.h"

#include <algorithm>
#include <string>

namespace vellora {
namespace {

bool isLossyByName(const std::filesystem::path& file) {
  std::string extension = file.extension().string();
  if (!extension.empty()) extension.erase(0, 1);
  const auto* const type =
      std::ranges::find_if(allPictureTypes, [&](PictureType each) { return isExtensionOf(each, extension); });
  return type == allPictureTypes.end() || isLossy(*type);
}

bool usesQuality(const CompressionItem& item, const CompressOptions& options) {
  if (!item.sourceUTType && !item.sourceURL.empty() && options.format == CompressFormat::original)
    return isLossyByName(item.sourceURL);
  const ImageCompressor::Codec codec = ImageCompressor::codecFor(item.sourceUTType, options);
  const auto* const platform = std::get_if<ImageCompressor::PlatformCodec>(&codec);
  return !platform || platform->quality.has_value();
}

}  // namespace

bool usesQuality(const std::vector<CompressionItem>& items, CompressFormat format) {
  if (items.empty()) return format != CompressFormat::png;
  CompressOptions options;
  options.format = format;
  return std::ranges::any_of(items, [&](const CompressionItem& item) { return usesQuality(item, options); });
}

}  // namespace vellora
