#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>
#include <chrono>
#include <thread>

#include "base/Json.h"
#include "record_editor/RecordPauseMarks.h"
#include "recording/RecordingController.h"
#include "support/FakeCameras.h"
#include "support/FakeMovies.h"
#include "support/FakePreferences.h"
#include "support/FakeScreenCapture.h"
#include "support/ScriptedScreen.h"
#include "support/ScriptedSound.h"
#include "support/VirtualRunLoop.h"

namespace vellora {
namespace {

/// Remembers what would be on the screen.
class ShownWindows : public RecordingPresenter {
 public:
  void showRegionPanel(const PixelRect& region, const DisplayInfo&, std::function<void(PixelRect)> changed,
                       std::function<void()> cancelled) override {
    regionPanel = region;
    onRegionChanged = std::move(changed);
    onRegionCancelled = std::move(cancelled);
  }
  void closeRegionPanel() override { regionPanel.reset(); }
  void showBorder(const PixelRect& frame, double radius, BorderLook look) override {
    border = frame;
    borderRadius = radius;
    borderLook = look;
  }
  void hideBorder() override { border.reset(); }
  void showBar(RecordingBarModel& model, const PixelRect&, const DisplayInfo&) override { bar = &model; }
  void hideBar() override { bar = nullptr; }
  void showCountdown(int number, const PixelRect&, const DisplayInfo&) override {
    countdown = number;
    counted.push_back(number);
  }
  void hideCountdown() override { countdown.reset(); }
  void showCamera(const DisplayInfo&) override { hasCamera = true; }
  void cameraFrame(std::shared_ptr<const CameraFrame>) override {}
  void hideCamera() override { hasCamera = false; }
  std::vector<WindowId> ownWindows() const override { return own; }
  void notify(RecordingNotice notice) override { notices.push_back(notice); }
  void startFailed(RecordingError error) override { failedStart = error; }

  bool isEmpty() const { return !regionPanel && !border && bar == nullptr && !countdown && !hasCamera; }

  std::optional<PixelRect> regionPanel, border;
  std::function<void(PixelRect)> onRegionChanged;
  std::function<void()> onRegionCancelled;
  double borderRadius = 0;
  BorderLook borderLook = BorderLook::armed;
  RecordingBarModel* bar = nullptr;
  std::optional<int> countdown;
  std::vector<int> counted;
  bool hasCamera = false;
  std::vector<WindowId> own{7};
  std::vector<RecordingNotice> notices;
  std::optional<RecordingError> failedStart;
};

class NoKeys : public EventTap {
 public:
  std::unique_ptr<Listening> listen(Callbacks) override { return nullptr; }
  bool isSecureInputEnabled() override { return false; }
};

using State = RecordingController::State;
using Look = RecordingPresenter::BorderLook;

class RecordingControllerTest : public testing::Test {
 protected:
  RecordingControllerTest() {
    capture_.content.displays = {display_};
    capture_.content.windows = {window_};
    cameras_.devices = {{QStringLiteral("cam"), QStringLiteral("Camera")}};
    controller_ = std::make_unique<RecordingController>(
        RecordingServices{loop_, capture_, screen_, keys_, movies_, files_},
        RecordingController::Devices{cameras_, sound_}, windows_, preferences_,
        RecordingController::Callbacks{.onStateChanged = [this](State state) { states_.push_back(state); },
                                       .openEditor = [this](const RecordProjectBundle& bundle) { opened_ = bundle; }});
  }

  QStringList bundles() const { return QDir(files_.projectsPath()).entryList(QDir::Dirs | QDir::NoDotAndDotDot); }
  /// Through the countdown until frames come.
  void startRecording() {
    controller_->start();
    loop_.advance(3);
    ASSERT_TRUE(loop_.runUntil([this] { return controller_->state() == State::recording; }));
    screen_.frame(loop_.hostTime());
  }
  /// The camera is opened and closed on another thread.
  bool opensCamera(bool open = true) {
    for (int i = 0; i < 5000 && cameras_.isOpen != open; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      loop_.runPosted();
    }
    return cameras_.isOpen == open;
  }
  bool closesCamera() { return opensCamera(false); }
  void stopRecording() {
    controller_->stop();
    ASSERT_TRUE(loop_.runUntil([this] { return controller_->state() == State::idle; }));
  }

