#include "media/movies/MediaReader.h"

#include <utility>

#include "media/movies/DemuxingReader.h"
#include "media/movies/MovieFile.h"
#include "media/movies/StreamingReader.h"

namespace vellora {

Result<std::unique_ptr<MediaReader>, MediaFailure> MediaReader::open(const std::filesystem::path& file) {
  auto movie = MovieFile::open(file);
  if (!movie) return failure(std::move(movie.error()));
  return std::make_unique<DemuxingReader>(std::move(*movie));
}

Result<std::unique_ptr<MediaReader>, MediaFailure> openForStreaming(const std::filesystem::path& file) {
  auto movie = MovieFile::open(file);
  if (!movie) return failure(std::move(movie.error()));
  if (StreamingReader::isNeeded(**movie)) return StreamingReader::create(std::move(*movie));
  return std::make_unique<DemuxingReader>(std::move(*movie));
}

}  // namespace vellora
