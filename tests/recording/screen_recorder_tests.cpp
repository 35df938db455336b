#include <gtest/gtest.h>
#include <QTemporaryDir>

#include <atomic>

#include "recording/ScreenRecorder.h"
#include "support/FakeMovies.h"
#include "support/ScriptedScreen.h"
#include "support/VirtualRunLoop.h"

namespace vellora {
namespace {

TEST(RecordedTimeTest, takesPausesOut) {
  RecordedTime time;
  EXPECT_EQ(time.retimed(5), 5);
  time.pause(10);
  time.pause(12);
  EXPECT_EQ(time.retimed(9.5), 9.5);
  EXPECT_EQ(time.retimed(10), std::nullopt);
  EXPECT_EQ(time.at(15), 10);
  time.resume(20);
  time.resume(25);
  EXPECT_EQ(time.retimed(19.99), std::nullopt);
  EXPECT_EQ(time.retimed(20), 10);
  // A clock that goes back makes no negative pause.
  time.pause(30);
  time.resume(29);
  EXPECT_EQ(time.pauseOffset(), 10);
}

class ScreenRecorderTest : public testing::Test {
 protected:
  test::VirtualRunLoop loop_;
  test::ScriptedScreen screen_;
  test::FakeMovies movies_;
  std::vector<double> anchors_, pauses_, resumes_;
  std::optional<ScreenCaptureError> stopped_;
  std::unique_ptr<ScreenRecorder> recorder_ = std::make_unique<ScreenRecorder>(
      loop_, ScreenRecorder::Callbacks{.onSessionAnchor = [this](double at) { anchors_.push_back(at); },
                                       .onPauseBoundary = [this](double at) { pauses_.push_back(at); },
                                       .onResumeBoundary = [this](double at) { resumes_.push_back(at); },
                                       .onStreamStopped = [this](ScreenCaptureError error) { stopped_ = error; }});

