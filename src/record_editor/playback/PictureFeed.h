#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "media/movies/VideoReader.h"

namespace vellora {

/// A picture of a movie, drawn for the place it is shown in.
struct ShownPicture {
  PictureSpan span;
  int width = 0;  ///< pixels
  int height = 0;
  std::vector<std::uint32_t> pixels;  ///< blue first, opaque, as VideoReader draws them
};
using ShownPicturePtr = std::shared_ptr<const ShownPicture>;

/// Decodes a movie's pictures some moments before they are shown, on a thread of its own. When it is late, pictures are
/// left out. Any thread.
class PictureFeed {
 public:
  /// `onReady` comes on the feed's thread when the picture of a new place or size is there.
  PictureFeed(std::unique_ptr<VideoReader> reader, std::function<void()> onReady);
  ~PictureFeed();

  double duration() const { return duration_; }
  /// Pixels of an upright picture in the file.
  int width() const { return width_; }
  int height() const { return height_; }

  /// The pixels that pictures are drawn in; before the first call nothing is drawn.
  void setSize(int width, int height);
  /// Goes to the picture that is seen at `time`. Of several calls in a row, the last one counts.
  void seek(double time);
  /// The picture to show at `time`, or the last one before it; null when none is there yet. Never goes back.
  ShownPicturePtr take(double time);

 private:
  void run();
  /// Draws the reader's current picture. Without the lock.
  ShownPicturePtr draw(int width, int height);

  const std::unique_ptr<VideoReader> reader_;
  const std::function<void()> onReady_;
  const double duration_;
  const int width_;
  const int height_;

  std::mutex mutex_;
  // Guarded by mutex_:
  std::condition_variable changed_;
  std::deque<ShownPicturePtr> pictures_;
  std::optional<double> target_;
  double wanted_ = 0;  ///< the time last asked for
  int shownWidth_ = 0;
  int shownHeight_ = 0;
  bool hasEnded_ = false;
  bool isEnding_ = false;

  std::thread thread_;
};

}  // namespace vellora
