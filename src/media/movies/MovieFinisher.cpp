#include "media/movies/MovieFinisher.h"

#include "media/movies/BoxBuffer.h"
#include "media/movies/MovieHeader.h"
#include "media/movies/MovieIndex.h"

namespace vellora {
namespace {

Result<void, MovieFailure> cutTail(DiskFile& file, const MovieIndex& index) {
  if (index.isLastDataCut) {
    // Says where the data ends before anything stands behind it.
    BoxBuffer size;
    size.number32(index.end - index.lastData);
    if (auto written = file.write(index.lastData, size.take()); !written) return written;
    if (auto synced = file.sync(); !synced) return synced;
  }
  return file.truncate(index.end);
}

}  // namespace

Result<RepairedMovie, MovieFailure> finishMovie(DiskFile& file, std::optional<double> end) {
  auto index = MovieIndex::read(file);
  if (!index) return failure(std::move(index.error()));
  if (index->isEmpty()) return failure(MovieFailure{MovieError::empty, "Nothing was recorded in " + file.name()});
  index->holdLastPicture(end ? *end : index->lastTime());
  const auto moov = indexOfMovie(index->tracks, index->tables, end);

  if (auto cut = cutTail(file, *index); !cut) return failure(std::move(cut.error()));
  if (auto written = file.write(index->end, moov); !written) {
    static_cast<void>(file.truncate(index->end));
    return failure(std::move(written.error()));
  }
  if (auto synced = file.sync(); !synced) return failure(std::move(synced.error()));
  BoxBuffer data;
  data.number32(1);
  data.text("mdat");
  data.number64(index->end - reservedOffset);
  if (auto written = file.write(reservedOffset, data.take()); !written) return failure(std::move(written.error()));
  if (auto synced = file.sync(); !synced) return failure(std::move(synced.error()));
  return RepairedMovie{.duration = durationOfMovie(index->tracks, index->tables, end),
                       .hasLost = index->hasLost,
                       .bytes = index->end + moov.size()};
}

}  // namespace vellora
