#include "media/movies/AudioTranscoder.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vellora {
namespace {

constexpr std::int64_t bitRate = 128'000;
constexpr AVSampleFormat sampleFormat = AV_SAMPLE_FMT_FLTP;
constexpr int mostChannels = 2;

/// Time stamps off by less, a twentieth of a second, are taken for imprecise; the sound goes on without a break.
std::int64_t tolerance(int rate) {
  return rate / 20;
}

int outputRate(int rate) {
  return rate > 0 && 44100 % rate == 0 ? 44100 : rate % 44100 == 0 ? 44100 : 48000;
}

MediaFailure memoryFailure() {
  return {MediaError::unsupported, "The audio cannot be converted for AAC"};
}

FramePointer newFrame(int count, const MediaTrack& track) {
  FramePointer frame(av_frame_alloc());
  if (frame == nullptr) return nullptr;
  frame->format = sampleFormat;
  frame->nb_samples = count;
  frame->sample_rate = track.sampleRate;
  av_channel_layout_default(&frame->ch_layout, track.channels);
  return av_frame_get_buffer(frame.get(), 0) < 0 ? nullptr : std::move(frame);
}

Result<FrameEncoder, MediaFailure> openEncoder(const MediaTrack& track) {
  CodecPointer codec = encoderNamed("aac");
  if (codec != nullptr) {
    codec->sample_fmt = sampleFormat;
    codec->sample_rate = track.sampleRate;
    av_channel_layout_default(&codec->ch_layout, track.channels);
    codec->bit_rate = track.bitRate;
    codec->profile = FF_PROFILE_AAC_LOW;
    codec->time_base = {1, track.sampleRate};
    codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
  }
  return FrameEncoder::open(std::move(codec), MediaKind::audio, nullptr);
}

}  // namespace

Result<std::unique_ptr<Transcoder>, MediaFailure> AudioTranscoder::create(const MovieFile& file) {
  const MediaTrack& source = file.track(MediaKind::audio)->description;
  auto decoder = FrameDecoder::open(file, MediaKind::audio, FrameDecoder::Latency::low);
  if (!decoder) return failure(std::move(decoder.error()));

  MediaTrack description;
  description.kind = MediaKind::audio;
  description.codec = "aac";
  description.sampleRate = outputRate(source.sampleRate);
  description.channels = std::min(source.channels, mostChannels);
  description.bitRate = bitRate;
  description.encodedFrom = source.codec;
  auto encoder = openEncoder(description);
  if (!encoder) return failure(std::move(encoder.error()));
  description.configuration = encoder->configuration();

  SampleQueuePointer samples(av_audio_fifo_alloc(sampleFormat, description.channels, encoder->frameSize()));
  if (samples == nullptr) return failure(memoryFailure());
  return std::unique_ptr<Transcoder>(
      new AudioTranscoder(std::move(*decoder), std::move(*encoder), std::move(samples), std::move(description)));
}

AudioTranscoder::AudioTranscoder(FrameDecoder decoder, FrameEncoder encoder, SampleQueuePointer samples,
                                 MediaTrack description)
    : decoder_(std::move(decoder)),
      encoder_(std::move(encoder)),
      samples_(std::move(samples)),
      description_(std::move(description)) {}

AudioTranscoder::~AudioTranscoder() {
  av_channel_layout_uninit(&layout_);
}

Result<void, MediaFailure> AudioTranscoder::put(QueuedPacket packet, Interleaver& output) {
  decoder_.send(std::move(packet));
  return encodeDecoded(output);
}

Result<void, MediaFailure> AudioTranscoder::finish(Interleaver& output) {
  decoder_.finish();
  if (auto encoded = encodeDecoded(output); !encoded) return encoded;
  if (auto rest = encodeRest(output); !rest) return rest;
  if (auto sent = encoder_.send(nullptr); !sent) return sent;
  while (auto packet = encoder_.receive()) output.push(std::move(*packet));
  return {};
}

Result<void, MediaFailure> AudioTranscoder::encodeDecoded(Interleaver& output) {
  while (const AVFrame* frame = decoder_.receive()) {
    if (auto taken = take(*frame, output); !taken) return taken;
  }
  return {};
}

