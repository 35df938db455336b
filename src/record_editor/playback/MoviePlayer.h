#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "media/loaded_movies/Movies.h"
#include "platform/AudioPlayback.h"
#include "record_editor/RecordProjectBundle.h"
#include "record_editor/playback/PictureFeed.h"
#include "record_editor/playback/SoundFeed.h"

namespace vellora {

/// Plays a project's footage: the screen, the camera beside it, every audio track together. The sound is the clock;
/// where there is none, or it stops, the computer's clock is. Main thread.
class MoviePlayer {
 public:
  /// The project's files, opened.
  struct Footage {
    std::unique_ptr<VideoReader> screen;
    std::unique_ptr<VideoReader> camera;  ///< null without one that can be read
    std::vector<std::unique_ptr<AudioReader>> sounds;
  };
  struct Callbacks {
    std::function<void(const ShownPicturePtr&)> onScreen{};
    std::function<void(const ShownPicturePtr&)> onCamera{};
    /// The position or whether it plays is another one.
    std::function<void()> onChanged{};
  };

  /// Opens the files; an unreadable camera or track is left out. May take long with damaged files: not on the main
  /// thread.
  static Result<Footage, MediaFailure> open(Movies& movies, const RecordProjectBundle& bundle);

  /// `runLoop` and `output` outlive this.
  MoviePlayer(RunLoop& runLoop, AudioPlayback& output, Footage footage, Callbacks callbacks);
  ~MoviePlayer();

  double duration() const { return duration_; }
  double position() const { return position_; }
  bool isPlaying() const { return isPlaying_; }
  bool hasSound() const { return sound_ != nullptr; }
  bool isMuted() const { return sound_ && sound_->isMuted(); }
  bool hasCamera() const { return camera_ != nullptr; }
  /// Pixels of the screen's upright picture in the file.
  int width() const { return screen_->width(); }
  int height() const { return screen_->height(); }
  int cameraWidth() const { return camera_ ? camera_->width() : 0; }
  int cameraHeight() const { return camera_ ? camera_->height() : 0; }

  /// From the position on; at the end, from the start.
  void play();
  void pause();
  void toggle() { isPlaying_ ? pause() : play(); }
  /// Seconds from the start, brought into the movie.
  void seek(double time);
  /// Pauses, and goes to the next picture (1) or the one before (-1).
  void step(int direction);
  void setMuted(bool muted);

  /// The device pixels pictures are shown in.
  void setScreenSize(int width, int height) { screen_->setSize(width, height); }
  void setCameraSize(int width, int height);

 private:
  void tick();
  /// Lets the clock run from the position.
  void startClock();
  double clock();
  void show();

  RunLoop& runLoop_;
  const Callbacks callbacks_;
  std::unique_ptr<PictureFeed> screen_;
  std::unique_ptr<PictureFeed> camera_;
  std::unique_ptr<SoundFeed> sound_;
  double duration_ = 0;
  double position_ = 0;
  bool isPlaying_ = false;

  // The clock: the sound's, or the computer's from a moment on.
  bool followsSound_ = false;
  double startedFrom_ = 0;
  double startedAt_ = 0;
  double soundMovedAt_ = 0;

  ShownPicturePtr shown_;
  ShownPicturePtr shownCamera_;
  TimerHandle ticking_;
  Lifetime lifetime_;
};

}  // namespace vellora
