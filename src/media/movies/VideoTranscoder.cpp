#include "media/movies/VideoTranscoder.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace vellora {
namespace {

using std::chrono::microseconds;

constexpr double usualRate = 30;
constexpr double highestRate = 60;
/// Below this, frames held for look-ahead or in other threads would keep sound waiting for seconds.
constexpr double slowRate = 10;
constexpr double bitsPerPixel = 0.1;
constexpr std::int64_t leastBitRate = 100'000, mostBitRate = 8'000'000;
constexpr std::int64_t keyInterval = 2'000'000;  // microseconds
/// In frames; the key frames are asked for by time, before this.
constexpr int longestGroup = 1000;

double rateOf(const MediaTrack& track) {
  return track.frameRate > 0 ? std::min(track.frameRate, highestRate) : usualRate;
}

std::int64_t bitRateFor(PictureSize size, double rate) {
  return std::clamp(std::llround(bitsPerPixel * size.width * size.height * rate), static_cast<long long>(leastBitRate),
                    static_cast<long long>(mostBitRate));
}

Result<FrameEncoder, MediaFailure> openEncoder(const PictureConverter& converter, double rate, std::int64_t bitRate) {
  CodecPointer codec = encoderNamed("libx264");
  AVDictionary* options = nullptr;
  if (codec != nullptr) {
    codec->width = converter.size().width;
    codec->height = converter.size().height;
    codec->pix_fmt = AV_PIX_FMT_YUV420P;
    codec->sample_aspect_ratio = converter.aspectRatio();
    codec->color_range = AVCOL_RANGE_MPEG;
    codec->colorspace = converter.colors().matrix;
    codec->color_primaries = converter.colors().primaries;
    codec->color_trc = converter.colors().transfer;
    codec->time_base = {1, 1000000};
    codec->framerate = av_d2q(rate, 100000);
    codec->bit_rate = bitRate;
    codec->rc_max_rate = bitRate;
    codec->rc_buffer_size = static_cast<int>(bitRate);
    codec->max_b_frames = 0;
    codec->gop_size = longestGroup;
    codec->thread_count = 0;
    codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    av_dict_set(&options, "preset", "veryfast", 0);
    av_dict_set(&options, "profile", "high", 0);
    av_dict_set(&options, "forced-idr", "1", 0);
    av_dict_set(&options, "sc_threshold", "0", 0);
    if (rate < slowRate) av_dict_set(&options, "tune", "zerolatency", 0);
  }
  return FrameEncoder::open(std::move(codec), MediaKind::video, options);
}

}  // namespace

Result<std::unique_ptr<Transcoder>, MediaFailure> VideoTranscoder::create(const MovieFile& file) {
  const MovieFile::Track& track = *file.track(MediaKind::video);
  const double rate = rateOf(track.description);
  auto decoder = FrameDecoder::open(file, MediaKind::video,
                                    rate < slowRate ? FrameDecoder::Latency::low : FrameDecoder::Latency::any);
  if (!decoder) return failure(std::move(decoder.error()));

  PictureConverter converter(*track.stream);
  const PictureSize size = converter.size();
  const std::int64_t bitRate = bitRateFor(size, rate);
  auto encoder = openEncoder(converter, rate, bitRate);
  if (!encoder) return failure(std::move(encoder.error()));

  MediaTrack description;
  description.kind = MediaKind::video;
  description.codec = "h264";
  description.width = size.width;
  description.height = size.height;
  description.frameRate = track.description.frameRate;
  description.bitRate = bitRate;
  description.configuration = encoder->configuration();
  description.encodedFrom = track.description.codec;
  return std::unique_ptr<Transcoder>(new VideoTranscoder(std::move(*decoder), std::move(*encoder), std::move(converter),
                                                         std::move(description), file.lacksPresentationTimes()));
}

VideoTranscoder::VideoTranscoder(FrameDecoder decoder, FrameEncoder encoder, PictureConverter converter,
                                 MediaTrack description, bool lacksPresentationTimes)
    : decoder_(std::move(decoder)),
      encoder_(std::move(encoder)),
      converter_(std::move(converter)),
      description_(std::move(description)),
      lacksPresentationTimes_(lacksPresentationTimes),
      nominal_(std::llround(1e6 / rateOf(description_))),
      step_(nominal_) {}

Result<void, MediaFailure> VideoTranscoder::put(QueuedPacket packet, Interleaver& output) {
  if (!firstDecode_) firstDecode_ = packet.times.decode.count();
  decoder_.send(std::move(packet),
                lacksPresentationTimes_ ? FrameDecoder::Stamps::decode : FrameDecoder::Stamps::presentation);
  return encodeDecoded(output);
}

Result<void, MediaFailure> VideoTranscoder::finish(Interleaver& output) {
  decoder_.finish();
  if (auto encoded = encodeDecoded(output); !encoded) return encoded;
  if (auto sent = encoder_.send(nullptr); !sent) return sent;
  collect(output);
  return {};
}

std::int64_t VideoTranscoder::timeOf(const AVFrame& frame) {
  if (frame.best_effort_timestamp == AV_NOPTS_VALUE) return last_ ? *last_ + step_ : *firstDecode_;
  if (!lacksPresentationTimes_) return frame.best_effort_timestamp;
  // What is known is when the frame left the decoder.
  if (!decoderDelay_) decoderDelay_ = frame.best_effort_timestamp - *firstDecode_;
  return frame.best_effort_timestamp - *decoderDelay_;
}

Result<void, MediaFailure> VideoTranscoder::encodeDecoded(Interleaver& output) {
  while (const AVFrame* decoded = decoder_.receive()) {
    const std::int64_t time = timeOf(*decoded);
    if (last_ && time <= *last_) continue;
    const FramePointer picture = converter_.convert(*decoded);
    if (picture == nullptr) {
      return failure(MediaFailure{MediaError::unsupported, "A picture of the video cannot be converted for H.264"});
    }
    const bool isKey = !lastKey_ || time - *lastKey_ >= keyInterval - nominal_ / 2;
    if (isKey) lastKey_ = time;
    step_ = last_ ? time - *last_ : nominal_;
    last_ = time;
    picture->pts = time;
    picture->pict_type = isKey ? AV_PICTURE_TYPE_I : AV_PICTURE_TYPE_NONE;
    durations_.push_back(decoded->pkt_duration > 0 ? decoded->pkt_duration : nominal_);
    if (auto sent = encoder_.send(picture.get()); !sent) return sent;
    collect(output);
  }
  return {};
}

void VideoTranscoder::collect(Interleaver& output) {
  while (auto packet = encoder_.receive()) {
    packet->times.duration = microseconds(durations_.empty() ? nominal_ : durations_.front());
    if (!durations_.empty()) durations_.pop_front();
    output.push(std::move(*packet));
  }
}

}  // namespace vellora
