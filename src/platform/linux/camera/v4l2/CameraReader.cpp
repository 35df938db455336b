#include "platform/linux/camera/v4l2/CameraReader.h"

#include <time.h>

extern "C" {
#include <libavdevice/avdevice.h>
}

#include <chrono>
#include <cmath>

namespace vellora {
namespace {

/// A camera that gave no picture for so long gives none any more. Some take seconds to start.
constexpr double patience = 8;  // seconds
/// Between two questions whether there is a picture; a device is never waited for, as it may never answer.
constexpr auto pollInterval = std::chrono::milliseconds(3);

double hostTime() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void prepareLibav() {
  static std::once_flag once;
  std::call_once(once, [] {
    av_log_set_level(AV_LOG_QUIET);
    avdevice_register_all();
  });
}

/// A picture of libav's.
class LibavFrame final : public CameraFrame {
 public:
  LibavFrame(FramePointer picture, bool hasMatrixOf709, double time) : picture_(std::move(picture)) {
    width = picture_->width;
    height = picture_->height;
    for (std::size_t plane = 0; plane < 3; ++plane) {
      planes[plane] = picture_->data[plane];
      bytesPerRow[plane] = picture_->linesize[plane];
    }
    isBt709 = hasMatrixOf709;
    presentationTime = time;
  }

 private:
  FramePointer picture_;
};

}  // namespace

Result<std::unique_ptr<CameraStream>, CameraCaptureError> CameraReader::open(const CameraInput& input,
                                                                             CameraCapture::Callbacks callbacks) {
  prepareLibav();
  std::unique_ptr<CameraReader> reader(new CameraReader(std::move(callbacks)));
  if (const auto error = reader->openInput(input)) return failure(*error);
  if (!reader->openDecoder()) return failure(CameraCaptureError::failed);
  reader->lastPictureAt_ = hostTime();
  reader->thread_ = std::thread([raw = reader.get()] { raw->run(); });
  return reader;
}

CameraReader::~CameraReader() {
  {
    const std::lock_guard lock(mutex_);
    isEnding_ = true;
  }
  ending_.notify_all();
  if (thread_.joinable()) thread_.join();
}

std::optional<CameraCaptureError> CameraReader::openInput(const CameraInput& input) {
  const AVInputFormat* format = av_find_input_format(input.format.c_str());
  AVFormatContext* context = format == nullptr ? nullptr : avformat_alloc_context();
  if (context == nullptr) return CameraCaptureError::failed;
  context->flags |= AVFMT_FLAG_NONBLOCK;
  AVDictionary* options = nullptr;
  for (const auto& [key, value] : input.options) av_dict_set(&options, key.c_str(), value.c_str(), 0);
  const int result = avformat_open_input(&context, input.url.c_str(), format, &options);
  av_dict_free(&options);
  if (result == AVERROR(EBUSY)) return CameraCaptureError::busy;
  if (result == AVERROR(ENOENT) || result == AVERROR(ENODEV) || result == AVERROR(ENXIO)) {
    return CameraCaptureError::deviceNotFound;
  }
  if (result < 0) return CameraCaptureError::failed;
  format_.reset(context);
  return std::nullopt;
}

bool CameraReader::openDecoder() {
  const int index = av_find_best_stream(format_.get(), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
  if (index < 0) return false;
  stream_ = format_->streams[index];
  const AVCodec* decoder = avcodec_find_decoder(stream_->codecpar->codec_id);
  codec_.reset(decoder == nullptr ? nullptr : avcodec_alloc_context3(decoder));
  decoded_.reset(av_frame_alloc());
  packet_.reset(av_packet_alloc());
  if (!codec_ || !decoded_ || !packet_ || avcodec_parameters_to_context(codec_.get(), stream_->codecpar) < 0) {
    return false;
  }
  codec_->thread_count = 1;  // more would hold pictures back
  converter_.emplace(*stream_);
  return avcodec_open2(codec_.get(), decoder, nullptr) >= 0;
}

void CameraReader::run() {
  while (!isEnding_) {
    if (readOne() && hostTime() - lastPictureAt_ < patience) continue;
    if (!isEnding_ && callbacks_.onLost) callbacks_.onLost(CameraCaptureError::failed);
    return;
  }
}

bool CameraReader::readOne() {
  const int result = av_read_frame(format_.get(), packet_.get());
  if (result == AVERROR(EAGAIN) || result == AVERROR(EIO)) {
    // Drivers report a picture lost on the way as an input error.
    rest();
    return true;
  }
  if (result < 0) return false;
  const double arrival = hostTime();
  if (packet_->stream_index == stream_->index && packet_->size > 0) {
    avcodec_send_packet(codec_.get(), packet_.get());
    while (!isEnding_ && avcodec_receive_frame(codec_.get(), decoded_.get()) >= 0) take(*decoded_, arrival);
  }
  av_packet_unref(packet_.get());
  return true;
}

void CameraReader::take(const AVFrame& picture, double arrival) {
  lastPictureAt_ = arrival;
  std::optional<double> stamp;
  if (picture.pts != AV_NOPTS_VALUE) stamp = static_cast<double>(picture.pts) * av_q2d(stream_->time_base);
  const double time = clock_.hostTimeOf(stamp, arrival);
  FramePointer converted = converter_->convert(picture);
  // One that needed no conversion lies in the driver's memory, which goes with the camera.
  if (!converted || av_frame_make_writable(converted.get()) < 0 || !callbacks_.onFrame) return;
  const bool isBt709 = converter_->colors().matrix == AVCOL_SPC_BT709;
  callbacks_.onFrame(std::make_shared<LibavFrame>(std::move(converted), isBt709, time));
}

void CameraReader::rest() {
  std::unique_lock lock(mutex_);
  ending_.wait_for(lock, pollInterval, [this] { return isEnding_.load(); });
}

}  // namespace vellora
