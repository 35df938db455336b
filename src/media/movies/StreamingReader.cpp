#include "media/movies/StreamingReader.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "media/movies/AudioTranscoder.h"
#include "media/movies/DemuxingReader.h"
#include "media/movies/VideoTranscoder.h"

namespace vellora {
namespace {

constexpr std::array kinds{MediaKind::video, MediaKind::audio};

bool passes(const MovieFile& file, MediaKind kind) {
  const auto& track = file.track(kind);
  if (!track) return true;
  if (kind == MediaKind::video && file.lacksPresentationTimes()) return false;
  constexpr std::array<std::string_view, 4> taken{"h264", "hevc", "aac", "opus"};
  return std::ranges::find(taken, track->description.codec) != taken.end();
}

}  // namespace

bool StreamingReader::isNeeded(const MovieFile& file) {
  return !std::ranges::all_of(kinds, [&](MediaKind kind) { return passes(file, kind); });
}

Result<std::unique_ptr<MediaReader>, MediaFailure> StreamingReader::create(std::unique_ptr<MovieFile> file) {
  std::unique_ptr<StreamingReader> reader(new StreamingReader(std::move(file)));
  if (auto started = reader->start(); !started) return failure(std::move(started.error()));
  return reader;
}

Result<void, MediaFailure> StreamingReader::start() {
  interleaver_ = {};
  hasEnded_ = false;
  failure_.reset();
  for (const MediaKind kind : kinds) {
    const auto i = static_cast<std::size_t>(kind);
    transcoders_.at(i).reset();
    const auto& track = file_->track(kind);
    if (!track) continue;
    interleaver_.expect(kind);
    if (passes(*file_, kind)) {
      descriptions_.at(i) = track->description;
      continue;
    }
    auto transcoder = kind == MediaKind::video ? VideoTranscoder::create(*file_) : AudioTranscoder::create(*file_);
    if (!transcoder) return failure(std::move(transcoder.error()));
    descriptions_.at(i) = (*transcoder)->description();
    transcoders_.at(i) = std::move(*transcoder);
  }
  return {};
}

Result<void, MediaFailure> StreamingReader::rewind() {
  current_.packet.reset();
  if (auto rewound = file_->rewind(); !rewound) return rewound;
  return start();
}

Result<const MediaPacket*, MediaFailure> StreamingReader::read() {
  while (!hasEnded_ && !interleaver_.isReady()) fill();
  auto next = interleaver_.pop();
  if (!next) {
    current_.packet.reset();
    if (failure_) return failure(*failure_);
    return nullptr;
  }
  current_ = std::move(*next);
  packet_ = viewOf(current_);
  return &packet_;
}

void StreamingReader::fill() {
  auto next = file_->read();
  if (!next) failure_ = std::move(next.error());
  if (!next || !*next) return finish();
  QueuedPacket packet = std::move(**next);
  Transcoder* transcoder = transcoders_.at(static_cast<std::size_t>(packet.kind)).get();
  if (transcoder == nullptr) return interleaver_.push(std::move(packet));
  if (auto done = transcoder->put(std::move(packet), interleaver_); !done) {
    failure_ = std::move(done.error());
    finish();
  }
}

void StreamingReader::finish() {
  hasEnded_ = true;
  for (const auto& transcoder : transcoders_) {
    if (transcoder == nullptr) continue;
    if (auto done = transcoder->finish(interleaver_); !done && !failure_) failure_ = std::move(done.error());
  }
  interleaver_.finish();
}

}  // namespace vellora
