#include "record_editor/playback/MoviePlayer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QFile>

namespace vellora {
namespace {

constexpr double tickInterval = 1.0 / 120;
/// Sound that does not move for so long is given up, and the computer's clock takes over. Seconds.
constexpr double longestSoundPause = 0.8;
/// More tracks than these are not played.
constexpr std::size_t mostTracks = 8;
/// Steps and seeks go a little into a picture, past what rounding does to its edges.
constexpr double nudge = 0.0005;

std::filesystem::path pathOf(const QString& file) {
  return QFile::encodeName(file).toStdString();
}

}  // namespace

Result<MoviePlayer::Footage, MediaFailure> MoviePlayer::open(Movies& movies, const RecordProjectBundle& bundle) {
  Footage footage;
  const auto file = pathOf(bundle.videoURL());
  auto screen = movies.openVideo(file);
  if (!screen) return failure(std::move(screen.error()));
  footage.screen = std::move(*screen);
  if (const QString camera = bundle.cameraURL(); !camera.isEmpty()) {
    if (auto opened = movies.openVideo(pathOf(camera))) footage.camera = std::move(*opened);
  }
  for (std::size_t track = 0; track < mostTracks; ++track) {
    auto sound = movies.openAudio(file, track, SoundFeed::form);
    if (!sound) break;
    footage.sounds.push_back(std::move(*sound));
  }
  return footage;
}

MoviePlayer::MoviePlayer(RunLoop& runLoop, AudioPlayback& output, Footage footage, Callbacks callbacks)
    : runLoop_(runLoop), callbacks_(std::move(callbacks)) {
  const auto ready = [this] {
    return [&loop = runLoop_, guarded = lifetime_.guard([this] { show(); })] { loop.post(guarded); };
  };
  screen_ = std::make_unique<PictureFeed>(std::move(footage.screen), ready());
  if (footage.camera) camera_ = std::make_unique<PictureFeed>(std::move(footage.camera), ready());
  if (!footage.sounds.empty()) sound_ = std::make_unique<SoundFeed>(std::move(footage.sounds), output);
  duration_ = screen_->duration();
}

MoviePlayer::~MoviePlayer() = default;

void MoviePlayer::setCameraSize(int width, int height) {
  if (camera_) camera_->setSize(width, height);
}

void MoviePlayer::startClock() {
  startedFrom_ = position_;
  startedAt_ = soundMovedAt_ = runLoop_.hostTime();
  followsSound_ = sound_ != nullptr;
  if (sound_) sound_->play(position_);
}

double MoviePlayer::clock() {
  const double now = runLoop_.hostTime();
  if (followsSound_) {
    const auto heard = sound_->position();
    if (heard && *heard > position_) soundMovedAt_ = now;
    if (!sound_->hasFailed() && now - soundMovedAt_ < longestSoundPause) return heard.value_or(position_);
    followsSound_ = false;
    startedFrom_ = position_;
    startedAt_ = now;
  }
  return startedFrom_ + now - startedAt_;
}

void MoviePlayer::play() {
  if (isPlaying_) return;
  if (position_ >= duration_ - nudge) seek(0);
  isPlaying_ = true;
  startClock();
  ticking_ = runLoop_.every(tickInterval, [this] { tick(); });
  callbacks_.onChanged();
}

void MoviePlayer::pause() {
  if (!isPlaying_) return;
  isPlaying_ = false;
  ticking_.reset();
  if (sound_) sound_->pause();
  callbacks_.onChanged();
}

void MoviePlayer::tick() {
  position_ = std::clamp(clock(), position_, std::max(position_, duration_));
  show();
  if (position_ >= duration_) return pause();
  callbacks_.onChanged();
}

void MoviePlayer::show() {
  if (auto picture = screen_->take(position_ + nudge); picture && picture != shown_) {
    shown_ = std::move(picture);
    callbacks_.onScreen(shown_);
  }
  if (!camera_) return;
  if (auto picture = camera_->take(position_ + nudge); picture && picture != shownCamera_) {
    shownCamera_ = std::move(picture);
    callbacks_.onCamera(shownCamera_);
  }
}

void MoviePlayer::seek(double time) {
  position_ = std::isnan(time) ? 0 : std::clamp(time, 0.0, duration_);
  screen_->seek(position_ + nudge);
  if (camera_) camera_->seek(position_ + nudge);
  if (isPlaying_) startClock();
  callbacks_.onChanged();
}

void MoviePlayer::step(int direction) {
  pause();
  if (!shown_) return;
  seek(direction > 0 ? std::min(shown_->span.end, duration_) : std::max(0.0, shown_->span.start - 2 * nudge));
}

void MoviePlayer::setMuted(bool muted) {
  if (!sound_) return;
  sound_->setMuted(muted);
  callbacks_.onChanged();
}

}  // namespace vellora
