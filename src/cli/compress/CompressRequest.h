#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/Result.h"
#include "editor/compressor/CompressOptions.h"
#include "editor/compressor/CompressionRun.h"

namespace vellora {

/// What a person asked `vellora compress` for.
struct CompressRequest {
  std::vector<std::filesystem::path> paths;
  bool isRecursive = false;
  CompressOptions options;
  CompressDestination destination;
  int jobs = 0;  ///< 0: as many as the machine has cores
  bool json = false;

  /// From the words of the command line, without the program's name; otherwise what is wrong with them.
  static Result<CompressRequest, std::string> from(const std::vector<std::string>& words);
};

}  // namespace vellora
