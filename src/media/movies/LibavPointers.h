#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavcodec/bsf.h>
#include <libavformat/avformat.h>
#include <libavutil/audio_fifo.h>
#include <libavutil/frame.h>
#include <libavutil/hwcontext.h>
#include <libswresample/swresample.h>
#include <libswscale/swscale.h>
}

#include <memory>

namespace vellora {

/// Frees what libav hands out through the function made for it.
struct LibavDeleter {
  void operator()(AVFormatContext* context) const { avformat_close_input(&context); }
  void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
  void operator()(AVCodecParameters* parameters) const { avcodec_parameters_free(&parameters); }
  void operator()(AVBSFContext* filter) const { av_bsf_free(&filter); }
  void operator()(AVPacket* packet) const { av_packet_free(&packet); }
  void operator()(AVFrame* frame) const { av_frame_free(&frame); }
  void operator()(AVBufferRef* buffer) const { av_buffer_unref(&buffer); }
  void operator()(AVAudioFifo* samples) const { av_audio_fifo_free(samples); }
  void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
  void operator()(SwrContext* resampler) const { swr_free(&resampler); }
  void operator()(AVIOContext* input) const {
    av_freep(&input->buffer);
    avio_context_free(&input);
  }
};

using FormatPointer = std::unique_ptr<AVFormatContext, LibavDeleter>;
using CodecPointer = std::unique_ptr<AVCodecContext, LibavDeleter>;
using CodecParametersPointer = std::unique_ptr<AVCodecParameters, LibavDeleter>;
using FilterPointer = std::unique_ptr<AVBSFContext, LibavDeleter>;
using PacketPointer = std::unique_ptr<AVPacket, LibavDeleter>;
using BufferPointer = std::unique_ptr<AVBufferRef, LibavDeleter>;
using FramePointer = std::unique_ptr<AVFrame, LibavDeleter>;
using SampleQueuePointer = std::unique_ptr<AVAudioFifo, LibavDeleter>;
using ScalerPointer = std::unique_ptr<SwsContext, LibavDeleter>;
using ResamplerPointer = std::unique_ptr<SwrContext, LibavDeleter>;
using InputPointer = std::unique_ptr<AVIOContext, LibavDeleter>;

}  // namespace vellora
