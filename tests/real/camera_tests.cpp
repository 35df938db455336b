#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <vector>

#include "base/QtRunLoop.h"
#include "platform/linux/camera/LoadedCameraCapture.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

/// What a camera gave.
class Seen {
 public:
  CameraCapture::Callbacks callbacks() {
    return {.onFrame =
                [this](std::shared_ptr<const CameraFrame> frame) {
                  const double now = QtRunLoop().hostTime();
                  const std::lock_guard lock(mutex_);
                  delays_.push_back(now - frame->presentationTime);
                  frames_.push_back(std::move(frame));
                },
            .onLost =
                [this](CameraCaptureError error) {
                  const std::lock_guard lock(mutex_);
                  lost_ = error;
                }};
  }
  std::vector<std::shared_ptr<const CameraFrame>> frames() const { return locked(frames_); }
  std::vector<double> delays() const { return locked(delays_); }
  std::optional<CameraCaptureError> lost() const { return locked(lost_); }

 private:
  template <class T>
  T locked(const T& value) const {
    const std::lock_guard lock(mutex_);
    return value;
  }

  mutable std::mutex mutex_;
  std::vector<std::shared_ptr<const CameraFrame>> frames_;
  std::vector<double> delays_;
  std::optional<CameraCaptureError> lost_;
};

/// How much of the picture differs from the one before, by the mean of Y.
double differenceOf(const CameraFrame& a, const CameraFrame& b) {
  double sum = 0;
  for (int y = 0; y < a.height; ++y) {
    for (int x = 0; x < a.width; ++x)
      sum += std::abs(a.planes[0][y * a.bytesPerRow[0] + x] - b.planes[0][y * b.bytesPerRow[0] + x]);
  }
  return sum / a.width / a.height;
}

class CameraTest : public testing::Test {
 protected:
  ~CameraTest() override { unsetenv("VELLORA_TEST_CAMERA"); }

  std::optional<CaptureDeviceInfo> testCamera() {
    for (const auto& camera : cameras.cameras()) {
      if (camera.uniqueID.startsWith("test:")) return camera;
    }
    return std::nullopt;
  }

  LoadedCameraCapture cameras;
  Seen seen;
};

TEST_F(CameraTest, TheTestCameraIsThereWhenAskedForOnly) {
  EXPECT_FALSE(testCamera());
  const auto refused = cameras.start("test:pattern", 640, 360, {});
  ASSERT_FALSE(refused);
  EXPECT_EQ(refused.error(), CameraCaptureError::deviceNotFound);
  setenv("VELLORA_TEST_CAMERA", "1", 1);
  const auto camera = testCamera();
  ASSERT_TRUE(camera);
  EXPECT_EQ(camera->displayName, "Test camera");
}

TEST_F(CameraTest, PicturesComeAtThePaceOfTheHostClock) {
  setenv("VELLORA_TEST_CAMERA", "1", 1);
  auto stream = cameras.start("test:pattern", 641, 361, seen.callbacks());
  ASSERT_TRUE(stream);
  ASSERT_TRUE(waitFor([&] { return seen.frames().size() >= 60; }));
  stream->reset();
  const auto frames = seen.frames();
  const auto delays = seen.delays();
  for (std::size_t i = 1; i < frames.size(); ++i) {
    EXPECT_EQ(frames[i]->width, 640);
    EXPECT_EQ(frames[i]->height, 360);
    EXPECT_NEAR(frames[i]->presentationTime - frames[i - 1]->presentationTime, 1 / 30.0, 0.02);
    EXPECT_GT(differenceOf(*frames[i], *frames[i - 1]), 0.01) << "every picture is another one";
  }
  EXPECT_NEAR(frames.back()->presentationTime - frames.front()->presentationTime,
              static_cast<double>(frames.size() - 1) / 30, 0.05);
  EXPECT_GE(*std::min_element(delays.begin(), delays.end()), 0) << "no picture is from the future";
  std::vector<double> sorted = delays;
  std::nth_element(sorted.begin(), sorted.begin() + 30, sorted.end());
  EXPECT_LT(sorted[30], 0.04);
}

TEST_F(CameraTest, ACameraThatGoesIsLostAndOneThatStaysEndsAtOnce) {
  setenv("VELLORA_TEST_CAMERA", "0.4s", 1);
  {
    auto stream = cameras.start("test:pattern", 320, 240, seen.callbacks());
    ASSERT_TRUE(stream);
    ASSERT_TRUE(waitFor([&] { return seen.lost().has_value(); }));
    EXPECT_EQ(*seen.lost(), CameraCaptureError::failed);
    EXPECT_EQ(seen.frames().size(), 12U);
  }
  setenv("VELLORA_TEST_CAMERA", "1", 1);
  Seen other;
  auto stream = cameras.start("test:pattern", 320, 240, other.callbacks());
  ASSERT_TRUE(stream);
  ASSERT_TRUE(waitFor([&] { return !other.frames().empty(); }));
  const auto start = std::chrono::steady_clock::now();
  stream->reset();
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(300));
  EXPECT_FALSE(other.lost());
}

}  // namespace
}  // namespace vellora::test
