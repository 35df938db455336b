#include "media/movies/MediaReader.h"

#include <utility>

#include "media/movies/DemuxingReader.h"
#include "media/movies/MovieFile.h"

namespace vellora {

Result<std::unique_ptr<MediaReader>, MediaFailure> MediaReader::open(const std::filesystem::path& file) {
  auto movie = MovieFile::open(file);
  if (!movie) return failure(std::move(movie.error()));
  return std::make_unique<DemuxingReader>(std::move(*movie));
}

Result<std::unique_ptr<MediaReader>, MediaFailure> openForStreaming(const std::filesystem::path& file) {
  return MediaReader::open(file);
}

}  // namespace vellora
