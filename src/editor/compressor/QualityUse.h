#pragma once

#include <vector>

#include "editor/compressor/CompressOptions.h"
#include "editor/compressor/CompressionItem.h"

namespace vellora {

/// Whether quality means something for any of the pictures. Where a file has not been looked at yet, its name tells the
/// type. Yes without pictures, unless the format is one without loss.
bool usesQuality(const std::vector<CompressionItem>& items, CompressFormat format);

}  // namespace vellora
