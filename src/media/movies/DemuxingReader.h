#pragma once

#include <memory>
#include <optional>

#include "media/movies/MediaReader.h"
#include "media/movies/MovieFile.h"

namespace vellora {

/// Gives out a file's packets as they are.
class DemuxingReader : public MediaReader {
 public:
  explicit DemuxingReader(std::unique_ptr<MovieFile> file);

  const std::optional<MediaTrack>& video() const override { return video_; }
  const std::optional<MediaTrack>& audio() const override { return audio_; }
  std::chrono::microseconds duration() const override { return file_->duration(); }
  Result<const MediaPacket*, MediaFailure> read() override;
  Result<void, MediaFailure> rewind() override;

 private:
  std::unique_ptr<MovieFile> file_;
  std::optional<MediaTrack> video_, audio_;
  QueuedPacket current_;
  MediaPacket packet_;
};

/// What a caller sees of a packet, which it points into.
MediaPacket viewOf(const QueuedPacket& packet);

}  // namespace vellora
