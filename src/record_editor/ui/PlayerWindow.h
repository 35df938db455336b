#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

#include <QWidget>

#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "base/SerialQueue.h"
#include "media/loaded_movies/Movies.h"
#include "platform/AudioPlayback.h"
#include "record_editor/RecordProjectBundle.h"
#include "record_editor/playback/MoviePlayer.h"

namespace vellora {

class IconButton;
class PictureView;
class TextLabel;
class WaveformScrubber;

/// Shows a project's footage: picture, camera, sound, and the way through it. Main thread.
class PlayerWindow final : public QWidget {
  Q_OBJECT

 public:
  /// What a window needs of the program; everything outlives it.
  struct Services {
    RunLoop& runLoop;
    Movies& movies;
    AudioPlayback& playback;
    /// Shows a file in the file manager.
    std::function<void(const QString& path)> reveal;
    /// How loud a project is over its time, for drawing, until `goesOn` says no. Not on the main thread.
    std::function<std::vector<float>(const RecordProjectBundle&, const std::function<bool()>& goesOn)> loudness;
  };

  PlayerWindow(RecordProjectBundle bundle, Services services);
  ~PlayerWindow() override;

  const RecordProjectBundle& bundle() const { return bundle_; }
  /// Shows the window, or brings it to the front.
  void present();
  /// Null until the footage is open.
  MoviePlayer* player() { return player_.get(); }

 signals:
  void closed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* makeTransport();
  void open();
  void opened(Result<MoviePlayer::Footage, MediaFailure> footage, const RecordProjectState& state);
  void refresh();
  void setPlayable(bool playable);
  void toggleFullScreen();
  void fitToMovie();

  const RecordProjectBundle bundle_;
  const Services services_;
  PictureView* view_ = nullptr;
  WaveformScrubber* scrubber_ = nullptr;
  IconButton* playButton_ = nullptr;
  IconButton* soundButton_ = nullptr;
  TextLabel* time_ = nullptr;
  bool isShownPlaying_ = false;
  std::atomic<bool> isEnding_ = false;
  std::unique_ptr<MoviePlayer> player_;
  SerialQueue opening_{"dev.orlo.vellora.player-opening"};
  SerialQueue measuring_{"dev.orlo.vellora.player-loudness", SerialQueue::Quality::Utility};
  Lifetime lifetime_;
};

}  // namespace vellora
