#include "recording/ui/CameraFeed.h"

#include <utility>

#include "recording/ui/CameraPicture.h"

namespace vellora {

void CameraFeed::open(int side, std::function<void(QImage)> show) {
  show_ = std::move(show);
  side_ = side;
  const std::lock_guard lock(mutex_);
  isOpen_ = true;
}

void CameraFeed::setSide(int side) {
  if (side == side_) return;
  side_ = side;
  {
    const std::lock_guard lock(mutex_);
    if (!newest_) return;
    isNew_ = true;
  }
  wake();
}

void CameraFeed::close() {
  show_ = nullptr;
  wait_.reset();
  const std::lock_guard lock(mutex_);
  isOpen_ = false;
  isNew_ = false;
  newest_.reset();
}

void CameraFeed::push(std::shared_ptr<const CameraFrame> frame) {
  {
    const std::lock_guard lock(mutex_);
    if (!isOpen_) return;
    newest_.swap(frame);
    if (std::exchange(isNew_, true)) return;  // it has been announced
  }
  runLoop_.post(lifetime_.guard([this] { wake(); }));
}

void CameraFeed::wake() {
  if (isConverting_ || wait_ || !show_) return;
  const double rest = convertedAt_ + leastInterval - runLoop_.hostTime();
  if (rest <= 0) return convert();
  wait_ = runLoop_.after(rest, [this] {
    wait_.reset();
    convert();
  });
}

void CameraFeed::convert() {
  std::shared_ptr<const CameraFrame> frame;
  {
    const std::lock_guard lock(mutex_);
    if (!std::exchange(isNew_, false)) return;
    frame = newest_;
  }
  isConverting_ = true;
  convertedAt_ = runLoop_.hostTime();
  auto deliver = lifetime_.guard([this](QImage picture) {
    isConverting_ = false;
    if (show_ && !picture.isNull()) show_(std::move(picture));
    wake();
  });
  queue_.async([frame = std::move(frame), side = side_, deliver = std::move(deliver), &runLoop = runLoop_]() mutable {
    QImage picture = mirroredSquare(*frame, side);
    frame.reset();
    runLoop.post(
        [picture = std::move(picture), deliver = std::move(deliver)]() mutable { deliver(std::move(picture)); });
  });
}

}  // namespace vellora
