#include "media/movies/AudioTrackReader.h"

#include <algorithm>

#include "media/movies/ContainerInput.h"

namespace vellora {
namespace {

constexpr AVSampleFormat sampleFormat = AV_SAMPLE_FMT_FLT;
constexpr int mostChannels = 64, mostRate = 768000;
/// How often in a row a file may have nothing readable before it counts as damaged for good.
constexpr int mostErrors = 256;
/// A longer pause in a track, a day, is damage. Seconds.
constexpr std::int64_t longestPause = 86400;
/// Beyond this, about 30 years, a time stamp is no time. Microseconds; leaves room to calculate.
constexpr std::int64_t mostTime = 1000000000000000;

/// Time stamps off by less, a twentieth of a second, are taken for imprecise; the sound goes on without a break.
std::int64_t tolerance(int rate) {
  return rate / 20;
}

bool isUsable(const AVCodecParameters& codec) {
  return codec.codec_id != AV_CODEC_ID_NONE && codec.sample_rate > 0 && codec.sample_rate <= mostRate &&
         codec.ch_layout.nb_channels > 0 && codec.ch_layout.nb_channels <= mostChannels;
}

/// The `track`th audio stream that can be used, the only one to be read from now on; null without it.
const AVStream* chooseStream(const AVFormatContext& format, std::size_t track) {
  const AVStream* chosen = nullptr;
  for (AVStream* stream : std::span(format.streams, format.nb_streams)) {
    const bool isAudio = stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO;
    const bool isChosen = isAudio && isUsable(*stream->codecpar) && chosen == nullptr && track == 0;
    if (isChosen) {
      chosen = stream;
    } else {
      stream->discard = AVDISCARD_ALL;
    }
    if (isAudio && !isChosen && track > 0) --track;
  }
  return chosen;
}

/// Files that do not say which channels there are have the usual ones.
bool takeLayout(AVChannelLayout& to, const AVChannelLayout& from) {
  if (from.order != AV_CHANNEL_ORDER_UNSPEC) return av_channel_layout_copy(&to, &from) >= 0;
  av_channel_layout_uninit(&to);
  av_channel_layout_default(&to, from.nb_channels);
  return true;
}

}  // namespace

Result<std::unique_ptr<AudioTrackReader>, MediaFailure> AudioTrackReader::open(const std::filesystem::path& file,
                                                                               std::size_t track, AudioForm form) {
  auto input = FileInput::open(file);
  if (!input) return failure(std::move(input.error()));
  std::unique_ptr<AudioTrackReader> reader(new AudioTrackReader(std::move(*input), file.string()));
  if (auto started = reader->start(track, form); !started) return failure(std::move(started.error()));
  return reader;
}

AudioTrackReader::~AudioTrackReader() {
  av_channel_layout_uninit(&layout_);
  av_channel_layout_uninit(&frameLayout_);
}

Result<void, MediaFailure> AudioTrackReader::start(std::size_t track, AudioForm form) {
  input_ = file_.start();
  if (input_ == nullptr) return failure(MediaFailure{MediaError::unreadable, "Cannot read " + name_});
  auto format = openContainer(*input_, name_);
  if (!format) return failure(std::move(format.error()));
  format_ = std::move(*format);
  avformat_find_stream_info(format_.get(), nullptr);  // a failure leaves what was found
  stream_ = chooseStream(*format_, track);
  if (stream_ == nullptr) return failure(MediaFailure{MediaError::noStreams, "There is no audio in " + name_});
  packet_.reset(av_packet_alloc());
  frame_.reset(av_frame_alloc());
  rate_ = stream_->codecpar->sample_rate;
  if (packet_ == nullptr || frame_ == nullptr || !takeLayout(layout_, stream_->codecpar->ch_layout) || !openDecoder()) {
    return failure(MediaFailure{MediaError::unsupported, "The audio of " + name_ + " is in " +
                                                             avcodec_get_name(stream_->codecpar->codec_id) +
                                                             ", which cannot be decoded here"});
  }
  if (form.sampleRate > 0) rate_ = std::min(form.sampleRate, mostRate);
  if (form.channels > 0) {
    av_channel_layout_uninit(&layout_);
    av_channel_layout_default(&layout_, std::min(form.channels, mostChannels));
  }
  return {};
}

bool AudioTrackReader::openDecoder() {
  const AVCodec* decoder = avcodec_find_decoder(stream_->codecpar->codec_id);
  codec_.reset(decoder == nullptr ? nullptr : avcodec_alloc_context3(decoder));
  if (codec_ == nullptr || avcodec_parameters_to_context(codec_.get(), stream_->codecpar) < 0) return false;
  codec_->pkt_timebase = stream_->time_base;
  return avcodec_open2(codec_.get(), decoder, nullptr) >= 0;
}

std::int64_t AudioTrackReader::expectedFrames() const {
  if (format_->duration <= 0) return 0;
  return av_rescale(format_->duration, rate_, AV_TIME_BASE);
}

Result<std::span<const float>, MediaFailure> AudioTrackReader::read() {
  for (;;) {
    if (silence_ > 0) {
      const std::int64_t frames = std::min<std::int64_t>(silence_, rate_);
      given_.assign(static_cast<std::size_t>(frames) * static_cast<std::size_t>(channels()), 0.0F);
      silence_ -= frames;
      return given_;
    }
    if (!samples_.empty()) {
      given_.swap(samples_);
      samples_.clear();
      return given_;
    }
    // An error concerns one frame only; each takes at least a packet's worth away, so that this ends.
    const int result = avcodec_receive_frame(codec_.get(), frame_.get());
    if (result >= 0) {
      take();
    } else if (result == AVERROR_EOF) {
      return std::span<const float>();
    } else if (result == AVERROR(EAGAIN)) {
      if (auto fed = feed(); !fed) return failure(std::move(fed.error()));
    }
  }
}

Result<void, MediaFailure> AudioTrackReader::feed() {
  for (int errors = 0; errors < mostErrors; ++errors) {
    const int result = hasEnded_ ? AVERROR_EOF : av_read_frame(format_.get(), packet_.get());
    if (result >= 0) {
      const bool isOurs = packet_->stream_index == stream_->index && packet_->size > 0;
      if (isOurs) avcodec_send_packet(codec_.get(), packet_.get());
      av_packet_unref(packet_.get());
      if (isOurs) return {};
      errors = -1;
      continue;
    }
    if (input_->error != 0 && input_->error != AVERROR_EOF) {
      return failure(MediaFailure{MediaError::unreadable, "Cannot read " + name_ + " further"});
    }
    if (result == AVERROR_EOF) {
      hasEnded_ = true;
      avcodec_send_packet(codec_.get(), nullptr);
      return {};
    }
  }
  return failure(MediaFailure{MediaError::damaged, name_ + " is damaged; nothing more can be read from it"});
}

std::int64_t AudioTrackReader::placeOfFrame() const {
  if (frame_->best_effort_timestamp == AV_NOPTS_VALUE) return position_;
  const std::int64_t origin = format_->start_time == AV_NOPTS_VALUE ? 0 : format_->start_time;
  const std::int64_t stamp = av_rescale_q(frame_->best_effort_timestamp, stream_->time_base, AV_TIME_BASE_Q);
  const std::int64_t time = std::clamp(stamp, -mostTime, mostTime) - std::clamp(origin, -mostTime, mostTime);
  return av_rescale(time, rate_, AV_TIME_BASE);
}

void AudioTrackReader::take() {
  if (frame_->nb_samples <= 0 || frame_->sample_rate <= 0) return;
  const std::int64_t place = placeOfFrame();
  if (sought_ && place < *sought_) {
    position_ = place;
  } else {
    const std::int64_t distance = place - position_;
    if (distance < -tolerance(rate_)) return;
    if (distance > tolerance(rate_) && distance < longestPause * rate_) {
      silence_ = distance;
      position_ += distance;
    }
  }
  if (prepareConverter()) convert();
  if (sought_) trim();
}

void AudioTrackReader::trim() {
  const auto count = static_cast<std::int64_t>(samples_.size()) / channels();
  const std::int64_t before = std::clamp(*sought_ - (position_ - count), std::int64_t{0}, count);
  samples_.erase(samples_.begin(), samples_.begin() + before * channels());
  if (before < count || silence_ > 0) {
    sought_.reset();
  } else {
    position_ = *sought_;
  }
}

Result<void, MediaFailure> AudioTrackReader::seek(std::int64_t frame) {
  const std::int64_t target = std::clamp(frame, std::int64_t{0}, longestPause * rate_ * 30);
  const std::int64_t origin = format_->start_time == AV_NOPTS_VALUE ? 0 : format_->start_time;
  // Decoders need what stands before to get the next frames right.
  const std::int64_t start = std::max<std::int64_t>(0, target - rate_ / 5);
  const std::int64_t stamp = av_rescale(start, AV_TIME_BASE, rate_) + std::clamp(origin, -mostTime, mostTime);
  if (av_seek_frame(format_.get(), stream_->index, av_rescale_q(stamp, AV_TIME_BASE_Q, stream_->time_base),
                    AVSEEK_FLAG_BACKWARD) < 0) {
    return failure(MediaFailure{MediaError::damaged, name_ + " cannot be read from this place on"});
  }
  avcodec_flush_buffers(codec_.get());
  converter_.reset();
  hasEnded_ = false;
  silence_ = 0;
  samples_.clear();
  position_ = target;
  sought_ = target;
  return {};
}

bool AudioTrackReader::prepareConverter() {
  if (converter_ != nullptr && frame_->format == frameFormat_ && frame_->sample_rate == frameRate_ &&
      av_channel_layout_compare(&frame_->ch_layout, &frameLayout_) == 0) {
    return true;
  }
  converter_.reset();
  AVChannelLayout from{};
  if (av_channel_layout_copy(&frameLayout_, &frame_->ch_layout) < 0 || !takeLayout(from, frame_->ch_layout)) {
    return false;
  }
  frameFormat_ = frame_->format;
  frameRate_ = frame_->sample_rate;
  SwrContext* made = nullptr;
  const int result = swr_alloc_set_opts2(&made, &layout_, sampleFormat, rate_, &from,
                                         static_cast<AVSampleFormat>(frameFormat_), frameRate_, 0, nullptr);
  av_channel_layout_uninit(&from);
  converter_.reset(made);
  if (result >= 0 && swr_init(converter_.get()) >= 0) return true;
  converter_.reset();
  return false;
}

void AudioTrackReader::convert() {
  const int most = swr_get_out_samples(converter_.get(), frame_->nb_samples);
  if (most <= 0) return;
  const auto count = static_cast<std::size_t>(channels());
  samples_.resize(static_cast<std::size_t>(most) * count);
  auto* to = reinterpret_cast<std::uint8_t*>(samples_.data());
  const int frames = swr_convert(converter_.get(), &to, most, const_cast<const std::uint8_t**>(frame_->extended_data),
                                 frame_->nb_samples);
  samples_.resize(static_cast<std::size_t>(std::max(frames, 0)) * count);
  position_ += std::max(frames, 0);
}

}  // namespace vellora
