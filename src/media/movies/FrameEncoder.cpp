#include "media/movies/FrameEncoder.h"

namespace vellora {
namespace {

MediaFailure refusal(MediaKind kind) {
  return {MediaError::unsupported, kind == MediaKind::video ? "The video cannot be encoded as H.264 here"
                                                            : "The audio cannot be encoded as AAC here"};
}

}  // namespace

Result<FrameEncoder, MediaFailure> FrameEncoder::open(CodecPointer codec, MediaKind kind, AVDictionary* options) {
  const int opened = codec == nullptr ? AVERROR_ENCODER_NOT_FOUND : avcodec_open2(codec.get(), codec->codec, &options);
  av_dict_free(&options);
  const CodecParametersPointer parameters(avcodec_parameters_alloc());
  if (opened < 0 || parameters == nullptr || avcodec_parameters_from_context(parameters.get(), codec.get()) < 0) {
    return failure(refusal(kind));
  }
  auto form = PacketFormat::create(*parameters);
  if (form == nullptr || form->configuration().empty()) return failure(refusal(kind));
  return FrameEncoder(std::move(codec), kind, std::move(form));
}

Result<void, MediaFailure> FrameEncoder::send(const AVFrame* frame) {
  if (avcodec_send_frame(codec_.get(), frame) < 0) return failure(refusal(kind_));
  return {};
}

std::optional<QueuedPacket> FrameEncoder::receive() {
  for (;;) {
    PacketPointer packet(av_packet_alloc());
    if (packet == nullptr || avcodec_receive_packet(codec_.get(), packet.get()) < 0) return std::nullopt;
    if (!form_->apply(*packet)) continue;
    const auto time = [&](std::int64_t stamp) {
      return std::chrono::microseconds(av_rescale_q(stamp, codec_->time_base, {1, 1000000}));
    };
    const PacketTimes times{time(packet->dts), time(packet->pts), time(packet->duration)};
    return QueuedPacket{std::move(packet), kind_, times};
  }
}

CodecPointer encoderNamed(const char* name) {
  const AVCodec* codec = avcodec_find_encoder_by_name(name);
  return CodecPointer(codec == nullptr ? nullptr : avcodec_alloc_context3(codec));
}

}  // namespace vellora
