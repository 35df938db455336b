#pragma once

#include <string>
#include <string_view>

#include "editor/compressor/CompressionItem.h"
#include "editor/compressor/CompressionRun.h"

namespace vellora {

/// "notAPicture": what `--json` calls an error.
std::string_view codeOf(PictureError error);
/// One English sentence without a full stop.
std::string describe(const PictureFailure& failure);

/// "photo.jpg  4.1 MB -> 1.2 MB  -71%  photo-compressed.jpg" for an item that is done or unchanged.
std::string lineOf(const CompressionItem& item);
/// "12 pictures, 40.1 MB -> 12.2 MB, -70%; 1 failed"
std::string summaryOf(const CompressionProgress& progress);
/// The whole run as one JSON object on one line.
std::string jsonOf(const CompressionRun& run, const CompressionProgress& progress, bool isInterrupted);

}  // namespace vellora
