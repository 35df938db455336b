#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "base/Result.h"
#include "editor/compressor/CompressOptions.h"
#include "editor/compressor/CompressionItem.h"
#include "editor/compressor/CompressionRun.h"
#include "editor/compressor/CompressionWorkers.h"
#include "editor/compressor/ImageCompressor.h"

namespace vellora {

/// All that is needed to carry out one row, away from the list.
struct CompressionJob {
  std::filesystem::path source;  ///< empty for pasted pixels
  std::string displayName;
  Raster image;
  CompressOptions options;
  CompressDestination destination;
  int threads = 1;
  std::function<bool()> isCancelled;
};

struct CompressionResult {
  CompressionOutput output;
  ImageCompressor::Size sourceSize;
  std::optional<PictureType> sourceType;
  std::uintmax_t sourceBytes = 0;
  bool isOriginal = false;
};

/// Reads, compresses and writes; on failure no file is left. Waits at `gate` for its memory. Any thread.
Result<CompressionResult, PictureFailure> carryOut(const CompressionJob& job, MemoryGate& gate);

/// What compressing takes at most beside the file's own bytes: the decoded picture, a resized or converted copy, and
/// what the encoder holds.
std::size_t workingBytes(std::size_t decodedBytes);

}  // namespace vellora
