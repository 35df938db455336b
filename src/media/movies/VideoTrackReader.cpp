#include "media/movies/VideoTrackReader.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "media/movies/ContainerInput.h"

namespace vellora {
namespace {

constexpr std::int64_t mostPixels = 8192 * 8192;
/// How often in a row a file may have nothing readable before it counts as ended.
constexpr int mostErrors = 256;
/// Beyond this, about 30 years, a time stamp is no time. Microseconds; leaves room to calculate.
constexpr std::int64_t mostTime = 1000000000000000;
constexpr AVRational microsecond{1, 1000000};
/// Of a last picture whose duration nobody says.
constexpr std::int64_t usualDuration = 33'333;
constexpr int decoderThreads = 2;
/// Larger pictures than this without a word about their colors are BT.709.
constexpr int standardDefinitionHeight = 576;

const AVStream* chooseStream(const AVFormatContext& format) {
  const AVStream* chosen = nullptr;
  for (AVStream* stream : std::span(format.streams, format.nb_streams)) {
    if (chosen == nullptr && stream->codecpar->codec_type == AVMEDIA_TYPE_VIDEO && isUsable(*stream)) {
      chosen = stream;
    } else {
      stream->discard = AVDISCARD_ALL;
    }
  }
  return chosen;
}

}  // namespace

Result<std::unique_ptr<VideoReader>, MediaFailure> VideoTrackReader::open(const std::filesystem::path& file) {
  auto input = FileInput::open(file);
  if (!input) return failure(std::move(input.error()));
  std::unique_ptr<VideoTrackReader> reader(new VideoTrackReader(std::move(*input), file.string()));
  if (auto started = reader->start(); !started) return failure(std::move(started.error()));
  return reader;
}

Result<void, MediaFailure> VideoTrackReader::start() {
  input_ = file_.start();
  if (input_ == nullptr) return failure(MediaFailure{MediaError::unreadable, "Cannot read " + name_});
  auto format = openContainer(*input_, name_);
  if (!format) return failure(std::move(format.error()));
  format_ = std::move(*format);
  avformat_find_stream_info(format_.get(), nullptr);  // a failure leaves what was found
  stream_ = chooseStream(*format_);
  if (stream_ == nullptr) return failure(MediaFailure{MediaError::noStreams, "There is no video in " + name_});
  packet_.reset(av_packet_alloc());
  converter_.emplace(*stream_);
  if (packet_ == nullptr || !openDecoder()) {
    return failure(MediaFailure{MediaError::unsupported, "The video of " + name_ + " is in " +
                                                             avcodec_get_name(stream_->codecpar->codec_id) +
                                                             ", which cannot be decoded here"});
  }
  current_ = decode();
  following_ = decode();
  if (!current_) {
    return failure(MediaFailure{MediaError::damaged, name_ + " is damaged: it has no picture that can be read"});
  }
  return {};
}

bool VideoTrackReader::openDecoder() {
  const AVCodec* decoder = avcodec_find_decoder(stream_->codecpar->codec_id);
  codec_.reset(decoder == nullptr ? nullptr : avcodec_alloc_context3(decoder));
  if (codec_ == nullptr || avcodec_parameters_to_context(codec_.get(), stream_->codecpar) < 0) return false;
  codec_->pkt_timebase = stream_->time_base;
  codec_->max_pixels = mostPixels;
  codec_->thread_count = decoderThreads;
  return avcodec_open2(codec_.get(), decoder, nullptr) >= 0;
}

double VideoTrackReader::duration() const {
  return static_cast<double>(std::max<std::int64_t>(format_->duration, 0)) / AV_TIME_BASE;
}

std::int64_t VideoTrackReader::timeOf(const AVFrame& frame) const {
  if (frame.best_effort_timestamp == AV_NOPTS_VALUE) {
    return following_ ? following_.time + following_.duration : 0;
  }
  const std::int64_t origin = format_->start_time == AV_NOPTS_VALUE ? 0 : format_->start_time;
  const std::int64_t stamp = av_rescale_q(frame.best_effort_timestamp, stream_->time_base, microsecond);
  return std::clamp(stamp, -mostTime, mostTime) - std::clamp(origin, -mostTime, mostTime);
}

VideoTrackReader::Decoded VideoTrackReader::decode() {
  for (;;) {
    FramePointer frame(av_frame_alloc());
    if (frame == nullptr) return {};
    // An error concerns one frame only; each takes at least a packet's worth away, so that this ends.
    const int result = avcodec_receive_frame(codec_.get(), frame.get());
    if (result == AVERROR_EOF) return {};
    if (result == AVERROR(EAGAIN)) feed();
    if (result < 0) continue;
    Decoded decoded{std::move(frame), 0, usualDuration};
    decoded.time = timeOf(*decoded.frame);
    if (decoded.frame->pkt_duration > 0) {
      decoded.duration = std::min(av_rescale_q(decoded.frame->pkt_duration, stream_->time_base, microsecond), mostTime);
    }
    return decoded;
  }
}

void VideoTrackReader::feed() {
  for (int errors = 0; errors < mostErrors && !hasEnded_; ++errors) {
    const int result = av_read_frame(format_.get(), packet_.get());
    if (result >= 0) {
      const bool isOurs = packet_->stream_index == stream_->index && packet_->size > 0;
      if (isOurs) avcodec_send_packet(codec_.get(), packet_.get());
      av_packet_unref(packet_.get());
      if (isOurs) return;
      errors = -1;
    } else if (result == AVERROR_EOF || (input_->error != 0 && input_->error != AVERROR_EOF)) {
      break;
    }
  }
  hasEnded_ = true;
  avcodec_send_packet(codec_.get(), nullptr);
}

bool VideoTrackReader::next() {
  if (!following_) return false;
  auto after = decode();
  current_ = std::move(following_);
  following_ = std::move(after);
  return true;
}

bool VideoTrackReader::seek(double time) {
  const double wanted = std::isnan(time) ? 0 : time;
  const auto target = static_cast<std::int64_t>(std::clamp(wanted * 1e6, 0.0, static_cast<double>(mostTime)));
  const bool isAhead = current_ && following_ && target >= current_.time && target < following_.time;
  if (isAhead) return true;
  const std::int64_t origin = format_->start_time == AV_NOPTS_VALUE ? 0 : format_->start_time;
  const std::int64_t stamp = av_rescale_q_rnd(target + origin, microsecond, stream_->time_base, AV_ROUND_DOWN);
  if (av_seek_frame(format_.get(), stream_->index, stamp, AVSEEK_FLAG_BACKWARD) < 0 &&
      av_seek_frame(format_.get(), stream_->index, 0, AVSEEK_FLAG_BACKWARD) < 0) {
    return current_.frame != nullptr;
  }
  avcodec_flush_buffers(codec_.get());
  hasEnded_ = false;
  auto kept = std::move(current_);
  following_ = {};
  current_ = decode();
  following_ = decode();
  if (!current_) current_ = std::move(kept);
  while (following_ && following_.time <= target) next();
  return current_.frame != nullptr;
}

PictureSpan VideoTrackReader::span() const {
  if (!current_) return {};
  const std::int64_t end = following_ ? following_.time : current_.time + current_.duration;
  return {static_cast<double>(current_.time) / 1e6, static_cast<double>(std::max(end, current_.time)) / 1e6};
}

bool VideoTrackReader::draw(std::uint32_t* pixels, int width, int height) {
  if (!current_ || width <= 0 || height <= 0) return false;
  const FramePointer picture = converter_->convert(*current_.frame);
  if (picture == nullptr) return false;
  scaler_.reset(sws_getCachedContext(scaler_.release(), picture->width, picture->height,
                                     static_cast<AVPixelFormat>(picture->format), width, height, AV_PIX_FMT_BGRA,
                                     SWS_BILINEAR, nullptr, nullptr, nullptr));
  if (scaler_ == nullptr) return false;
  AVColorSpace matrix = converter_->colors().matrix;
  if (matrix == AVCOL_SPC_UNSPECIFIED && this->height() > standardDefinitionHeight) matrix = AVCOL_SPC_BT709;
  sws_setColorspaceDetails(scaler_.get(), sws_getCoefficients(matrix), 0, sws_getCoefficients(matrix), 1, 0, 1 << 16,
                           1 << 16);
  auto* to = reinterpret_cast<std::uint8_t*>(pixels);
  // Without this room at their ends, the scaler leaves the last pixels of rows out.
  const int stride = pixelsPerRow(width) * 4;
  return sws_scale(scaler_.get(), picture->data, picture->linesize, 0, picture->height, &to, &stride) >= 0;
}

}  // namespace vellora
