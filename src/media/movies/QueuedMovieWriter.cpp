#include "media/movies/QueuedMovieWriter.h"

#include <pthread.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vellora {
namespace {

/// Pictures that wait hold memory of the screen's stream, which has eight.
constexpr std::size_t mostPictures = 5;
constexpr std::size_t mostSoundFrames = std::size_t{5} * MovieWriter::sampleRate;
/// A recording of a month; a time beyond is a mistake.
constexpr double latestTime = 31 * 86400.0;

bool isTime(double seconds) {
  return std::isfinite(seconds) && std::abs(seconds) < latestTime;
}

}  // namespace

Result<std::unique_ptr<MovieWriter>, MovieFailure> MovieWriter::create(const std::filesystem::path& path,
                                                                       const Settings& settings,
                                                                       FailureHandler onFailure) {
  auto encoding = MovieEncoding::create(path, settings);
  if (!encoding) return failure(std::move(encoding.error()));
  return std::make_unique<QueuedMovieWriter>(std::move(*encoding), settings, std::move(onFailure));
}

QueuedMovieWriter::QueuedMovieWriter(std::unique_ptr<MovieEncoding> encoding, const Settings& settings,
                                     FailureHandler onFailure)
    : encoding_(std::move(encoding)), settings_(settings), onFailure_(std::move(onFailure)) {
  counts_.encoder = encoding_->encoderName();
  counts_.bytes = encoding_->fileSize();
  thread_ = std::thread([this] { run(); });
}

QueuedMovieWriter::~QueuedMovieWriter() {
  {
    const std::lock_guard lock(mutex_);
    isEnding_ = true;
  }
  changed_.notify_one();
  thread_.join();
}

bool QueuedMovieWriter::isReadyForMoreVideo() const {
  const std::lock_guard lock(mutex_);
  return takesMore() && pictures_.size() < mostPictures;
}

bool QueuedMovieWriter::appendVideo(MoviePicture picture, double time) {
  const std::lock_guard lock(mutex_);
  if (!takesMore() || !isTime(time)) return false;
  if (pictures_.size() >= mostPictures) {
    ++counts_.notReady;
    return false;
  }
  ++counts_.pictures;
  pictures_.push_back({std::move(picture), time});
  changed_.notify_one();
  return true;
}

bool QueuedMovieWriter::appendSound(std::size_t track, std::span<const float> samples, double time) {
  if (track >= settings_.sounds.size() || !isTime(time)) return false;
  const std::size_t frames = samples.size() / static_cast<std::size_t>(settings_.sounds[track].channels);
  const std::lock_guard lock(mutex_);
  if (!takesMore()) return false;
  SoundTrack& to = sounds_.at(track);
  if (to.waitingFrames + frames > mostSoundFrames) {
    counts_.lostSamples += frames;
    return false;
  }
  to.waitingFrames += frames;
  to.waiting.push_back({{samples.begin(), samples.end()}, time});
  changed_.notify_one();
  return true;
}

void QueuedMovieWriter::advance(double time) {
  const std::lock_guard lock(mutex_);
  if (!takesMore() || !isTime(time)) return;
  reached_ = std::max(reached_.value_or(0), time);
  changed_.notify_one();
}

MovieWriter::Counts QueuedMovieWriter::counts() const {
  const std::lock_guard lock(mutex_);
  return counts_;
}

void QueuedMovieWriter::finish(double end, std::function<void(Result<Summary, MovieFailure>)> done) {
  const std::lock_guard lock(mutex_);
  isEnding_ = true;
  end_ = isTime(end) ? end : 0;
  done_ = std::move(done);
  changed_.notify_one();
}

void QueuedMovieWriter::run() {
  pthread_setname_np(pthread_self(), "movie");
  std::unique_lock lock(mutex_);
  for (;;) {
    const auto isWoken = [this] { return isEnding_ || hasWork(); };
    const auto due = encoding_->nextFlush();
    if (due && !hasFailed_) {
      changed_.wait_until(lock, *due, isWoken);
    } else {
      changed_.wait(lock, isWoken);
    }
    if (isEnding_ && !hasWork()) break;
    const Work work = takeWork();
    lock.unlock();
    const auto written = encode(work);
    if (!written && onFailure_) onFailure_(written.error());
    lock.lock();
    counts_.bytes = encoding_->fileSize();
    if (!written) giveUp();
  }
  const bool mayDrain = !hasFailed_;
  lock.unlock();
  end(mayDrain);
}

bool QueuedMovieWriter::hasWork() const {
  const auto hasSound = [](const SoundTrack& track) { return !track.waiting.empty(); };
  return reached_ || !pictures_.empty() || std::ranges::any_of(sounds_, hasSound);
}

QueuedMovieWriter::Work QueuedMovieWriter::takeWork() {
  Work work;
  for (std::size_t i = 0; i < sounds_.size(); ++i) {
    work.sounds.at(i) = std::exchange(sounds_.at(i).waiting, {});
    sounds_.at(i).waitingFrames = 0;
  }
  if (pictures_.empty()) {
    work.reached = std::exchange(reached_, std::nullopt);
  } else {
    work.picture = std::move(pictures_.front());
    pictures_.pop_front();
  }
  return work;
}

Result<void, MovieFailure> QueuedMovieWriter::encode(const Work& work) {
  for (std::size_t i = 0; i < work.sounds.size(); ++i) {
    for (const Sound& sound : work.sounds.at(i)) {
      if (auto written = encoding_->putSound(i, sound.samples, sound.time); !written) return written;
    }
  }
  auto written = work.picture ? encoding_->put(work.picture->picture, work.picture->time)
                              : encoding_->advance(std::max(work.reached.value_or(0), encoding_->soundPosition()));
  if (!written) return written;
  const auto due = encoding_->nextFlush();
  return due && MovieEncoding::Clock::now() >= *due ? encoding_->flush() : Result<void, MovieFailure>();
}

void QueuedMovieWriter::giveUp() {
  hasFailed_ = true;
  pictures_.clear();
  sounds_ = {};
  reached_.reset();
}

void QueuedMovieWriter::end(bool mayDrain) {
  Result<void, MovieFailure> drained;
  if (mayDrain) drained = encoding_->drain();
  if (!drained && onFailure_) onFailure_(drained.error());
  if (!done_) return;
  const auto summary = encoding_->finish(end_);
  {
    const std::lock_guard lock(mutex_);
    counts_.bytes = encoding_->fileSize();
  }
  done_(summary);
}

}  // namespace vellora