  test::WrittenMovie& start() {
    auto movie = movies_.create("screen.mov", {}, {});
    EXPECT_TRUE(recorder_->start(screen_, {.area = {0, 0, 640, 480}}, std::move(*movie)));
    return *movies_.movies[QStringLiteral("screen.mov")];
  }
  Result<ScreenRecorder::Outcome, RecordingError> finish() {
    std::optional<Result<ScreenRecorder::Outcome, RecordingError>> result;
    recorder_->finish([&](Result<ScreenRecorder::Outcome, RecordingError> each) { result = std::move(each); });
    loop_.runUntil([&] { return result.has_value(); });
    return *result;
  }
  void key(const QStringList& keys, double linger = 0) { recorder_->recordKeyboard(keys, loop_.hostTime(), linger); }
};

TEST_F(ScreenRecorderTest, closesTheGapOfAPause) {
  const auto& movie = start();
  loop_.advance(100);
  screen_.frame(100);
  screen_.frame(101, false);
  screen_.frame(102);
  loop_.advance(3);
  recorder_->pause();
  screen_.frame(102.9);  // taken before the pause, came after it
  screen_.frame(103);
  screen_.frame(110);
  loop_.advance(10);
  recorder_->resume();
  EXPECT_EQ(screen_.requests, 1);
  screen_.frame(112.9);
  screen_.frame(113);
  screen_.frame(113);
  screen_.frame(114);
  loop_.advance(2);
  const auto outcome = finish();
  ASSERT_TRUE(outcome);
  EXPECT_EQ(movie.videoTimes, (std::vector<double>{0, 2, 102.9 - 100, 3, 4}));
  EXPECT_EQ(movie.end, 5);
  // Numbers tell which pictures of the stream were left out.
  EXPECT_EQ(movie.numbers, (std::vector<std::uint64_t>{1, 3, 4, 8, 10}));
  EXPECT_EQ(outcome->pauseMarks, std::vector<double>{3});
  EXPECT_EQ(anchors_, std::vector<double>{100});
  EXPECT_EQ(pauses_, std::vector<double>{103});
  EXPECT_EQ(resumes_, std::vector<double>{113});
  EXPECT_EQ(outcome->report.written, 5U);
}

TEST_F(ScreenRecorderTest, keepsKeysOnTheRecordedAxis) {
  start();
  key({QStringLiteral("A")});  // before the first frame
  screen_.frame(0);
  loop_.advance(1);
  key({QStringLiteral("B")});
  loop_.advance(1);
  recorder_->pause();  // lets the held key go
  loop_.advance(1);
  key({QStringLiteral("C")});
  loop_.advance(7);
  recorder_->resume();
  loop_.advance(1);
  key({QStringLiteral("D")});
  key({}, 0.85);
  loop_.advance(1);
  recorder_->pause();
  loop_.advance(50);
  const auto outcome = finish();
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->keyCues,
            (std::vector<RecordedKeyCue>{{1, 2, {QStringLiteral("B")}}, {3, 3.85, {QStringLiteral("D")}}}));
  EXPECT_EQ(outcome->pauseMarks, (std::vector<double>{2, 4}));
  EXPECT_EQ(outcome->report.duration, 4);  // it ended in a pause
}

TEST_F(ScreenRecorderTest, writesThePointersWayOnTheRecordedAxis) {
  const QTemporaryDir bundle;
  recorder_->setPointerTrack(*PointerTrackWriter::create(bundle.path()));
  start();
  screen_.pointer({9.9, {5, 6}, 77});  // told before the first frame, which shows it
  screen_.frame(10);
  screen_.pointer({11, {7, 8}, 77, 1});
  loop_.advance(12);
  recorder_->pause();
  screen_.pointer({13, {100, 100}, 88, 1});
  screen_.pointer({14, {200, 100}, 88, 4});
  loop_.advance(8);
  recorder_->resume();
  screen_.pointer({21, {200, 101}, 88, 0});
  std::atomic<bool> isKept = false;
  recorder_->marks([&](const auto&, const auto&) { isKept = true; });
  ASSERT_TRUE(loop_.runUntil([&] {
    loop_.post([] {});
    return isKept.load();
  }));
  using Button = PointerEntry::Button;
  const std::vector<PointerEntry> expected{{0, 5, 6, 77, std::nullopt},
                                           {1, 7, 8, std::nullopt, Button{0, true}},
                                           {2, 200, 100, 88, Button{0, false}},
                                           {2, 200, 100, std::nullopt, Button{2, true}},
                                           {3, 200, 101, std::nullopt, Button{2, false}}};
  EXPECT_EQ(PointerTrack::load(bundle.path()), expected) << "as a kill would leave it";
}

TEST_F(ScreenRecorderTest, dropsFramesForABusyEncoderWithoutWaiting) {
  start().capacity = 2;
  for (int i = 0; i < 5; ++i) screen_.frame(i);
  const auto outcome = finish();
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->report.written, 2U);
  EXPECT_EQ(outcome->report.notReady, 3U);
}

TEST_F(ScreenRecorderTest, countsAFrameThatComesWhileItEnds) {
  start();
  screen_.frame(1);
  screen_.whileStopping = [this] { screen_.frame(2); };
  const auto outcome = finish();
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->report.written, 2U);
  EXPECT_EQ(outcome->report.stream.captured, 2U);
}

TEST_F(ScreenRecorderTest, tellsWhatFails) {
  screen_.refusal = ScreenCaptureError::WindowGone;
  auto movie = movies_.create("a", {}, {});
  EXPECT_EQ(recorder_->start(screen_, {.window = 7}, std::move(*movie)).error(), RecordingError::windowNotFound);
  screen_.refusal.reset();
  auto& written = start();
  EXPECT_EQ(finish().error(), RecordingError::writeFailed);  // not one frame
  EXPECT_TRUE(written.videoTimes.empty());

  recorder_ = std::make_unique<ScreenRecorder>(
      loop_, ScreenRecorder::Callbacks{.onStreamStopped = [this](ScreenCaptureError error) { stopped_ = error; }});
  auto& failing = start();
  screen_.frame(0);
  failing.finishFails = true;
  screen_.stopByItself(ScreenCaptureError::NoDisplay);
  EXPECT_EQ(finish().error(), RecordingError::writeFailed);
  EXPECT_EQ(stopped_, ScreenCaptureError::NoDisplay);
}

}  // namespace
}  // namespace vellora
