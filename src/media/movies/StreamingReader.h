#pragma once

#include <array>
#include <memory>
#include <optional>

#include "media/movies/Interleaver.h"
#include "media/movies/MediaReader.h"
#include "media/movies/MovieFile.h"
#include "media/movies/Transcoder.h"

namespace vellora {

/// Gives out a file's packets, those of a codec no streaming server takes encoded again. Packets that pass are never
/// copied or looked into.
class StreamingReader : public MediaReader {
 public:
  /// Whether a track of the file has to be encoded again.
  static bool isNeeded(const MovieFile& file);
  static Result<std::unique_ptr<MediaReader>, MediaFailure> create(std::unique_ptr<MovieFile> file);

  const std::optional<MediaTrack>& video() const override { return descriptions_[0]; }
  const std::optional<MediaTrack>& audio() const override { return descriptions_[1]; }
  std::chrono::microseconds duration() const override { return file_->duration(); }
  Result<const MediaPacket*, MediaFailure> read() override;
  Result<void, MediaFailure> rewind() override;

 private:
  explicit StreamingReader(std::unique_ptr<MovieFile> file) : file_(std::move(file)) {}

  Result<void, MediaFailure> start();
  /// Moves one packet from the file to the interleaver, or finishes.
  void fill();
  void finish();

  std::unique_ptr<MovieFile> file_;
  std::array<std::unique_ptr<Transcoder>, 2> transcoders_;  // null: the track passes
  std::array<std::optional<MediaTrack>, 2> descriptions_;
  Interleaver interleaver_;
  bool hasEnded_ = false;
  std::optional<MediaFailure> failure_;
  QueuedPacket current_;
  MediaPacket packet_;
};

}  // namespace vellora
