#include "media/movies/ContainerInput.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <mutex>

#include "media/movies/ContainerFormats.h"

namespace vellora {
namespace {

/// How far to look for a track that starts late, whose delay is not known otherwise.
constexpr std::int64_t analyzedTime = 30 * AV_TIME_BASE;
/// What one piece of memory may take: a picture of 8192 × 8192 with 16 bits a sample, or the index of a day.
constexpr std::size_t mostMemory = std::size_t{512} << 20;
/// Frames per second; what is above is the resolution of the file's clock.
constexpr int mostFrameRate = 1000;

void prepareLibav() {
  static std::once_flag once;
  std::call_once(once, [] {
    av_log_set_level(AV_LOG_QUIET);
    av_max_alloc(mostMemory);
  });
}

/// Files name other files (playlists, references in a movie); none of them is opened.
int refuseToOpen(AVFormatContext*, AVIOContext**, const char*, int, AVDictionary**) {
  return AVERROR(EACCES);
}

std::string reasonOf(int error) {
  std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
  av_strerror(error, text.data(), text.size());
  return text.data();
}

Result<const AVInputFormat*, MediaFailure> probe(AVIOContext& input, const std::string& name) {
  const AVInputFormat* kind = nullptr;
  const int score = av_probe_input_buffer2(&input, &kind, "", nullptr, 0, 0);
  if (input.error != 0) {
    return failure(MediaFailure{MediaError::unreadable, "Cannot read " + name + ": " + reasonOf(input.error)});
  }
  if (score < 0 || kind == nullptr) {
    return failure(MediaFailure{MediaError::notMedia, name + " is not a video or audio file"});
  }
  if (refersToOtherFiles(*kind)) {
    return failure(MediaFailure{
        MediaError::notMedia, name + " only refers to other files; name the file that has the video or audio itself"});
  }
  if (!isAllowed(*kind)) {
    return failure(MediaFailure{MediaError::notMedia, name + " is not a video or audio file of a known kind"});
  }
  return kind;
}

}  // namespace

Result<FormatPointer, MediaFailure> openContainer(AVIOContext& input, const std::string& name) {
  prepareLibav();
  const auto kind = probe(input, name);
  if (!kind) return failure(kind.error());
  AVFormatContext* context = avformat_alloc_context();
  if (context == nullptr) return failure(MediaFailure{MediaError::unreadable, "No memory left to read " + name});
  context->pb = &input;
  context->flags |= AVFMT_FLAG_CUSTOM_IO;
  context->io_open = refuseToOpen;
  context->protocol_whitelist = av_strdup("file");
  context->max_analyze_duration = analyzedTime;
  if (avformat_open_input(&context, name.c_str(), *kind, nullptr) < 0) {
    return failure(MediaFailure{MediaError::damaged, name + " is damaged: its header cannot be read"});
  }
  return FormatPointer(context);
}

bool isPicture(const AVStream& stream) {
  return (stream.disposition & (AV_DISPOSITION_ATTACHED_PIC | AV_DISPOSITION_TIMED_THUMBNAILS)) != 0;
}

bool isUsable(const AVStream& stream) {
  const AVCodecParameters& codec = *stream.codecpar;
  if (codec.codec_id == AV_CODEC_ID_NONE) return false;
  if (codec.codec_type == AVMEDIA_TYPE_VIDEO) return codec.width > 0 && codec.height > 0 && !isPicture(stream);
  return codec.codec_type == AVMEDIA_TYPE_AUDIO && codec.sample_rate > 0 && codec.ch_layout.nb_channels > 0;
}

AVRational frameRateOf(const AVStream& stream) {
  for (const AVRational rate : {stream.avg_frame_rate, stream.r_frame_rate}) {
    if (rate.num > 0 && rate.den > 0 && av_cmp_q(rate, {mostFrameRate, 1}) <= 0) return rate;
  }
  return {0, 1};
}

}  // namespace vellora
