#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <vector>

#include "base/Result.h"
#include "editor/compressor/CompressionWorkers.h"
#include "media/pictures/PictureFailure.h"
#include "media/pictures/PictureReader.h"

namespace vellora {

/// A picture file in memory, with the share of the memory that working on it takes.
struct AdmittedFile {
  std::vector<std::byte> data;
  PictureInfo info;
  MemoryGate::Share share;
};

/// Reads a file when its turn has come, and returns once the gate has room for it and for what `workOn` says that
/// working on it takes. Any thread.
Result<AdmittedFile, PictureFailure> admit(const std::filesystem::path& source, MemoryGate& gate,
                                           const std::function<std::size_t(const PictureInfo&)>& workOn);

}  // namespace vellora
