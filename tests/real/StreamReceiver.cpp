#include "StreamReceiver.h"

#include <gtest/gtest.h>

#include <cstring>

namespace vellora::test {
namespace {

constexpr std::uint32_t colorBits = 0xFFFFFF;

std::uint32_t pixelAt(const ScreenFrame& frame, int x, int y) {
  std::uint32_t pixel = 0;
  std::memcpy(&pixel, frame.pixels + frame.bytesPerRow * y + std::ptrdiff_t{x} * 4, sizeof pixel);
  return pixel & colorBits;
}

}  // namespace

Pixels pixelsOf(const ScreenFrame& frame) {
  Pixels pixels;
  for (int y = 0; y < frame.height; ++y) {
    for (int x = 0; x < frame.width; ++x) pixels.push_back(pixelAt(frame, x, y));
  }
  return pixels;
}

bool StreamReceiver::start(const XServer& server, ScreenStreamConfiguration configuration) {
  const auto error = startError(server, configuration);
  EXPECT_FALSE(error) << "the stream did not start: " << static_cast<int>(error.value_or(ScreenCaptureError::Failed));
  return !error && waitFor([&] { return count() > 0; });
}

std::optional<ScreenCaptureError> StreamReceiver::startError(const XServer& server,
                                                             const ScreenStreamConfiguration& configuration) {
  X11ScreenStreamService service(server.display());
  auto stream = service.start(configuration, {.onFrame = [this](auto frame) { receive(frame); },
                                              .onStopped =
                                                  [this](ScreenCaptureError error) {
                                                    const std::lock_guard lock(mutex_);
                                                    EXPECT_FALSE(stopped_) << "told twice";
                                                    stopped_ = error;
                                                  },
                                              .onPointer =
                                                  [this](const PointerSample& sample) {
                                                    const std::lock_guard lock(mutex_);
                                                    pointers_.push_back(sample);
                                                  }});
  if (!stream) return stream.error();
  stream_ = std::move(*stream);
  return std::nullopt;
}

void StreamReceiver::receive(const std::shared_ptr<const ScreenFrame>& frame) {
  {
    const std::lock_guard lock(mutex_);
    if (frames_.empty()) {
      EXPECT_EQ(frame->changes, (std::vector<PixelRect>{{0, 0, frame->width, frame->height}}));
    } else {
      EXPECT_GT(frame->presentationTime, frames_.back().time);
    }
    EXPECT_LE(frame->changes.size(), 16U);
    frames_.push_back({frame->presentationTime, frame->changes});
    width_ = frame->width;
    picture_.resize(static_cast<std::size_t>(frame->width) * static_cast<std::size_t>(frame->height));
    for (const PixelRect& rect : frame->changes) {
      EXPECT_EQ(rect.intersected({0, 0, frame->width, frame->height}), rect) << "a change outside the picture";
      for (int y = rect.y; y < rect.bottom(); ++y) {
        for (int x = rect.x; x < rect.right(); ++x) {
          picture_[static_cast<std::size_t>(y * width_ + x)] = pixelAt(*frame, x, y);
        }
      }
    }
    if (holding_) held_.push_back(frame);
  }
  if (inspect) inspect(*frame);
}

std::vector<std::shared_ptr<const ScreenFrame>> StreamReceiver::letGo() {
  holding_ = false;
  const std::lock_guard lock(mutex_);
  return std::move(held_);
}

std::vector<StreamReceiver::Seen> StreamReceiver::frames() const {
  const std::lock_guard lock(mutex_);
  return frames_;
}

Pixels StreamReceiver::picture() const {
  const std::lock_guard lock(mutex_);
  return picture_;
}

std::uint32_t StreamReceiver::pixel(int x, int y) const {
  const std::lock_guard lock(mutex_);
  return picture_.at(static_cast<std::size_t>(y * width_ + x));
}

std::vector<PointerSample> StreamReceiver::pointers() const {
  const std::lock_guard lock(mutex_);
  return pointers_;
}

std::optional<ScreenCaptureError> StreamReceiver::stopped() const {
  const std::lock_guard lock(mutex_);
  return stopped_;
}

void StreamReceiver::settle() const {
  std::size_t before = 0;
  waitFor([&] {
    const std::size_t now = count();
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    return std::exchange(before, now) == count() && before > 0;
  });
}

}  // namespace vellora::test
