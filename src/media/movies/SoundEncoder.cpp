#include "media/movies/SoundEncoder.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vellora {
namespace {

/// Clocks of sound cards and jitter stay below; what is further off is a gap, or was there before.
constexpr std::int64_t tolerance = MovieWriter::sampleRate / 50;

const MovieFailure encoderFailure{MovieError::encoderFailed, "The audio encoder failed"};

/// What the encoder takes: no NaN, and nothing so loud that it could overflow.
float usable(float sample) {
  constexpr float loudest = 4;
  return std::isfinite(sample) ? std::clamp(sample, -loudest, loudest) : 0;
}

CodecPointer contextFor(const MovieWriter::SoundSettings& settings) {
  CodecPointer codec = encoderNamed("aac");
  if (codec == nullptr) return nullptr;
  av_channel_layout_default(&codec->ch_layout, settings.channels);
  codec->sample_fmt = AV_SAMPLE_FMT_FLTP;
  codec->sample_rate = MovieWriter::sampleRate;
  codec->time_base = {1, MovieWriter::sampleRate};
  codec->bit_rate = settings.bitRate;
  codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
  return codec;
}

}  // namespace

Result<std::unique_ptr<SoundEncoder>, MovieFailure> SoundEncoder::open(const MovieWriter::SoundSettings& settings) {
  const MovieFailure refusal{MovieError::noEncoder, "Sound cannot be encoded as AAC here"};
  if (settings.channels < 1 || settings.channels > 2) return failure(refusal);
  auto opened = FrameEncoder::open(contextFor(settings), MediaKind::audio, nullptr);
  if (!opened || opened->frameSize() != frameSamples) return failure(refusal);
  std::unique_ptr<SoundEncoder> encoder(new SoundEncoder(std::move(*opened), settings.channels));
  AVFrame* const frame = encoder->frame_.get();
  if (frame == nullptr) return failure(refusal);
  frame->format = AV_SAMPLE_FMT_FLTP;
  frame->nb_samples = frameSamples;
  frame->sample_rate = MovieWriter::sampleRate;
  av_channel_layout_default(&frame->ch_layout, settings.channels);
  if (av_frame_get_buffer(frame, 0) < 0) return failure(refusal);
  return encoder;
}

SoundEncoder::SoundEncoder(FrameEncoder encoder, int channels)
    : encoder_(std::move(encoder)), channels_(channels), frame_(av_frame_alloc()) {}

Result<void, MovieFailure> SoundEncoder::encode(std::span<const float> samples, double time, const Output& output) {
  const auto frames = static_cast<std::int64_t>(samples.size()) / channels_;
  const std::int64_t gap = std::llround(time * MovieWriter::sampleRate) - position_;
  const bool isBeforeStart = position_ == 0 && gap < 0;
  if (gap > tolerance) {
    if (auto filled = put(nullptr, gap, output); !filled) return filled;
  }
  const std::int64_t overlap = isBeforeStart || gap < -tolerance ? std::min(-gap, frames) : 0;
  return put(samples.data() + overlap * channels_, frames - overlap, output);
}

Result<void, MovieFailure> SoundEncoder::finish(const Output& output) {
  if (filled_ > 0) {
    if (auto filled = put(nullptr, frameSamples - filled_, output); !filled) return filled;
  }
  if (!encoder_.send(nullptr)) return failure(encoderFailure);
  receive(output);
  return {};
}

Result<void, MovieFailure> SoundEncoder::put(const float* samples, std::int64_t frames, const Output& output) {
  while (frames > 0) {
    if (filled_ == 0 && av_frame_make_writable(frame_.get()) < 0) return failure(encoderFailure);
    const int count = static_cast<int>(std::min<std::int64_t>(frames, frameSamples - filled_));
    for (int channel = 0; channel < channels_; ++channel) {
      auto* const to = reinterpret_cast<float*>(frame_->extended_data[channel]) + filled_;
      for (int i = 0; i < count; ++i) to[i] = samples == nullptr ? 0 : usable(samples[i * channels_ + channel]);
    }
    if (samples != nullptr) samples += count * channels_;
    frames -= count;
    filled_ += count;
    position_ += count;
    if (filled_ < frameSamples) continue;
    if (auto encoded = encodeFrame(output); !encoded) return encoded;
  }
  return {};
}

Result<void, MovieFailure> SoundEncoder::encodeFrame(const Output& output) {
  frame_->pts = position_ - frameSamples;
  filled_ = 0;
  if (!encoder_.send(frame_.get())) return failure(encoderFailure);
  receive(output);
  return {};
}

void SoundEncoder::receive(const Output& output) {
  while (const auto coded = encoder_.receive()) {
    const AVPacket& packet = *coded->packet;
    const std::int64_t place =
        av_rescale(coded->times.presentation.count(), MovieWriter::sampleRate, 1000000) + priming();
    output({packet.data, static_cast<std::size_t>(packet.size)}, place);
  }
}

}  // namespace vellora
