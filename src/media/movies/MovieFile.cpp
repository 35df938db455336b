#include "media/movies/MovieFile.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "media/movies/ContainerFormats.h"
#include "media/movies/ContainerInput.h"

namespace vellora {
namespace {

using std::chrono::microseconds;

/// How often in a row a file may have nothing readable before it counts as damaged for good.
constexpr int mostErrors = 256;
/// Samples in an AAC frame, as good as always.
constexpr int aacFrame = 1024;

std::string reasonOf(int error) {
  std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
  av_strerror(error, text.data(), text.size());
  return text.data();
}

/// How many pictures may come before the first one is shown. Where a file says neither this nor decode times, there are
/// usually two.
int delayOf(const AVCodecParameters& codec) {
  if (codec.codec_type != AVMEDIA_TYPE_VIDEO) return 0;
  const bool mayReorder = codec.codec_id == AV_CODEC_ID_H264 || codec.codec_id == AV_CODEC_ID_HEVC;
  return std::max(codec.video_delay, mayReorder ? 2 : 0);
}

microseconds nominalDuration(const AVStream& stream) {
  const AVCodecParameters& codec = *stream.codecpar;
  if (codec.codec_type == AVMEDIA_TYPE_AUDIO) {
    const int samples = codec.frame_size <= 0 && codec.codec_id == AV_CODEC_ID_AAC ? aacFrame : codec.frame_size;
    return microseconds(samples > 0 ? std::int64_t{samples} * 1000000 / codec.sample_rate : 0);
  }
  const AVRational rate = frameRateOf(stream);
  return microseconds(rate.num > 0 ? av_rescale(1000000, rate.den, rate.num) : 0);
}

struct Choice {
  int video = -1;
  int audio = -1;
};

Choice choose(AVFormatContext& format) {
  Choice choice;
  for (unsigned i = 0; i < format.nb_streams && choice.video < 0; ++i) {
    const AVStream& stream = *format.streams[i];
    if (stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO && isUsable(stream)) choice.video = static_cast<int>(i);
  }
  choice.audio = av_find_best_stream(&format, AVMEDIA_TYPE_AUDIO, -1, choice.video, nullptr, 0);
  if (choice.audio >= 0 && !isUsable(*format.streams[choice.audio])) choice.audio = -1;
  return choice;
}

/// Whether the header alone told enough of the chosen tracks; looking into the packets costs more than copying a short
/// file.
bool headerSaysAll(const AVFormatContext& format, const Choice& choice) {
  if (!isSelfContained(*format.iformat)) return false;
  if (choice.video < 0 && choice.audio < 0) return false;
  for (unsigned i = 0; i < format.nb_streams; ++i) {
    const AVMediaType type = format.streams[i]->codecpar->codec_type;
    const bool isChosen = static_cast<int>(i) == choice.video || static_cast<int>(i) == choice.audio;
    if (type == AVMEDIA_TYPE_VIDEO && choice.video < 0 && !isPicture(*format.streams[i])) return false;
    if (type == AVMEDIA_TYPE_AUDIO && choice.audio < 0) return false;
    if (!isChosen) continue;
    if (type == AVMEDIA_TYPE_VIDEO && format.streams[i]->avg_frame_rate.num <= 0) return false;
    const AVCodecParameters& codec = *format.streams[i]->codecpar;
    switch (codec.codec_id) {
      case AV_CODEC_ID_H264:
      case AV_CODEC_ID_HEVC:
        if (codec.extradata_size < 7 || codec.extradata[0] != 1) return false;
        break;
      case AV_CODEC_ID_AAC:
      case AV_CODEC_ID_OPUS:
        if (codec.extradata_size < 2) return false;
        break;
      default:
        return false;
    }
  }
  return true;
}

}  // namespace

Result<std::unique_ptr<MovieFile>, MediaFailure> MovieFile::open(const std::filesystem::path& file) {
  auto input = FileInput::open(file);
  if (!input) return failure(std::move(input.error()));
  std::unique_ptr<MovieFile> movie(new MovieFile(std::move(*input), file.string()));
  if (auto started = movie->start(); !started) return failure(std::move(started.error()));
  return movie;
}

Result<void, MediaFailure> MovieFile::rewind() {
  return start();
}

Result<void, MediaFailure> MovieFile::start() {
  format_.reset();
  input_ = file_.start();
  tracks_ = {};
  formats_ = {};
  clock_ = {};
  interleaver_ = {};
  hasEnded_ = false;
  failure_.reset();
  if (input_ == nullptr) return failure(MediaFailure{MediaError::unreadable, "Cannot read " + name_});

  auto format = openContainer(*input_, name_);
  if (!format) return failure(std::move(format.error()));
  format_ = std::move(*format);
  return chooseTracks();
}

Result<void, MediaFailure> MovieFile::chooseTracks() {
  Choice choice = choose(*format_);
  if (headerSaysAll(*format_, choice)) {
    format_->flags |= AVFMT_FLAG_NOPARSE;
  } else {
    // A failure leaves what was found, and what has no use is left out by choose().
    avformat_find_stream_info(format_.get(), nullptr);
    choice = choose(*format_);
  }
  for (unsigned i = 0; i < format_->nb_streams; ++i) {
    const bool isChosen = static_cast<int>(i) == choice.video || static_cast<int>(i) == choice.audio;
    if (!isChosen) format_->streams[i]->discard = AVDISCARD_ALL;
  }
  duration_ = microseconds(std::max<std::int64_t>(format_->duration, 0));
  if (choice.video >= 0) describe(MediaKind::video, choice.video);
  if (choice.audio >= 0) describe(MediaKind::audio, choice.audio);

  // The first packets tell the time both tracks start from, and what the header left open.
  while (!interleaver_.isReady()) fill();
  for (std::size_t i = 0; i < tracks_.size(); ++i) {
    if (!tracks_.at(i)) continue;
    const PacketFormat& form = *formats_.at(i);
    if (form.needsConfiguration() && form.configuration().empty()) {
      tracks_.at(i).reset();
      interleaver_.finish(static_cast<MediaKind>(i));
    } else {
      tracks_.at(i)->description.configuration = form.configuration();
    }
  }
  if (!tracks_[0] && !tracks_[1]) {
    return failure(MediaFailure{MediaError::noStreams, "There is neither video nor audio in " + name_});
  }
  return {};
}

void MovieFile::describe(MediaKind kind, int index) {
  const AVStream& stream = *format_->streams[index];
  const AVCodecParameters& codec = *stream.codecpar;
  auto form = PacketFormat::create(codec);
  if (form == nullptr) return;

  Track track;
  track.stream = &stream;
  MediaTrack& description = track.description;
  description.kind = kind;
  description.codec = avcodec_get_name(codec.codec_id);
  description.bitRate = std::max<std::int64_t>(codec.bit_rate, 0);
  if (kind == MediaKind::video) {
    description.width = codec.width;
    description.height = codec.height;
    description.frameRate = av_q2d(frameRateOf(stream));
    lacksPresentationTimes_ = codec.video_delay > 0 && hasDecodeTimesOnly(*format_->iformat);
  } else {
    description.sampleRate = codec.sample_rate;
    description.channels = codec.ch_layout.nb_channels;
  }
  if (stream.duration > 0 && stream.duration != AV_NOPTS_VALUE) {
    const microseconds length(av_rescale_q(stream.duration, stream.time_base, {1, 1000000}));
    if (format_->duration <= 0) duration_ = std::max(duration_, length);
  }
  clock_.addTrack(kind, {.timeBase = stream.time_base,
                         .nominal = nominalDuration(stream),
                         .delay = delayOf(codec),
                         .mayJump = (format_->iformat->flags & AVFMT_TS_DISCONT) != 0});
  interleaver_.expect(kind);
  formats_.at(static_cast<std::size_t>(kind)) = std::move(form);
  tracks_.at(static_cast<std::size_t>(kind)) = std::move(track);
}

void MovieFile::fill() {
  for (int errors = 0; errors < mostErrors; ++errors) {
    PacketPointer packet(av_packet_alloc());
    const int result = packet == nullptr ? AVERROR(ENOMEM) : av_read_frame(format_.get(), packet.get());
    if (result >= 0) return take(std::move(packet));
    if (input_->error != 0 && input_->error != AVERROR_EOF) {
      failure_ = MediaFailure{MediaError::unreadable, "Cannot read " + name_ + " further: " + reasonOf(input_->error)};
      break;
    }
    if (result == AVERROR_EOF) break;
    if (errors + 1 == mostErrors) {
      failure_ = MediaFailure{MediaError::damaged, name_ + " is damaged; nothing more can be read from it"};
    }
  }
  hasEnded_ = true;
  interleaver_.finish();
}

void MovieFile::take(PacketPointer packet) {
  for (std::size_t i = 0; i < tracks_.size(); ++i) {
    if (!tracks_.at(i) || tracks_.at(i)->stream->index != packet->stream_index) continue;
    // A stream that loses packets on its way says so of all that follow, elsewhere the file has ended too early.
    const bool isCut = (packet->flags & AV_PKT_FLAG_CORRUPT) != 0 && (format_->iformat->flags & AVFMT_TS_DISCONT) == 0;
    if (isCut || packet->size <= 0 || !formats_.at(i)->apply(*packet)) return;
    const auto kind = static_cast<MediaKind>(i);
    const PacketTimes times = clock_.next(kind, *packet);
    interleaver_.push({std::move(packet), kind, times});
    return;
  }
}

Result<std::optional<QueuedPacket>, MediaFailure> MovieFile::read() {
  while (!hasEnded_ && !interleaver_.isReady()) fill();
  auto next = interleaver_.pop();
  if (!next && failure_) return failure(*failure_);
  return next;
}

}  // namespace vellora
