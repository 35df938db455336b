#include "recording/ScreenRecorder.h"

#include <algorithm>
#include <utility>

#include "base/Log.h"

namespace vellora {
namespace {

MoviePicture pictureOf(const std::shared_ptr<const ScreenFrame>& frame, std::uint64_t number) {
  MoviePicture picture{.format = MoviePicture::Format::bgra, .number = number, .changes = frame->changes};
  picture.planes[0] = frame->pixels;
  picture.bytesPerRow[0] = frame->bytesPerRow;
  picture.owner = frame;
  return picture;
}

}  // namespace

/// What the queue's tasks work on. Nothing else touches it while they run.
struct ScreenRecorder::State {
  std::unique_ptr<MovieWriter> movie;
  RecordedTime time;
  std::optional<double> anchorTime;  ///< recorded seconds of the host clock
  double lastVideoTime = 0;          ///< from the anchor
  std::vector<double> pauseMarks;
  KeyboardCueBuffer keyboardBuffer;
  std::vector<std::shared_ptr<SoundTrack>> sounds;
  std::optional<PointerRecorder> pointer;
  std::uint64_t received = 0;  ///< frames of the stream
  std::uint64_t written = 0;
  std::uint64_t notReady = 0;

  /// Recorded seconds from the first frame at a moment of the host clock, never negative.
  double position(double hostTime) const { return std::max(0.0, time.at(hostTime) - anchorTime.value_or(0)); }
};

ScreenRecorder::ScreenRecorder(RunLoop& runLoop, Callbacks callbacks)
    : runLoop_(runLoop), callbacks_(std::move(callbacks)), state_(std::make_shared<State>()) {}

ScreenRecorder::~ScreenRecorder() {
  stream_.reset();
  for (const auto& sound : sounds_) sound->finish(runLoop_.hostTime());
}

Result<void, RecordingError> ScreenRecorder::start(ScreenStreamService& streams,
                                                   const ScreenStreamConfiguration& configuration,
                                                   std::unique_ptr<MovieWriter> movie) {
  state_->movie = std::move(movie);
  auto stream = streams.start(
      configuration,
      {.onFrame =
           [this](std::shared_ptr<const ScreenFrame> frame) {
             outputQueue_.async([this, frame = std::move(frame)] { receive(frame); });
           },
       .onStopped =
           [this](ScreenCaptureError error) {
             outputQueue_.async([this, error] {
               if (callbacks_.onStreamStopped) callbacks_.onStreamStopped(error);
             });
           },
       .onPointer = [this](const PointerSample& sample) { outputQueue_.async([this, sample] { receive(sample); }); }});
  if (!stream) {
    return failure(configuration.window ? RecordingError::windowNotFound : RecordingError::displayNotFound);
  }
  stream_ = std::move(*stream);
  return {};
}

void ScreenRecorder::receive(const std::shared_ptr<const ScreenFrame>& frame) {
  State& state = *state_;
  ++state.received;
  if (!frame->isComplete || !state.movie) return;
  const auto recorded = state.time.retimed(frame->presentationTime);
  if (!recorded) return;
  if (!state.anchorTime) {
    state.anchorTime = *recorded;
    for (const auto& sound : state.sounds) {
      sound->begin(frame->presentationTime, [this] { outputQueue_.async([this] { writeSounds(); }); });
    }
    if (state.pointer) state.pointer->enter(0);
    if (callbacks_.onSessionAnchor) callbacks_.onSessionAnchor(frame->presentationTime);
  }
  const double position = *recorded - *state.anchorTime;
  if (state.written > 0 && position <= state.lastVideoTime) return;
  if (!state.movie->appendVideo(pictureOf(frame, state.received), position)) {
    ++state.notReady;
    return;
  }
  state.lastVideoTime = position;
  ++state.written;
}

void ScreenRecorder::receive(const PointerSample& sample) {
  State& state = *state_;
  if (!state.pointer) return;
  auto position = state.anchorTime ? state.time.retimed(sample.time) : std::nullopt;
  if (position) position = std::max(0.0, *position - *state.anchorTime);
  state.pointer->receive(sample, position);
}

void ScreenRecorder::writeSounds() {
  State& state = *state_;
  if (!state.movie) return;
  for (std::size_t track = 0; track < state.sounds.size(); ++track) {
    const SoundTrack::Samples samples = state.sounds[track]->take();
    if (!samples.interleaved.empty()) (void)state.movie->appendSound(track, samples.interleaved, samples.time);
  }
}

void ScreenRecorder::setSounds(std::vector<std::shared_ptr<SoundTrack>> sounds) {
  sounds_ = sounds;
  state_->sounds = std::move(sounds);
}

void ScreenRecorder::setPointerTrack(std::unique_ptr<PointerTrackWriter> pointerTrack) {
  state_->pointer.emplace(std::move(pointerTrack));
}

void ScreenRecorder::pause() {
  const double now = runLoop_.hostTime();
  // At once: by the time the queue comes to it, there may be sound from beyond.
  for (const auto& sound : sounds_) sound->pause(now);
  outputQueue_.async([this, now] {
    State& state = *state_;
    if (state.time.isPaused()) return;
    if (state.anchorTime) {
      const double mark = state.position(now);
      state.pauseMarks.push_back(mark);
      state.keyboardBuffer.release(mark, 0);
    }
    state.time.pause(now);
    if (callbacks_.onPauseBoundary) callbacks_.onPauseBoundary(now);
  });
}

void ScreenRecorder::resume() {
  const double now = runLoop_.hostTime();
  for (const auto& sound : sounds_) sound->resume(now);
  outputQueue_.async([this, now] {
    if (!state_->time.isPaused()) return;
    state_->time.resume(now);
    if (state_->pointer && state_->anchorTime) state_->pointer->enter(state_->position(now));
    if (callbacks_.onResumeBoundary) callbacks_.onResumeBoundary(now);
  });
  // A screen that stands still would show what was there before the pause.
  if (stream_) stream_->requestFrame();
}

void ScreenRecorder::recordKeyboard(const QStringList& keys, double hostTime, double linger) {
  outputQueue_.async([this, keys, hostTime, linger] {
    State& state = *state_;
    const auto recorded = state.time.retimed(hostTime);
    if (!state.anchorTime || !recorded) return;
    const double position = std::max(0.0, *recorded - *state.anchorTime);
    if (keys.isEmpty()) {
      state.keyboardBuffer.release(position, linger);
    } else {
      state.keyboardBuffer.press(keys, position);
    }
  });
}

void ScreenRecorder::setLeftOut(std::vector<WindowId> windows) {
  if (stream_) stream_->setLeftOut(std::move(windows));
}

void ScreenRecorder::advance() {
  outputQueue_.async([this, now = runLoop_.hostTime()] {
    if (!state_->movie || !state_->anchorTime) return;
    for (const auto& sound : state_->sounds) sound->advance(now);
    writeSounds();
    state_->movie->advance(state_->position(now));
  });
}

void ScreenRecorder::marks(std::function<void(std::vector<double>, std::vector<RecordedKeyCue>)> done) {
  outputQueue_.async([this, now = runLoop_.hostTime(), done = std::move(done)] {
    if (state_->pointer) state_->pointer->flush();
    done(state_->pauseMarks, state_->keyboardBuffer.finished(state_->position(now)));
  });
}

void ScreenRecorder::finish(std::function<void(Result<Outcome, RecordingError>)> done) {
  const double now = runLoop_.hostTime();
  // At once: by the time the queue comes to it, there may be sound from beyond.
  for (const auto& sound : sounds_) sound->end(now);
  ScreenStreamCounts counts;
  if (stream_) {
    stream_->stop();
    counts = stream_->counts();
    stream_.reset();
  }
  outputQueue_.async([this, now, counts, done = std::move(done)] {
    State& state = *state_;
    const double end = state.position(now);
    state.pointer.reset();
    ScreenRecorderReport report{counts, state.written, state.notReady, end};
    for (const auto& sound : state.sounds) sound->finish(now);
    writeSounds();
    if (state.movie) {
      const MovieWriter::Counts movie = state.movie->counts();
      report.lostSamples = movie.lostSamples;
      report.encoder = QString::fromStdString(movie.encoder);
    }
    for (const auto& sound : state.sounds) report.sounds.push_back(sound->report());
    Outcome outcome{
        .pauseMarks = state.pauseMarks, .keyCues = state.keyboardBuffer.finished(end), .report = std::move(report)};
    if (!state.movie || state.written == 0) {
      return runLoop_.post([done] { done(failure(RecordingError::writeFailed)); });
    }
    // The movie ends on the main thread, not on its own one, where the callback runs.
    auto movie = std::make_shared<std::unique_ptr<MovieWriter>>(std::move(state.movie));
    MovieWriter& ending = **movie;
    ending.finish(end, [&runLoop = runLoop_, movie, outcome = std::move(outcome),
                        done](const Result<MovieWriter::Summary, MovieFailure>& written) {
      runLoop.post([ended = std::shared_ptr<MovieWriter>(std::move(*movie)), outcome, done, written] {
        if (!written) {
          log::error(QString::fromStdString(written.error().message));
          return done(failure(RecordingError::writeFailed));
        }
        done(outcome);
      });
    });
  });
}

}  // namespace vellora
