#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <vector>

#include "platform/linux/audio/SampleClock.h"
#include "platform/linux/camera/CameraClock.h"
#include "platform/linux/camera/CameraModes.h"

namespace vellora::test {
namespace {

constexpr int rate = 48000;

/// A sound server that knows its position in steps only, answering ten times a second a little late.
class SteppingServer {
 public:
  SteppingServer(double ppm, double step) : speed_(1 + ppm * 1e-6), step_(step) {}

  /// Host time, for which the device has recorded so much.
  double truthOf(double sample) const { return start_ + (sample - lost_) / (rate * speed_); }
  double sampleAt(double time) const { return (time - start_) * rate * speed_ + lost_; }
  void tell(SampleClock& clock, double time) {
    const double known = std::floor(sampleAt(time) / (step_ * rate)) * step_ * rate;
    clock.observe(known, time + delay_(random_));
  }
  void lose(double samples) { lost_ -= samples; }

 private:
  static constexpr double start_ = 5000;
  double speed_, step_, lost_ = 0;
  std::mt19937 random_{11};
  std::exponential_distribution<double> delay_{3000};
};

TEST(SampleClockTest, FollowsADriftingDeviceThatIsSeenInSteps) {
  for (const double ppm : {300.0, -300.0}) {
    SteppingServer server(ppm, 1024.0 / rate);
    SampleClock clock(rate);
    double time = 5001;
    for (; !clock.isSettled(); time += 0.004) server.tell(clock, time);
    double before = 0, least = 1, most = -1;
    for (int i = 0; i < 1200; ++i, time += 0.097) {
      server.tell(clock, time);
      const double sample = server.sampleAt(time);
      const double error = clock.timeOf(static_cast<std::int64_t>(sample)) - server.truthOf(sample);
      EXPECT_NEAR(error, 0, 0.006);
      if (i > 100) {
        least = std::min(least, error);
        most = std::max(most, error);
        EXPECT_LT(std::abs(error - before), 0.0005) << "chunks would not follow each other";
      }
      before = error;
    }
    EXPECT_LT(most - least, 0.003) << "a slow wandering, which the drift correction smooths";
  }
}

TEST(SampleClockTest, JumpsWhenSamplesAreLostButNotForOneLateAnswer) {
  SteppingServer server(0, 0.001);
  SampleClock clock(rate);
  double time = 5001;
  const auto run = [&](double seconds) {
    for (const double end = time + seconds; time < end; time += 0.097) server.tell(clock, time);
    const double sample = server.sampleAt(time);
    return clock.timeOf(static_cast<std::int64_t>(sample)) - server.truthOf(sample);
  };
  EXPECT_NEAR(run(5), 0, 0.002);
  clock.observe(server.sampleAt(time), time + 0.4);
  EXPECT_NEAR(run(0.3), 0, 0.002);
  server.lose(0.25 * rate);
  EXPECT_NEAR(run(1), 0, 0.003);
}

TEST(CameraClockTest, BelievesStampsOfTheHostClockAndMovesOthers) {
  CameraClock host;
  EXPECT_DOUBLE_EQ(host.hostTimeOf(99.97, 100), 99.97);
  EXPECT_DOUBLE_EQ(host.hostTimeOf(100.003, 100.08), 100.003);

  CameraClock own;
  EXPECT_DOUBLE_EQ(own.hostTimeOf(0, 100.02), 100.02);
  EXPECT_NEAR(own.hostTimeOf(0.033, 100.033), 100.033, 1e-9) << "the first one came late";
  EXPECT_NEAR(own.hostTimeOf(0.066, 100.2), 100.066, 1e-9);
  EXPECT_NEAR(own.hostTimeOf(7000, 100.3), 100.3, 1e-9) << "the camera's clock was set";

  CameraClock none;
  EXPECT_DOUBLE_EQ(none.hostTimeOf(std::nullopt, 50), 50);
  EXPECT_GT(none.hostTimeOf(std::nullopt, 50), 50) << "times grow";
  EXPECT_DOUBLE_EQ(none.hostTimeOf(std::numeric_limits<double>::quiet_NaN(), 51), 51);
}

TEST(CameraModesTest, TakesTheSizeNextToTheWishThatIsFluent) {
  const std::vector<CameraMode> webcam{{"yuyv422", false, 640, 480, 30},  {"yuyv422", false, 1280, 720, 10},
                                       {"yuyv422", false, 1920, 1080, 5}, {"mjpeg", true, 640, 480, 30},
                                       {"mjpeg", true, 1280, 720, 30},    {"mjpeg", true, 1280, 720, 60},
                                       {"mjpeg", true, 1920, 1080, 30}};
  const auto is = [&](int width, int height) {
    const auto mode = bestMode(webcam, width, height);
    return mode ? mode->format + " " + std::to_string(mode->height) + " " + std::to_string(std::lround(mode->rate))
                : std::string("none");
  };
  EXPECT_EQ(is(1920, 1080), "mjpeg 1080 30");
  EXPECT_EQ(is(1280, 720), "mjpeg 720 30");
  EXPECT_EQ(is(640, 480), "yuyv422 480 30") << "what need not be decoded";
  EXPECT_EQ(is(0, 0), "yuyv422 480 30");
  EXPECT_EQ(is(8000, 6000), "mjpeg 1080 30");
  const std::vector<CameraMode> slow{{"yuyv422", false, 640, 480, 15}};
  EXPECT_EQ(bestMode(slow, 1920, 1080)->height, 480);
  EXPECT_FALSE(bestMode({}, 640, 480));
}

}  // namespace
}  // namespace vellora::test
