#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/Result.h"
#include "media/movies/FragmentBuilder.h"
#include "media/movies/FragmentFile.h"
#include "media/movies/MovieWriter.h"
#include "media/movies/SoundEncoder.h"
#include "media/movies/VideoEncoder.h"

namespace vellora {

/// What a MovieWriter does on its thread: converts, encodes, and writes fragments. After a failure only finish() works.
class MovieEncoding {
 public:
  using Clock = std::chrono::steady_clock;

  static Result<std::unique_ptr<MovieEncoding>, MovieFailure> create(const std::filesystem::path& path,
                                                                     const MovieWriter::Settings& settings);

  Result<void, MovieFailure> put(const MoviePicture& picture, double time);
  Result<void, MovieFailure> putSound(std::size_t track, std::span<const float> samples, double time);
  /// Encodes the picture once more when it has stood for a while at `time`.
  Result<void, MovieFailure> advance(double time);
  /// Seconds of sound in the track that has most.
  double soundPosition() const;

  /// When the next fragment is to be written; nothing while there is nothing for it.
  std::optional<Clock::time_point> nextFlush() const;
  Result<void, MovieFailure> flush();
  /// Writes all that the encoders still hold.
  Result<void, MovieFailure> drain();
  /// After drain(), or instead when that failed.
  Result<MovieWriter::Summary, MovieFailure> finish(double end);

  const std::string& encoderName() const { return video_->choice().name; }
  std::uint64_t fileSize() const { return file_->size(); }

 private:
  MovieEncoding(std::unique_ptr<VideoEncoder> video, std::vector<std::unique_ptr<SoundEncoder>> sounds,
                const MovieWriter::Settings& settings);
  void convert(const MoviePicture& picture, const I420View& to) const;
  Result<void, MovieFailure> encodePicture(std::int64_t time);
  VideoEncoder::Output videoOutput();
  SoundEncoder::Output soundOutput(std::size_t track);
  Result<void, MovieFailure> flushIfLarge();

  std::unique_ptr<VideoEncoder> video_;
  std::vector<std::unique_ptr<SoundEncoder>> sounds_;
  MovieWriter::Settings settings_;
  FragmentBuilder builder_;
  std::unique_ptr<FragmentFile> file_;
  std::uint64_t lastNumber_ = 0;          // of the picture converted last
  std::optional<std::int64_t> lastTime_;  // when it is shown, in ticks
  bool hasPicture_ = false;               // in the file
  Clock::time_point lastFlush_ = Clock::now();
};

}  // namespace vellora
