#include "media/movies/FragmentFile.h"

#include <cerrno>
#include <utility>

#include "media/movies/MovieFailures.h"
#include "media/movies/MovieFinisher.h"

namespace vellora {

Result<std::unique_ptr<FragmentFile>, MovieFailure> FragmentFile::create(const std::filesystem::path& path,
                                                                         std::span<const std::uint8_t> start) {
  auto created = DiskFile::create(path);
  if (!created) return failure(std::move(created.error()));
  std::unique_ptr<FragmentFile> file(new FragmentFile(std::move(*created), path.parent_path()));
  file->syncQueue_.async([folder = file->folder_] { syncFolder(folder); });
  if (auto written = file->append(start); !written) {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
    return failure(std::move(written.error()));
  }
  return file;
}

Result<void, MovieFailure> FragmentFile::append(std::span<const std::uint8_t> part) {
  if (hasFailedToSync_) return failure(writeFailure(EIO, file_.name()));
  if (auto written = file_.write(size_, part); !written) {
    static_cast<void>(file_.truncate(size_));
    return written;
  }
  size_ += part.size();
  syncSoon();
  return {};
}

Result<RepairedMovie, MovieFailure> FragmentFile::finish(double end) {
  syncQueue_.drain();
  auto finished = finishMovie(file_, end);
  if (finished) size_ = finished->bytes;
  return finished;
}

void FragmentFile::syncSoon() {
  if (willSync_.exchange(true)) return;
  syncQueue_.async([this] {
    willSync_ = false;
    if (!file_.sync()) hasFailedToSync_ = true;
  });
}

}  // namespace vellora
