#include "media/movies/VideoEncoder.h"

#include <algorithm>
#include <climits>
#include <mutex>
#include <string_view>
#include <thread>
#include <utility>

#include "media/movies/MovieTrack.h"

namespace vellora {
namespace {

using Codec = VideoEncoderChoice::Codec;

/// The quality at which text on a screen looks like the original (a PSNR of about 50 dB), as long as the bit rate
/// allows for it.
constexpr const char* softwareQuality = "20";
/// What costs least of all that makes files smaller: CABAC and larger transforms, a third of the bytes for a sixth more
/// work. Edges of text stay sharper without the deblocking filter, which this preset leaves out.
constexpr const char* softwareExtras = "cabac=1:8x8dct=1:analyse=i8x8,i4x4";

/// Threads for slices of one picture: none of them waits for another picture.
int softwareThreads(int width, int height) {
  constexpr int pixelsForOne = 1'000'000, mostThreads = 8;
  const int cores = static_cast<int>(std::max(std::thread::hardware_concurrency(), 1U));
  return std::clamp(width * height / pixelsForOne + 1, 1, std::min(cores, mostThreads));
}

bool usesSurfaces(std::string_view name) {
  return name.ends_with("_vaapi");
}

bool usesNv12(std::string_view name) {
  return name.ends_with("_vaapi") || name.ends_with("_qsv");
}

void silenceLibav() {
  static std::once_flag once;
  std::call_once(once, [] { av_log_set_level(AV_LOG_QUIET); });
}

/// A pool of pictures in the memory of the graphics hardware; null where there is none.
BufferPointer makeSurfaces(int width, int height) {
  AVBufferRef* device = nullptr;
  if (av_hwdevice_ctx_create(&device, AV_HWDEVICE_TYPE_VAAPI, nullptr, nullptr, 0) < 0) return nullptr;
  const BufferPointer ownDevice(device);
  BufferPointer surfaces(av_hwframe_ctx_alloc(device));
  if (surfaces == nullptr) return nullptr;
  auto* context = reinterpret_cast<AVHWFramesContext*>(surfaces->data);
  context->format = AV_PIX_FMT_VAAPI;
  context->sw_format = AV_PIX_FMT_NV12;
  context->width = width;
  context->height = height;
  context->initial_pool_size = 4;
  if (av_hwframe_ctx_init(surfaces.get()) < 0) return nullptr;
  return surfaces;
}

/// Null when memory is short.
FramePointer makePicture(AVPixelFormat format, int width, int height) {
  FramePointer picture(av_frame_alloc());
  if (picture == nullptr) return nullptr;
  picture->format = format;
  picture->width = width;
  picture->height = height;
  return av_frame_get_buffer(picture.get(), 0) < 0 ? nullptr : std::move(picture);
}

AVDictionary* optionsFor(std::string_view name) {
  AVDictionary* options = nullptr;
  if (name == "libx264") {
    av_dict_set(&options, "preset", "ultrafast", 0);
    av_dict_set(&options, "tune", "zerolatency", 0);
    av_dict_set(&options, "crf", softwareQuality, 0);
    av_dict_set(&options, "x264-params", softwareExtras, 0);
  } else if (name.ends_with("_nvenc")) {
    av_dict_set(&options, "preset", "p3", 0);
    av_dict_set(&options, "rc", "vbr", 0);
    av_dict_set(&options, "zerolatency", "1", 0);
    av_dict_set(&options, "delay", "0", 0);
  } else {
    av_dict_set(&options, "async_depth", "1", 0);
  }
  return options;
}

CodecPointer contextFor(const VideoEncoderChoice& choice, const MovieWriter::VideoSettings& settings) {
  CodecPointer codec = encoderNamed(choice.name.c_str());
  if (codec == nullptr) return nullptr;
  const std::int64_t bitRate =
      settings.bitRate > 0 ? settings.bitRate : choice.bitRate(settings.width, settings.height);
  codec->width = evenSize(settings.width);
  codec->height = evenSize(settings.height);
  codec->pix_fmt = usesNv12(choice.name) ? AV_PIX_FMT_NV12 : AV_PIX_FMT_YUV420P;
  codec->sample_aspect_ratio = {1, 1};
  codec->color_range = AVCOL_RANGE_MPEG;
  codec->colorspace = AVCOL_SPC_BT709;
  codec->color_primaries = AVCOL_PRI_BT709;
  codec->color_trc = AVCOL_TRC_BT709;
  codec->chroma_sample_location = AVCHROMA_LOC_CENTER;
  codec->time_base = {1, static_cast<int>(movieTimescale)};
  codec->framerate = {60, 1};
  codec->rc_max_rate = bitRate;
  codec->rc_buffer_size = static_cast<int>(std::min<std::int64_t>(2 * bitRate, INT_MAX));
  if (choice.isHardware) {
    codec->bit_rate = bitRate;
  } else {
    codec->thread_count = softwareThreads(codec->width, codec->height);
  }
  codec->max_b_frames = 0;
  codec->gop_size = settings.keyFrameInterval;
  codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
  return codec;
}

}  // namespace

std::span<const VideoEncoderChoice> knownVideoEncoders() {
  static const VideoEncoderChoice encoders[] = {
      {Codec::hevc, true, "hevc_nvenc"}, {Codec::hevc, true, "hevc_vaapi"}, {Codec::hevc, true, "hevc_qsv"},
      {Codec::h264, true, "h264_nvenc"}, {Codec::h264, true, "h264_vaapi"}, {Codec::h264, true, "h264_qsv"},
      {Codec::h264, false, "libx264"},
  };
  return encoders;
}

Result<std::unique_ptr<VideoEncoder>, MovieFailure> VideoEncoder::open(const MovieWriter::VideoSettings& settings) {
  for (const VideoEncoderChoice& choice : knownVideoEncoders()) {
    if (auto encoder = open(choice, settings)) return encoder;
  }
  return failure(MovieFailure{MovieError::noEncoder, "No encoder here takes pictures of " +
                                                         std::to_string(settings.width) + " × " +
                                                         std::to_string(settings.height) + " pixels"});
}

std::unique_ptr<VideoEncoder> VideoEncoder::open(const VideoEncoderChoice& choice,
                                                 const MovieWriter::VideoSettings& settings) {
  constexpr int mostEdge = 16384;
  if (settings.width < 1 || settings.height < 1 || settings.width > mostEdge || settings.height > mostEdge)
    return nullptr;
  silenceLibav();
  CodecPointer codec = contextFor(choice, settings);
  if (codec == nullptr) return nullptr;
  BufferPointer surfaces;
  if (usesSurfaces(choice.name)) {
    surfaces = makeSurfaces(codec->width, codec->height);
    if (surfaces == nullptr) return nullptr;
    codec->pix_fmt = AV_PIX_FMT_VAAPI;
    codec->hw_frames_ctx = av_buffer_ref(surfaces.get());
  }
  const int width = codec->width, height = codec->height;
  auto opened = FrameEncoder::open(std::move(codec), MediaKind::video, optionsFor(choice.name));
  if (!opened) return nullptr;

  std::unique_ptr<VideoEncoder> encoder(new VideoEncoder(std::move(*opened), choice));
  encoder->surfaces_ = std::move(surfaces);
  encoder->input_ = usesSurfaces(choice.name) ? Input::surface : usesNv12(choice.name) ? Input::nv12 : Input::i420;
  encoder->picture_ = makePicture(AV_PIX_FMT_YUV420P, width, height);
  if (encoder->input_ != Input::i420) encoder->interleaved_ = makePicture(AV_PIX_FMT_NV12, width, height);
  if (encoder->picture_ == nullptr || (encoder->input_ != Input::i420 && encoder->interleaved_ == nullptr))
    return nullptr;
  return encoder;
}

I420View VideoEncoder::picture() {
  // An encoder may still hold the picture it got last.
  if (av_frame_make_writable(picture_.get()) < 0) return {};
  I420View view{.width = picture_->width, .height = picture_->height};
  for (std::size_t i = 0; i < 3; ++i) {
    view.planes.at(i) = picture_->data[i];
    view.bytesPerRow.at(i) = picture_->linesize[i];
  }
  return view;
}

AVFrame* VideoEncoder::uploaded() {
  if (input_ == Input::i420) return picture_.get();
  if (av_frame_make_writable(interleaved_.get()) < 0) return nullptr;
  interleaveChroma({.planes = {picture_->data[0], picture_->data[1], picture_->data[2]},
                    .bytesPerRow = {picture_->linesize[0], picture_->linesize[1], picture_->linesize[2]},
                    .width = picture_->width,
                    .height = picture_->height},
                   {interleaved_->data[0], interleaved_->data[1]},
                   {interleaved_->linesize[0], interleaved_->linesize[1]});
  if (input_ == Input::nv12) return interleaved_.get();
  surface_.reset(av_frame_alloc());
  if (surface_ == nullptr || av_hwframe_get_buffer(surfaces_.get(), surface_.get(), 0) < 0 ||
      av_hwframe_transfer_data(surface_.get(), interleaved_.get(), 0) < 0) {
    return nullptr;
  }
  return surface_.get();
}

Result<void, MovieFailure> VideoEncoder::encode(std::int64_t time, const Output& output) {
  const MovieFailure reason{MovieError::encoderFailed, "The video encoder " + choice_.name + " failed"};
  AVFrame* const frame = uploaded();
  if (frame == nullptr) return failure(reason);
  frame->pts = time;
  if (!encoder_.send(frame)) return failure(reason);
  receive(output);
  return {};
}

Result<void, MovieFailure> VideoEncoder::finish(const Output& output) {
  if (!encoder_.send(nullptr)) {
    return failure(MovieFailure{MovieError::encoderFailed, "The video encoder " + choice_.name + " failed at the end"});
  }
  receive(output);
  return {};
}

void VideoEncoder::receive(const Output& output) {
  while (const auto coded = encoder_.receive()) {
    const AVPacket& packet = *coded->packet;
    const std::int64_t time = av_rescale(coded->times.presentation.count(), movieTimescale, 1000000);
    output({packet.data, static_cast<std::size_t>(packet.size)}, time, (packet.flags & AV_PKT_FLAG_KEY) != 0);
  }
}

}  // namespace vellora
