#include "media/movies/DemuxingReader.h"

#include <utility>

namespace vellora {

MediaPacket viewOf(const QueuedPacket& packet) {
  return {packet.kind,
          packet.times.decode,
          packet.times.presentation,
          packet.times.duration,
          (packet.packet->flags & AV_PKT_FLAG_KEY) != 0,
          {packet.packet->data, static_cast<std::size_t>(packet.packet->size)}};
}

DemuxingReader::DemuxingReader(std::unique_ptr<MovieFile> file) : file_(std::move(file)) {
  if (const auto& track = file_->track(MediaKind::video)) video_ = track->description;
  if (const auto& track = file_->track(MediaKind::audio)) audio_ = track->description;
}

Result<const MediaPacket*, MediaFailure> DemuxingReader::read() {
  auto next = file_->read();
  if (!next) return failure(std::move(next.error()));
  if (!*next) {
    current_.packet.reset();
    return nullptr;
  }
  current_ = std::move(**next);
  packet_ = viewOf(current_);
  return &packet_;
}

Result<void, MediaFailure> DemuxingReader::rewind() {
  current_.packet.reset();
  return file_->rewind();
}

}  // namespace vellora
