#include "media/movies/MovieSummary.h"

#include <algorithm>
#include <span>
#include <utility>

#include "media/movies/ContainerInput.h"
#include "media/movies/FileInput.h"

namespace vellora {

Result<MovieSummary, MediaFailure> summarizeMovie(const std::filesystem::path& file) {
  auto opened = FileInput::open(file);
  if (!opened) return failure(std::move(opened.error()));
  const std::string name = file.string();
  const InputPointer input = opened->start();
  if (input == nullptr) return failure(MediaFailure{MediaError::unreadable, "Cannot read " + name});
  auto format = openContainer(*input, name);
  if (!format) return failure(std::move(format.error()));
  avformat_find_stream_info(format->get(), nullptr);  // a failure leaves what was found

  MovieSummary summary;
  summary.duration = static_cast<double>(std::max<std::int64_t>((*format)->duration, 0)) / AV_TIME_BASE;
  for (const AVStream* stream : std::span((*format)->streams, (*format)->nb_streams)) {
    if (!isUsable(*stream)) continue;
    const AVCodecParameters& codec = *stream->codecpar;
    const std::string codecName = avcodec_get_name(codec.codec_id);
    if (codec.codec_type == AVMEDIA_TYPE_AUDIO) {
      summary.audio.push_back({codecName, codec.sample_rate, codec.ch_layout.nb_channels});
    } else if (!summary.video) {
      summary.video = MovieSummary::Video{codecName, codec.width, codec.height, av_q2d(frameRateOf(*stream))};
    }
  }
  if (!summary.video && summary.audio.empty()) {
    return failure(MediaFailure{MediaError::noStreams, "There is neither video nor audio in " + name});
  }
  return summary;
}

}  // namespace vellora
