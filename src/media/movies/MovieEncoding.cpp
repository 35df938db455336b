#include "media/movies/MovieEncoding.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "media/movies/MovieHeader.h"
#include "media/movies/SampleDescription.h"

namespace vellora {
namespace {

constexpr auto fragmentInterval = std::chrono::milliseconds(750);
/// With more than this a fragment is written at once.
constexpr std::size_t mostFragmentBytes = std::size_t{8} << 20;
/// Until a picture that still stands is encoded once more, and how far behind the recording the copy stays: pictures
/// may still be on their way.
constexpr double stillness = 1.0, lag = 0.25;
constexpr std::uint32_t guessedDuration = movieTimescale / 60;

std::int64_t ticksOf(double seconds) {
  return std::llround(std::max(seconds, 0.0) * movieTimescale);
}

std::vector<MovieTrack> tracksOf(const MovieWriter::Settings& settings, const VideoEncoder& video,
                                 std::span<const std::unique_ptr<SoundEncoder>> sounds) {
  const int width = settings.video.width, height = settings.video.height;
  std::vector<MovieTrack> tracks;
  tracks.push_back({.width = width,
                    .height = height,
                    .description = sampleDescription({.isHevc = video.choice().codec == VideoEncoderChoice::Codec::hevc,
                                                      .width = width,
                                                      .height = height,
                                                      .configuration = video.configuration()})});
  for (std::size_t i = 0; i < sounds.size(); ++i) {
    const MovieWriter::SoundSettings& sound = settings.sounds[i];
    tracks.push_back({.isVideo = false,
                      .timescale = MovieWriter::sampleRate,
                      .priming = sounds[i]->priming(),
                      .description = sampleDescription({.channels = sound.channels,
                                                        .sampleRate = MovieWriter::sampleRate,
                                                        .bitRate = sound.bitRate,
                                                        .configuration = sounds[i]->configuration()})});
  }
  return tracks;
}

}  // namespace

Result<std::unique_ptr<MovieEncoding>, MovieFailure> MovieEncoding::create(const std::filesystem::path& path,
                                                                           const MovieWriter::Settings& settings) {
  if (settings.sounds.size() > MovieWriter::mostSoundTracks) {
    return failure(MovieFailure{MovieError::noEncoder, "A movie has at most two sound tracks"});
  }
  auto video = VideoEncoder::open(settings.video);
  if (!video) return failure(std::move(video.error()));
  std::vector<std::unique_ptr<SoundEncoder>> sounds;
  for (const MovieWriter::SoundSettings& sound : settings.sounds) {
    auto encoder = SoundEncoder::open(sound);
    if (!encoder) return failure(std::move(encoder.error()));
    sounds.push_back(std::move(*encoder));
  }
  auto file = FragmentFile::create(path, startOfMovie(tracksOf(settings, **video, sounds)));
  if (!file) return failure(std::move(file.error()));
  std::unique_ptr<MovieEncoding> encoding(new MovieEncoding(std::move(*video), std::move(sounds), settings));
  encoding->file_ = std::move(*file);
  return encoding;
}

MovieEncoding::MovieEncoding(std::unique_ptr<VideoEncoder> video, std::vector<std::unique_ptr<SoundEncoder>> sounds,
                             const MovieWriter::Settings& settings)
    : video_(std::move(video)), sounds_(std::move(sounds)), settings_(settings), builder_(1 + sounds_.size()) {}

Result<void, MovieFailure> MovieEncoding::put(const MoviePicture& picture, double time) {
  const I420View view = video_->picture();
  if (view.planes[0] == nullptr) return failure(MovieFailure{MovieError::encoderFailed, "No memory is left"});
  convert(picture, view);
  lastNumber_ = picture.number;
  return encodePicture(ticksOf(time));
}

void MovieEncoding::convert(const MoviePicture& picture, const I420View& to) const {
  if (picture.format == MoviePicture::Format::bgra) {
    const BgraView from{picture.planes[0], picture.bytesPerRow[0], settings_.video.width, settings_.video.height};
    const bool changesAreKnown = lastTime_ && picture.number != 0 && picture.number == lastNumber_ + 1;
    return changesAreKnown ? convertBgra(from, to, picture.changes) : convertBgra(from, to);
  }
  const I420Source from{picture.planes, picture.bytesPerRow, to.width, to.height};
  picture.isBt601 ? convertBt601(from, to) : copyI420(from, to);
}

Result<void, MovieFailure> MovieEncoding::encodePicture(std::int64_t time) {
  if (lastTime_) time = std::max(time, *lastTime_ + 1);
  lastTime_ = time;
  if (auto encoded = video_->encode(time, videoOutput()); !encoded) return encoded;
  return flushIfLarge();
}

Result<void, MovieFailure> MovieEncoding::putSound(std::size_t track, std::span<const float> samples, double time) {
  if (auto encoded = sounds_[track]->encode(samples, time, soundOutput(track)); !encoded) return encoded;
  return flushIfLarge();
}

Result<void, MovieFailure> MovieEncoding::advance(double time) {
  if (!lastTime_ || time < static_cast<double>(*lastTime_) / movieTimescale + stillness) return {};
  if (video_->picture().planes[0] == nullptr) {
    return failure(MovieFailure{MovieError::encoderFailed, "No memory is left"});
  }
  return encodePicture(ticksOf(time - lag));
}

double MovieEncoding::soundPosition() const {
  double furthest = 0;
  for (const auto& sound : sounds_) furthest = std::max(furthest, sound->position());
  return furthest;
}

VideoEncoder::Output MovieEncoding::videoOutput() {
  return [this](std::span<const std::uint8_t> data, std::int64_t time, bool isKey) {
    builder_.add(0, data, time, guessedDuration, isKey);
  };
}

SoundEncoder::Output MovieEncoding::soundOutput(std::size_t track) {
  return [this, track](std::span<const std::uint8_t> data, std::int64_t place) {
    builder_.add(1 + track, data, place, SoundEncoder::frameSamples, true);
  };
}

std::optional<MovieEncoding::Clock::time_point> MovieEncoding::nextFlush() const {
  if (builder_.isEmpty()) return std::nullopt;
  // A movie with one picture is worth keeping, one without is none.
  if (!hasPicture_ && lastTime_) return lastFlush_;
  return lastFlush_ + fragmentInterval;
}

Result<void, MovieFailure> MovieEncoding::flushIfLarge() {
  return builder_.bytes() > mostFragmentBytes ? flush() : Result<void, MovieFailure>();
}

Result<void, MovieFailure> MovieEncoding::flush() {
  lastFlush_ = Clock::now();
  if (builder_.isEmpty()) return {};
  if (lastTime_) hasPicture_ = true;
  return file_->append(builder_.build());
}

Result<void, MovieFailure> MovieEncoding::drain() {
  Result<void, MovieFailure> drained;
  if (lastTime_) drained = video_->finish(videoOutput());
  for (std::size_t i = 0; i < sounds_.size(); ++i) {
    auto ended = sounds_[i]->finish(soundOutput(i));
    if (drained) drained = std::move(ended);
  }
  auto flushed = flush();
  return drained ? flushed : drained;
}

Result<MovieWriter::Summary, MovieFailure> MovieEncoding::finish(double end) {
  const auto finished = file_->finish(end);
  if (!finished) return failure(finished.error());
  return MovieWriter::Summary{.duration = finished->duration, .bytes = finished->bytes};
}

}  // namespace vellora
