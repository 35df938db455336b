#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>

#include "base/Result.h"
#include "base/SerialQueue.h"
#include "media/movies/DiskFile.h"
#include "media/movies/MovieRepair.h"
#include "media/movies/MovieWriter.h"

namespace vellora {

/// The file of a movie that is being written. Parts are in it whole or not at all, and are on the disk soon after they
/// were appended. Used by one thread; one of its own waits for the disk.
class FragmentFile {
 public:
  /// A new file that begins with `start`.
  static Result<std::unique_ptr<FragmentFile>, MovieFailure> create(const std::filesystem::path& path,
                                                                    std::span<const std::uint8_t> start);

  std::uint64_t size() const { return size_; }
  Result<void, MovieFailure> append(std::span<const std::uint8_t> part);
  /// As finishMovie.
  Result<RepairedMovie, MovieFailure> finish(double end);

 private:
  FragmentFile(DiskFile file, std::filesystem::path folder) : file_(std::move(file)), folder_(std::move(folder)) {}
  void syncSoon();

  DiskFile file_;
  std::filesystem::path folder_;
  std::uint64_t size_ = 0;
  std::atomic<bool> willSync_ = false;
  std::atomic<bool> hasFailedToSync_ = false;
  SerialQueue syncQueue_{"dev.orlo.vellora.movie.sync"};
};

}  // namespace vellora
