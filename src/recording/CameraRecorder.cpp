#include "recording/CameraRecorder.h"

#include <algorithm>
#include <deque>
#include <optional>
#include <utility>

#include <QFile>

#include "base/Log.h"
#include "recording/RecordedTime.h"

namespace vellora {
namespace {

/// Bits per second for each pixel: a face in front of a wall, 30 times a second.
constexpr std::int64_t bitsPerPixel = 3;
/// Pictures kept until the screen's first frame is known.
constexpr std::size_t mostWaiting = 8;

MoviePicture pictureOf(const std::shared_ptr<const CameraFrame>& frame) {
  MoviePicture picture{.format = MoviePicture::Format::i420, .isBt601 = !frame->isBt709};
  std::ranges::copy(frame->planes, picture.planes.begin());
  std::ranges::copy(frame->bytesPerRow, picture.bytesPerRow.begin());
  picture.owner = frame;
  return picture;
}

}  // namespace

struct CameraRecorder::State {
  std::deque<std::shared_ptr<const CameraFrame>> waiting;  ///< for the anchor: the movie may start with any of them
  Movies* movies = nullptr;                                ///< null when nothing is written
  QString outputURL;
  std::unique_ptr<MovieWriter> movie;
  RecordedTime time;
  std::optional<double> anchorTime;  ///< recorded seconds of the host clock
  std::optional<double> lastTime;    ///< of the last picture written

  void write(const std::shared_ptr<const CameraFrame>& frame, double position) {
    if (lastTime && position <= *lastTime) return;
    if (!movie) {
      const std::int64_t bitRate = std::int64_t{frame->width} * frame->height * bitsPerPixel;
      auto created = movies->create(QFile::encodeName(outputURL).toStdString(),
                                    {.video = {frame->width, frame->height, bitRate}}, {});
      if (!created) return giveUp(created.error());
      movie = std::move(*created);
    }
    if (movie->appendVideo(pictureOf(frame), position)) lastTime = position;
  }

  void giveUp(const MovieFailure& reason) {
    log::error(QStringLiteral("camera writer failed: ") + QString::fromStdString(reason.message));
    movies = nullptr;
  }

  void receive(std::shared_ptr<const CameraFrame> frame) {
    if (anchorTime) return append(frame);
    waiting.push_back(std::move(frame));
    if (waiting.size() > mostWaiting) waiting.pop_front();
  }

  void append(const std::shared_ptr<const CameraFrame>& frame) {
    if (movies == nullptr) return;
    const auto recorded = time.retimed(frame->presentationTime);
    if (recorded) write(frame, std::max(0.0, *recorded - *anchorTime));
  }

  void start(double anchor) {
    anchorTime = anchor - time.pauseOffset();
    // The picture that was on when the screen's first one was taken, and those since.
    while (waiting.size() > 1 && waiting[1]->presentationTime <= anchor) waiting.pop_front();
    for (const auto& frame : waiting) append(frame);
    waiting.clear();
  }
};

CameraRecorder::CameraRecorder(RunLoop& runLoop, Callbacks callbacks)
    : runLoop_(runLoop), callbacks_(std::move(callbacks)), state_(std::make_shared<State>()) {}

CameraRecorder::~CameraRecorder() {
  stream_.reset();
}

Result<void, CameraCaptureError> CameraRecorder::open(CameraCapture& cameras, const QString& deviceID) {
  auto stream = cameras.start(deviceID, wantedWidth, wantedHeight,
                              {.onFrame =
                                   [this](std::shared_ptr<const CameraFrame> frame) {
                                     outputQueue_.async([this, frame = std::move(frame)] {
                                       if (callbacks_.onPreview) callbacks_.onPreview(frame);
                                       state_->receive(frame);
                                     });
                                   },
                               .onLost =
                                   [onLost = callbacks_.onLost, &runLoop = runLoop_](CameraCaptureError error) {
                                     if (onLost) runLoop.post([onLost, error] { onLost(error); });
                                   }});
  if (!stream) return failure(stream.error());
  stream_ = std::move(*stream);
  return {};
}

void CameraRecorder::startWriting(Movies& movies, const QString& outputURL) {
  outputQueue_.async([this, &movies, outputURL] {
    state_->movies = &movies;
    state_->outputURL = outputURL;
  });
}

void CameraRecorder::anchor(double at) {
  outputQueue_.async([state = state_, at] { state->start(at); });
}

void CameraRecorder::pause(double at) {
  outputQueue_.async([state = state_, at] { state->time.pause(at); });
}

void CameraRecorder::resume(double at) {
  outputQueue_.async([state = state_, at] { state->time.resume(at); });
}

void CameraRecorder::finishWriting(double at, std::function<void(bool)> done) {
  outputQueue_.async([this, at, done = std::move(done)] {
    stream_.reset();
    // Behind the pictures that came until it was closed.
    outputQueue_.async([this, at, done] { end(at, done); });
  });
}

void CameraRecorder::end(double at, const std::function<void(bool)>& done) {
  State& state = *state_;
  state.movies = nullptr;
  if (!state.movie) return runLoop_.post([done] { done(false); });
  // The movie ends on the main thread, not on its own one, where the callback runs.
  auto movie = std::make_shared<std::unique_ptr<MovieWriter>>(std::move(state.movie));
  MovieWriter& ending = **movie;
  ending.finish(state.time.at(at) - *state.anchorTime, [&runLoop = runLoop_, movie, done](
                                                           const Result<MovieWriter::Summary, MovieFailure>& written) {
    if (!written) {
      log::error(QStringLiteral("camera writer failed: ") + QString::fromStdString(written.error().message));
    }
    runLoop.post([ended = std::shared_ptr<MovieWriter>(std::move(*movie)), done, isWhole = written.has_value()] {
      done(isWhole);
    });
  });
}

}  // namespace vellora
