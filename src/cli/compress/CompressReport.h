#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "editor/compressor/CompressionItem.h"
#include "editor/compressor/CompressionRun.h"

namespace vellora {

/// As people read it in `folder`: relative when it lies there, in one line whatever its name holds.
std::string shownPath(const std::filesystem::path& path, const std::filesystem::path& folder);

/// One English sentence without a full stop.
std::string describe(const PictureFailure& failure);

/// What became of one picture, seen from `folder`: "photo.jpg  4.1 MB -> 1.2 MB  -71%  photo-compressed.jpg",
/// "photo.jpg 1.2 MB  unchanged: already as small as it gets", or "photo.jpg: the file is damaged".
std::string lineOf(const CompressionItem& item, const std::filesystem::path& folder);

/// "12 of 40, 30.1 MB saved, 12 s left"
std::string progressText(const CompressionProgress& progress);

/// "39 pictures: 40.1 MB -> 12.2 MB, -70%; 2 unchanged, 1 failed"
std::string summaryOf(const std::vector<CompressionItem>& items);

/// One JSON object in one line: {state: "done" | "failed" | "interrupted", done, unchanged, failed, cancelled: how
/// many, bytesBefore, bytesAfter: of those done or unchanged, files: [{source, state: "done" | "unchanged" | "failed" |
/// "cancelled", bytesBefore, sourceType, output, type, bytesAfter, width, height, flattened, error: {code, message}}]}.
/// A file has what is known of it, and `flattened` when its transparency became white.
std::string jsonOf(const std::vector<CompressionItem>& items, bool isInterrupted);

}  // namespace vellora
