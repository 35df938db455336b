#include "media/movies/FrameDecoder.h"

#include <cstring>
#include <string>
#include <vector>

namespace vellora {
namespace {

constexpr std::int64_t mostPixels = 8192 * 8192;

/// The decoder has to know the form its packets are given in, which may not be the file's.
bool takeConfiguration(AVCodecContext& codec, const std::vector<std::uint8_t>& configuration) {
  if (configuration.empty()) return true;
  auto* copy = static_cast<std::uint8_t*>(av_mallocz(configuration.size() + AV_INPUT_BUFFER_PADDING_SIZE));
  if (copy == nullptr) return false;
  std::memcpy(copy, configuration.data(), configuration.size());
  av_freep(&codec.extradata);
  codec.extradata = copy;
  codec.extradata_size = static_cast<int>(configuration.size());
  return true;
}

}  // namespace

Result<FrameDecoder, MediaFailure> FrameDecoder::open(const MovieFile& file, MediaKind kind, Latency latency) {
  const MovieFile::Track& track = *file.track(kind);
  const AVCodecParameters& parameters = *track.stream->codecpar;
  const AVCodec* decoder = avcodec_find_decoder(parameters.codec_id);
  CodecPointer codec(decoder == nullptr ? nullptr : avcodec_alloc_context3(decoder));
  FramePointer frame(av_frame_alloc());
  if (codec == nullptr || frame == nullptr || avcodec_parameters_to_context(codec.get(), &parameters) < 0 ||
      !takeConfiguration(*codec, track.description.configuration)) {
    codec.reset();
  } else {
    codec->pkt_timebase = {1, 1000000};
    codec->max_pixels = mostPixels;
    codec->thread_count = latency == Latency::low ? 1 : 0;
    if (avcodec_open2(codec.get(), decoder, nullptr) < 0) codec.reset();
  }
  if (codec == nullptr) {
    return failure(MediaFailure{MediaError::unsupported,
                                std::string(kind == MediaKind::video ? "The video of " : "The audio of ") +
                                    file.name() + " is in " + track.description.codec +
                                    ", which cannot be decoded here"});
  }
  return FrameDecoder(std::move(codec), std::move(frame));
}

void FrameDecoder::send(QueuedPacket packet, Stamps stamps) {
  packet.packet->pts = stamps == Stamps::presentation ? packet.times.presentation.count() : AV_NOPTS_VALUE;
  packet.packet->dts = packet.times.decode.count();
  packet.packet->duration = packet.times.duration.count();
  avcodec_send_packet(codec_.get(), packet.packet.get());
}

void FrameDecoder::finish() {
  avcodec_send_packet(codec_.get(), nullptr);
}

const AVFrame* FrameDecoder::receive() {
  // An error concerns one frame only; each takes at least a packet's worth away, so that this ends.
  for (;;) {
    const int result = avcodec_receive_frame(codec_.get(), frame_.get());
    if (result >= 0) return frame_.get();
    if (result == AVERROR(EAGAIN) || result == AVERROR_EOF) return nullptr;
  }
}

}  // namespace vellora