  QTemporaryDir home_;
  RecordingFiles files_{test::FakeFileNames(home_.path())};
  test::VirtualRunLoop loop_;
  test::FakeScreenCapture capture_;
  test::ScriptedScreen screen_;
  test::FakeMovies movies_;
  test::FakeCameras cameras_;
  test::ScriptedSound sound_;
  test::FakePreferences preferences_;
  NoKeys keys_;
  ShownWindows windows_;
  const DisplayInfo display_{.id = 3, .frame = {1920, 0, 3840, 2160}, .scale = 2};
  const WindowInfo window_{.id = 40, .frame = {2000, 100, 801, 601}};
  std::vector<State> states_;
  std::optional<RecordProjectBundle> opened_;
  std::unique_ptr<RecordingController> controller_;
};

TEST_F(RecordingControllerTest, recordsARegionFromCommandToProject) {
  controller_->begin(Rect{{10, 20}, {300.5, 200}}, display_);
  EXPECT_EQ(windows_.regionPanel, (PixelRect{1940, 40, 601, 400}));
  windows_.onRegionChanged({2000, 200, 640, 480});
  controller_->begin(display_);  // ignored
  controller_->start();
  EXPECT_EQ(windows_.border, (PixelRect{1996, 196, 648, 488}));
  EXPECT_FALSE(windows_.regionPanel);
  loop_.advance(2.9);
  EXPECT_EQ(windows_.counted, (std::vector<int>{3, 2, 1}));
  EXPECT_TRUE(bundles().isEmpty());
  loop_.advance(0.1);
  ASSERT_TRUE(loop_.runUntil([this] { return controller_->state() == State::recording; }));
  EXPECT_EQ(screen_.lastConfiguration.area, (PixelRect{2000, 200, 640, 480}));
  EXPECT_EQ(screen_.lastConfiguration.leftOut, std::vector<WindowId>{7});
  EXPECT_EQ(windows_.borderLook, Look::recording);

  screen_.frame(loop_.hostTime());
  windows_.own = {7, 8};
  loop_.advance(2);
  EXPECT_EQ(screen_.leftOut, (std::vector<WindowId>{7, 8}));
  EXPECT_EQ(windows_.bar->elapsed, 2);
  controller_->pause();
  EXPECT_EQ(windows_.borderLook, Look::paused);
  loop_.advance(10);
  EXPECT_EQ(windows_.bar->elapsed, 2);
  controller_->resume();
  loop_.advance(1);
  EXPECT_EQ(windows_.bar->elapsed, 3);
  stopRecording();

  EXPECT_TRUE(windows_.isEmpty());
  EXPECT_EQ(states_, (std::vector<State>{State::preparing, State::arming, State::recording, State::paused,
                                         State::recording, State::idle}));
  ASSERT_TRUE(opened_);
  EXPECT_EQ(RecordPauseMarks::load(opened_->path()), std::vector<double>{2});
  EXPECT_EQ(opened_->load().name, opened_->directoryName());
  EXPECT_TRUE(QFile::exists(opened_->file(QStringLiteral("AGENTS.md"))));
  const auto& movie = *movies_.movies[opened_->file(QStringLiteral("screen.mov"))];
  EXPECT_EQ(movie.end, 3);
  EXPECT_EQ(movie.settings.video.width, 640);
  EXPECT_EQ(loop_.pendingTimers(), 0U);
}

TEST_F(RecordingControllerTest, followsAWindowWithItsBorder) {
  controller_->begin(window_, display_, 8);
  EXPECT_EQ(windows_.border, (PixelRect{1996, 96, 809, 609}));
  EXPECT_EQ(windows_.borderRadius, 10);
  const auto follow = [this](auto condition) {
    loop_.advance(RecordingController::windowFollowInterval);
    return loop_.runUntil(condition);
  };
  capture_.content.windows[0].frame = {2100, 100, 500, 400};
  EXPECT_TRUE(follow([this] { return windows_.border == PixelRect{2096, 96, 508, 408}; }));
  capture_.content.windows.clear();
  EXPECT_TRUE(follow([this] { return !windows_.border; }));
  controller_->start();
  loop_.advance(3);
  ASSERT_TRUE(loop_.runUntil([this] { return controller_->state() == State::idle; }));
  EXPECT_EQ(windows_.failedStart, RecordingError::windowNotFound);
  EXPECT_TRUE(windows_.isEmpty());
  EXPECT_TRUE(bundles().isEmpty());
}

TEST_F(RecordingControllerTest, leavesNothingBehindWhenItDoesNotBegin) {
  controller_->begin(display_);
  controller_->start();
  loop_.advance(1.5);
  controller_->stop();
  EXPECT_EQ(controller_->state(), State::idle);
  loop_.advance(5);
  EXPECT_TRUE(windows_.isEmpty());

  // Stopped while the recording is being set up, or before its first frame.
  controller_->begin(display_);
  controller_->start();
  loop_.advance(3);
  stopRecording();
  loop_.runPosted();
  EXPECT_FALSE(screen_.isStreaming);
  EXPECT_TRUE(bundles().isEmpty());

  movies_.isRefused = true;
  controller_->begin(display_);
  controller_->start();
  loop_.advance(3);
  ASSERT_TRUE(loop_.runUntil([this] { return controller_->state() == State::idle; }));
  EXPECT_EQ(windows_.failedStart, RecordingError::writerSetupFailed);
  EXPECT_TRUE(bundles().isEmpty());
}

TEST_F(RecordingControllerTest, keepsWhatWasRecordedWhenTheDisplayGoes) {
  controller_->begin(display_);
  EXPECT_EQ(windows_.border, (PixelRect{1924, 4, 3832, 2152}));
  startRecording();
  loop_.advance(5);
  screen_.stopByItself(ScreenCaptureError::NoDisplay);
  ASSERT_TRUE(loop_.runUntil([this] { return controller_->state() == State::idle; }));
  EXPECT_TRUE(opened_);

  opened_.reset();
  controller_->begin(display_);
  startRecording();
  movies_.movies.rbegin()->second->finishFails = true;
  stopRecording();
  EXPECT_EQ(windows_.notices, (std::vector{RecordingNotice::stoppedByItself, RecordingNotice::recordingFailed}));
  EXPECT_FALSE(opened_);
  EXPECT_EQ(bundles().size(), 1);
}

TEST_F(RecordingControllerTest, writesTheCameraOnTheSameAxis) {
  preferences_.values[QStringLiteral("record.cameraDeviceID")] = QStringLiteral("cam");
  controller_->begin(display_);
  EXPECT_TRUE(loop_.runUntil([this] { return windows_.hasCamera; }));
  cameras_.frame(0.5);
  startRecording();
  const double first = loop_.hostTime();
  loop_.runUntil([this] { return !movies_.isEmpty(); });
  cameras_.frame(first + 0.25);
  loop_.advance(1);
  cameras_.frame(first + 1);
  stopRecording();
  ASSERT_TRUE(opened_);
  const auto camera = movies_.movies[opened_->file(QStringLiteral("camera.mov"))];
  ASSERT_TRUE(camera);
  EXPECT_EQ(camera->videoTimes, (std::vector<double>{0, 0.25, 1}));
  EXPECT_EQ(camera->end, 1);
  EXPECT_TRUE(closesCamera());

  // One that is unplugged leaves what it gave so far, and the recording goes on.
  opened_.reset();
  controller_->prewarmCamera();
  ASSERT_TRUE(opensCamera());
  cameras_.frame(loop_.hostTime());
  EXPECT_FALSE(windows_.hasCamera);
  controller_->begin(display_);
  EXPECT_TRUE(windows_.hasCamera) << "opened beforehand";
  startRecording();
  cameras_.unplug();
  loop_.advance(2);
  EXPECT_FALSE(windows_.hasCamera);
  EXPECT_EQ(windows_.notices, std::vector{RecordingNotice::cameraLost});
  EXPECT_EQ(controller_->state(), State::recording);
  stopRecording();
  ASSERT_TRUE(opened_);
  EXPECT_EQ(movies_.movies[opened_->file(QStringLiteral("screen.mov"))]->end, 2);
  EXPECT_TRUE(movies_.movies.contains(opened_->file(QStringLiteral("camera.mov"))));
  controller_->begin(display_);
  ASSERT_TRUE(loop_.runUntil([this] { return windows_.hasCamera; }));
  cameras_.unplug();
  loop_.runPosted();
  EXPECT_FALSE(windows_.bar->selectedCameraID);
  EXPECT_TRUE(closesCamera());
  controller_->stop();

  // One that another program has is told of, and given up.
  cameras_.devices.clear();
  windows_.notices.clear();
  controller_->begin(display_);
  EXPECT_TRUE(loop_.runUntil([this] { return !windows_.bar->selectedCameraID; }));
  EXPECT_EQ(windows_.notices, std::vector{RecordingNotice::cameraUnavailable});
  controller_->stop();
  cameras_.devices = {{QStringLiteral("cam"), QStringLiteral("Camera")}};

  // Another camera chosen in the bar is remembered, and off is too.
  controller_->begin(display_);
  ASSERT_TRUE(loop_.runUntil([this] { return windows_.hasCamera; }));
  windows_.bar->onSelectCamera(std::nullopt);
  EXPECT_FALSE(windows_.hasCamera);
  EXPECT_FALSE(preferences_.contains(QStringLiteral("record.cameraDeviceID")));
}

TEST_F(RecordingControllerTest, recordsAMicrophoneAgainThatIsBack) {
  const QString mic = QStringLiteral("mic");
  const auto plugIn = [&] { sound_.setDevices({{mic, QStringLiteral("Microphone")}}); };
  plugIn();
  preferences_.values[QStringLiteral("record.micDeviceID")] = mic;
  controller_->begin(display_);
  ASSERT_TRUE(loop_.runUntil([&] { return sound_.isOpen(mic); }));
  startRecording();
  const auto playSecond = [&] {
    loop_.advance(1);
    sound_.play(mic, loop_.hostTime(), 1);
  };
  playSecond();
  sound_.unplug(mic);
  loop_.advance(4);
  ASSERT_TRUE(loop_.runUntil([&] { return !sound_.isOpen(mic); }));
  plugIn();
  const auto notices = [&](std::size_t count) {
    for (int i = 0; i < 5000 && windows_.notices.size() < count; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      loop_.advance(0.02);
    }
  };
  notices(2);
  playSecond();
  sound_.unplug(mic);
  plugIn();
  notices(4);
  stopRecording();
  using enum RecordingNotice;
  EXPECT_EQ(windows_.notices, (std::vector{micLost, micReturned, micLost, micReturned}));
  const auto movie = movies_.movies.begin()->second;
  EXPECT_NEAR(static_cast<double>(movie->soundSamples[0]), movie->end.value_or(0) * 48000, 48);
  QFile reportFile(opened_->file(QStringLiteral("report.json")));
  ASSERT_TRUE(reportFile.open(QIODevice::ReadOnly));
  const auto report = json::parse(reportFile.readAll());
  EXPECT_EQ((*report)["sounds"][0]["lost"], false);
  EXPECT_GT((*report)["sounds"][0]["gapSeconds"], 3.5);
}

TEST_F(RecordingControllerTest, writesSoundFromTheFirstFrameOnWithoutPauses) {
  const QString mic = QStringLiteral("mic");
  sound_.setDevices({{mic, QStringLiteral("Microphone")}});
  preferences_.values[QStringLiteral("record.micDeviceID")] = mic;
  controller_->begin(display_);
  windows_.bar->onSelectSystemSound(true);
  ASSERT_TRUE(loop_.runUntil([&] { return sound_.isOpen(mic) && sound_.isOpen(AudioCapture::systemSound); }));
  ASSERT_TRUE(loop_.runUntil([this] { return windows_.bar->micDevices.size() == 1; }));
  sound_.play(mic, loop_.hostTime(), 0.1);
  ASSERT_TRUE(loop_.runUntil([this] { return windows_.bar->micLevel > 0.5; }));

  startRecording();
  ASSERT_TRUE(loop_.runUntil([this] { return !movies_.isEmpty(); }));
  const auto movie = movies_.movies.begin()->second;
  ASSERT_EQ(movie->settings.sounds.size(), 2U);
  EXPECT_EQ(movie->settings.sounds[0].channels, 1);
  EXPECT_EQ(movie->settings.sounds[1].channels, 2);
  const auto playSecond = [&] {
    for (int i = 0; i < 10; ++i) {
      loop_.advance(0.1);
      sound_.play(mic, loop_.hostTime(), 0.1);
    }
  };
  playSecond();
  controller_->pause();
  playSecond();
  controller_->resume();
  playSecond();
  sound_.unplug(mic);
  loop_.advance(1);
  stopRecording();
  EXPECT_EQ(windows_.notices, std::vector{RecordingNotice::micLost});
  EXPECT_NEAR(movie->end.value_or(0), 3, 1e-6);
  EXPECT_NEAR(static_cast<double>(movie->soundSamples[0]), 3 * 48000, 48) << "with silence in place of what was lost";
  EXPECT_NEAR(static_cast<double>(movie->soundSamples[1]), 3 * 2 * 48000, 96) << "all of it silence";
  ASSERT_TRUE(opened_);
  QFile reportFile(opened_->file(QStringLiteral("report.json")));
  ASSERT_TRUE(reportFile.open(QIODevice::ReadOnly));
  const auto report = json::parse(reportFile.readAll());
  ASSERT_TRUE(report);
  EXPECT_EQ((*report)["sounds"][0]["source"], "microphone");
  EXPECT_EQ((*report)["sounds"][0]["lost"], true);
  EXPECT_EQ((*report)["sounds"][1]["lost"], false);
  EXPECT_EQ((*report)["frames"]["written"], 1);
  EXPECT_FALSE(sound_.isOpen(mic));
}

TEST_F(RecordingControllerTest, takesAMicrophoneWhenItIsThere) {
  const QString mic = QStringLiteral("mic");
  sound_.setDevices({{mic, QStringLiteral("Microphone")}});
  preferences_.values[QStringLiteral("record.micDeviceID")] = mic;

  // One that goes before the recording is no part of it, and is taken again when it comes back.
  controller_->begin(display_);
  ASSERT_TRUE(loop_.runUntil([&] { return sound_.isOpen(mic); }));
  sound_.setDevices({});
  ASSERT_TRUE(loop_.runUntil([&] { return windows_.bar->micDevices.empty(); }));
  sound_.unplug(mic);
  ASSERT_TRUE(loop_.runUntil([&] { return !windows_.bar->selectedMicID && !sound_.isOpen(mic); }));
  EXPECT_EQ(windows_.notices.back(), RecordingNotice::micUnavailable);
  sound_.setDevices({{mic, QStringLiteral("Microphone")}});
  ASSERT_TRUE(loop_.runUntil([&] { return windows_.bar->selectedMicID == mic && sound_.isOpen(mic); }));
  controller_->stop();
  EXPECT_FALSE(sound_.isWatched());

  // A microphone that is not there is not forgotten, and the recording goes on without it.
  sound_.setRefusal(AudioCaptureError::failed);
  controller_->begin(display_);
  ASSERT_TRUE(loop_.runUntil([this] { return !windows_.bar->selectedMicID; }));
  EXPECT_EQ(windows_.notices.back(), RecordingNotice::micUnavailable);
  EXPECT_EQ(preferences_.value(QStringLiteral("record.micDeviceID")).toString(), mic);
}

}  // namespace
}  // namespace vellora