Result<void, MediaFailure> AudioTranscoder::take(const AVFrame& frame, Interleaver& output) {
  if (frame.nb_samples <= 0 || frame.sample_rate <= 0) return {};
  const int rate = description_.sampleRate;
  if (frame.best_effort_timestamp != AV_NOPTS_VALUE) {
    const std::int64_t start = av_rescale(frame.best_effort_timestamp, rate, 1000000);
    if (position_) {
      const std::int64_t held = av_audio_fifo_size(samples_.get());
      const std::int64_t delayed = resampler_ == nullptr ? 0 : swr_get_delay(resampler_.get(), rate);
      const std::int64_t distance = start - (*position_ + held + delayed);
      if (distance < -tolerance(rate)) return {};
      if (distance > tolerance(rate)) {
        if (auto rest = encodeRest(output); !rest) return rest;
        position_ = start;
      }
    } else {
      position_ = start;
    }
  }
  if (!position_) position_ = 0;

  if (!prepareResampler(frame)) return failure(memoryFailure());
  if (auto converted = convert(&frame); !converted) return converted;
  return encodeWholeFrames(output);
}

bool AudioTranscoder::prepareResampler(const AVFrame& frame) {
  if (resampler_ != nullptr && frame.format == format_ && frame.sample_rate == rate_ &&
      av_channel_layout_compare(&frame.ch_layout, &layout_) == 0) {
    return true;
  }
  if (!convert(nullptr) || av_channel_layout_copy(&layout_, &frame.ch_layout) < 0) return false;
  format_ = frame.format;
  rate_ = frame.sample_rate;
  AVChannelLayout from{};
  AVChannelLayout to{};
  // Files that do not say which channels there are have the usual ones.
  if (layout_.order == AV_CHANNEL_ORDER_UNSPEC) {
    av_channel_layout_default(&from, layout_.nb_channels);
  } else if (av_channel_layout_copy(&from, &layout_) < 0) {
    return false;
  }
  av_channel_layout_default(&to, description_.channels);
  SwrContext* made = nullptr;
  const int result = swr_alloc_set_opts2(&made, &to, sampleFormat, description_.sampleRate, &from,
                                         static_cast<AVSampleFormat>(format_), rate_, 0, nullptr);
  av_channel_layout_uninit(&from);
  resampler_.reset(made);
  return result >= 0 && swr_init(resampler_.get()) >= 0;
}

Result<void, MediaFailure> AudioTranscoder::convert(const AVFrame* frame) {
  if (resampler_ == nullptr) return {};
  const int most = swr_get_out_samples(resampler_.get(), frame == nullptr ? 0 : frame->nb_samples);
  if (most <= 0) return {};
  const FramePointer converted = newFrame(most, description_);
  if (converted == nullptr) return failure(memoryFailure());
  const auto** input = frame == nullptr ? nullptr : const_cast<const std::uint8_t**>(frame->extended_data);
  const int count =
      swr_convert(resampler_.get(), converted->extended_data, most, input, frame == nullptr ? 0 : frame->nb_samples);
  if (count < 0 || av_audio_fifo_write(samples_.get(), reinterpret_cast<void**>(converted->extended_data), count) < 0) {
    return failure(memoryFailure());
  }
  return {};
}

Result<void, MediaFailure> AudioTranscoder::encodeWholeFrames(Interleaver& output) {
  while (av_audio_fifo_size(samples_.get()) >= encoder_.frameSize()) {
    if (auto encoded = encodeFrame(encoder_.frameSize(), output); !encoded) return encoded;
  }
  return {};
}

Result<void, MediaFailure> AudioTranscoder::encodeRest(Interleaver& output) {
  if (auto converted = convert(nullptr); !converted) return converted;
  resampler_.reset();
  if (auto encoded = encodeWholeFrames(output); !encoded) return encoded;
  const int rest = av_audio_fifo_size(samples_.get());
  if (rest == 0) return {};
  return encodeFrame(rest, output);
}

Result<void, MediaFailure> AudioTranscoder::encodeFrame(int count, Interleaver& output) {
  const FramePointer frame = newFrame(encoder_.frameSize(), description_);
  if (frame == nullptr ||
      av_audio_fifo_read(samples_.get(), reinterpret_cast<void**>(frame->extended_data), count) != count) {
    return failure(memoryFailure());
  }
  av_samples_set_silence(frame->extended_data, count, encoder_.frameSize() - count, description_.channels,
                         sampleFormat);
  frame->pts = *position_;
  *position_ += count;
  if (auto sent = encoder_.send(frame.get()); !sent) return sent;
  while (auto packet = encoder_.receive()) output.push(std::move(*packet));
  return {};
}

}  // namespace vellora
