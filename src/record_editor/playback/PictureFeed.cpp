#include "record_editor/playback/PictureFeed.h"

#include <utility>

namespace vellora {
namespace {

/// Drawn pictures that wait: a tenth of a second at usual rates, and 33 MB in 4K.
constexpr std::size_t ahead = 4;
/// So many pictures in a row are left out at most, so that something moves on a slow computer.
constexpr int mostSkipped = 8;

}  // namespace

PictureFeed::PictureFeed(std::unique_ptr<VideoReader> reader, std::function<void()> onReady)
    : reader_(std::move(reader)),
      onReady_(std::move(onReady)),
      duration_(reader_->duration()),
      width_(reader_->width()),
      height_(reader_->height()),
      target_(0.0),
      thread_([this] { run(); }) {}

PictureFeed::~PictureFeed() {
  {
    const std::lock_guard lock(mutex_);
    isEnding_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void PictureFeed::setSize(int width, int height) {
  {
    const std::lock_guard lock(mutex_);
    if (width == shownWidth_ && height == shownHeight_) return;
    shownWidth_ = width;
    shownHeight_ = height;
    if (!target_) target_ = wanted_;
  }
  changed_.notify_all();
}

void PictureFeed::seek(double time) {
  {
    const std::lock_guard lock(mutex_);
    target_ = time;
    wanted_ = time;
  }
  changed_.notify_all();
}

ShownPicturePtr PictureFeed::take(double time) {
  const std::lock_guard lock(mutex_);
  if (target_) return nullptr;
  wanted_ = time;
  const std::size_t before = pictures_.size();
  while (pictures_.size() > 1 && pictures_[1]->span.start <= time) pictures_.pop_front();
  if (pictures_.size() < before) changed_.notify_all();
  return pictures_.empty() ? nullptr : pictures_.front();
}

ShownPicturePtr PictureFeed::draw(int width, int height) {
  auto picture = std::make_shared<ShownPicture>();
  picture->span = reader_->span();
  picture->width = width;
  picture->height = height;
  const auto rowPixels = static_cast<std::size_t>(VideoReader::pixelsPerRow(width));
  picture->pixels.resize(rowPixels * static_cast<std::size_t>(height));
  return reader_->draw(picture->pixels.data(), width, height) ? picture : nullptr;
}

void PictureFeed::run() {
  int skipped = 0;
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] {
      const bool hasSize = shownWidth_ > 0 && shownHeight_ > 0;
      const bool hasRoom = pictures_.size() < ahead && !hasEnded_;
      return isEnding_ || (hasSize && (target_ || hasRoom));
    });
    if (isEnding_) return;
    const std::optional<double> target = std::exchange(target_, std::nullopt);
    const double wanted = wanted_;
    const int width = shownWidth_;
    const int height = shownHeight_;
    if (target) {
      // Until the new picture is there, none is right.
      target_ = target;
      lock.unlock();
      reader_->seek(*target);
      ShownPicturePtr picture = draw(width, height);
      lock.lock();
      const bool isStillWanted = target_ == target && width == shownWidth_ && height == shownHeight_;
      if (!isStillWanted) continue;
      target_.reset();
      hasEnded_ = false;
      pictures_.clear();
      if (picture) pictures_.push_back(std::move(picture));
      lock.unlock();
      if (onReady_) onReady_();
      lock.lock();
      continue;
    }
    lock.unlock();
    const bool hasNext = reader_->next();
    ShownPicturePtr picture;
    if (hasNext) {
      const bool isLate = reader_->span().end <= wanted && skipped < mostSkipped;
      skipped = isLate ? skipped + 1 : 0;
      if (!isLate) picture = draw(width, height);
    }
    lock.lock();
    if (target_) continue;
    hasEnded_ = !hasNext;
    if (picture) pictures_.push_back(std::move(picture));
  }
}

}  // namespace vellora
