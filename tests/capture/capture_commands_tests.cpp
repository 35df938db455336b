#include "capture/CaptureCommands.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "support/FakeOverlayPresenter.h"
#include "support/FakePasteboard.h"
#include "support/FakePreferences.h"
#include "support/FakeScreenCapture.h"
#include "support/VirtualRunLoop.h"

namespace vellora {
namespace {

using End = CaptureResult::End;
using Kind = CaptureRequest::Kind;

class FakeAccess final : public AccessService {
 public:
  std::set<Access> granted{Access::ScreenRecording, Access::Accessibility};
  QStringList events;
  bool isGranted(Access access) override { return granted.contains(access); }
  void request(Access access) override {
    events << (access == Access::ScreenRecording ? QStringLiteral("ask screen") : QStringLiteral("ask input"));
  }
  void openPrivacyPage(Access) override { events << QStringLiteral("open page"); }
};

class CaptureCommandsTest : public testing::Test {
 protected:
  CaptureCommandsTest() {
    const DisplayInfo left{1, QStringLiteral("LEFT"), {0, 0, 200, 100}, 1, 60, true};
    const DisplayInfo right{2, QStringLiteral("RIGHT"), {200, 0, 400, 300}, 2, 120, false};
    service.content.displays = {left, right};
    service.content.windows = {{7, QStringLiteral("Window"), QStringLiteral("App"), 1, {210, 10, 50, 40}}};
    screens.list = {{left, left.frame}, {right, right.frame}};
    screens.pointer = PixelPoint{300, 50};
    QDir().mkpath(fileNames.desktop());
    preferences.setValue(QStringLiteral("afterCaptureActions"), 4);
    commands.setCompletion(completion);
    commands.setFailureHandler([this](CaptureError error) { failures.push_back(error); });
  }

  void start(const CaptureRequest& request) {
    result.reset();
    commands.start(request, [this](const CaptureResult& ended) { result = ended; });
  }
  bool waitForResult() {
    runLoop.advance(0.05);
    return runLoop.runUntil([this] { return result.has_value(); });
  }

  QTemporaryDir root;
  test::FakeFileNames fileNames{root.path()};
  test::FakePreferences preferences;
  Settings settings{preferences, fileNames};
  test::VirtualRunLoop runLoop;
  test::FakePasteboard pasteboard;
  test::FakeScreenCapture service;
  test::FakeScreens screens;
  test::FakeOverlayPresenter presenter;
  FakeAccess access;
  int alerts = 0;
  std::vector<int> countdown;
  std::vector<CaptureError> failures;
  std::optional<CaptureResult> result;
  ClipboardFiles clipboardFiles{fileNames.applicationSupport()};
  CaptureOutput output{runLoop, pasteboard, clipboardFiles};
  SessionStore store{SessionStore::defaultDirectory(fileNames.applicationSupport()), runLoop,
                     [](const QString&) { return std::nullopt; }};
  CaptureEngine engine{service, runLoop};
  AccessGate gate{access, [this](Access, const std::function<void()>& openPage) {
                    ++alerts;
                    openPage();
                  }};
  CaptureCommands commands{
      {engine, screens, presenter, runLoop},
      gate,
      {[this](int remaining) { countdown.push_back(remaining); }, [this] { countdown.push_back(0); }}};
  CaptureCompletion completion{
      settings, store, output, runLoop, {}, [this] { commands.cancelSessions(); }, [](const CaptureOutcome&) {}};
};

TEST_F(CaptureCommandsTest, CapturesWhatTheRequestNames) {
  start({.kind = Kind::FullScreen});
  ASSERT_TRUE(waitForResult());
  EXPECT_EQ(result->end, End::Done);
  EXPECT_EQ(result->size, (PixelSize{400, 300})) << "the display under the pointer";
  EXPECT_EQ(result->scale, 2);
  EXPECT_TRUE(result->outcome.saved);

  start({.kind = Kind::FullScreen, .display = 1});
  ASSERT_TRUE(waitForResult());
  EXPECT_EQ(result->size, (PixelSize{200, 100}));

  start({.kind = Kind::Area, .region = PixelRect{190, 5, 20, 10}});
  ASSERT_TRUE(waitForResult());
  EXPECT_EQ(result->origin.rect, (PixelRect{190, 5, 20, 10}));

  start({.kind = Kind::Window, .window = 7});
  ASSERT_TRUE(waitForResult());
  EXPECT_EQ(result->size, (PixelSize{50, 40}));
}

TEST_F(CaptureCommandsTest, FailsClearlyWhenTheTargetIsGone) {
  const std::pair<CaptureRequest, CaptureError> cases[] = {
      {{.kind = Kind::FullScreen, .display = 9}, CaptureError::NoDisplay},
      {{.kind = Kind::Area, .region = PixelRect{5000, 0, 10, 10}}, CaptureError::NoDisplay},
      {{.kind = Kind::Window, .window = 8}, CaptureError::WindowGone}};
  for (const auto& [request, error] : cases) {
    start(request);
    ASSERT_TRUE(waitForResult());
    EXPECT_EQ(result->end, End::Failed);
    EXPECT_EQ(result->error, error);
    EXPECT_FALSE(commands.isSessionActive());
  }
  EXPECT_EQ(failures.size(), 3u);
}

TEST_F(CaptureCommandsTest, KeepsToOneCaptureAtATime) {
  commands.captureArea();
  ASSERT_TRUE(runLoop.runUntil([this] { return presenter.isVisible(); }));
  start({.kind = Kind::FullScreen});
  EXPECT_EQ(result->end, End::Busy);
  commands.captureFullscreenDelayed();
  EXPECT_TRUE(countdown.empty());
  commands.cancelSessions();
  EXPECT_FALSE(presenter.isVisible());
  EXPECT_FALSE(commands.isSessionActive());
}

TEST_F(CaptureCommandsTest, HandsAnAreaToWhoeverAskedForIt) {
  std::vector<std::optional<PixelSize>> received;
  const auto ask = [&] {
    commands.captureAreaFor([&](const std::optional<CapturedImage>& picture) {
      received.push_back(picture ? std::optional(picture->image.size()) : std::nullopt);
    });
  };
  ask();
  ASSERT_TRUE(runLoop.runUntil([this] { return presenter.isVisible(); }));
  ask();  // while the first one is under way
  EXPECT_EQ(received, (std::vector<std::optional<PixelSize>>{std::nullopt}));
  presenter.input->pointerPressed({.position = {210, 20}});
  presenter.input->pointerMoved({250, 50}, {});
  presenter.input->pointerReleased({.position = {250, 50}});
  runLoop.advance(1);
  ASSERT_TRUE(runLoop.runUntil([&] { return received.size() == 2; }));
  EXPECT_EQ(received.back(), (PixelSize{41, 31}));
  EXPECT_TRUE(store.items().empty());
  EXPECT_TRUE(pasteboard.copies.empty());

  ask();
  commands.cancelSessions();
  EXPECT_EQ(received.size(), 3u);
  EXPECT_EQ(received.back(), std::nullopt);
}

TEST_F(CaptureCommandsTest, CountsDownAndCanBeCancelled) {
  start({.kind = Kind::FullScreen, .delay = 3});
  runLoop.advance(2.5);
  EXPECT_EQ(countdown, (std::vector{3, 2, 1}));
  commands.cancelSessions();
  EXPECT_EQ(result->end, End::Cancelled);
  EXPECT_EQ(countdown.back(), 0);
  EXPECT_EQ(runLoop.pendingTimers(), 0u);

  start({.kind = Kind::FullScreen, .delay = 3});
  runLoop.advance(3);
  ASSERT_TRUE(waitForResult());
  EXPECT_EQ(result->end, End::Done);
}

TEST_F(CaptureCommandsTest, StopsWithoutTheDesktopsLeave) {
  access.granted = {Access::Accessibility};
  start({.kind = Kind::FullScreen});
  EXPECT_EQ(result->end, End::NotAllowed);
  EXPECT_EQ(access.events, (QStringList{QStringLiteral("ask screen"), QStringLiteral("open page")}));

  access.granted = {Access::ScreenRecording};
  start({.kind = Kind::Area});
  EXPECT_EQ(result->end, End::NotAllowed);
  EXPECT_EQ(alerts, 2);
  start({.kind = Kind::Window, .window = 7});
  EXPECT_TRUE(waitForResult()) << "a window needs no leave to follow the pointer";
}

TEST(CaptureRequestText, SurvivesTheWayAndRefusesNonsense) {
  CaptureRequest request{.kind = Kind::Area,
                         .region = PixelRect{-5, 0, 10, 20},
                         .delay = 1.5,
                         .copy = true,
                         .outputFile = QStringLiteral("/tmp/ä.png")};
  EXPECT_EQ(decodeCaptureRequest(encode(request)), request);
  request = {.kind = Kind::Window, .window = 0xFFFFFFFF, .display = 0};
  EXPECT_EQ(decodeCaptureRequest(encode(request)), request);
  for (const char* text :
       {"", "[]", "{}", R"({"kind":"moon"})", R"({"kind":"area","region":[0,0,0,5]})",
        R"({"kind":"area","region":[0,0,99999999,5]})", R"({"kind":"window","window":-1})",
        R"({"kind":"fullscreen","delay":-1})", R"({"kind":"fullscreen","delay":1e9})",
        R"({"kind":"fullscreen","copy":1})", R"({"kind":"fullscreen","outputFile":"relative.png"})"}) {
    EXPECT_FALSE(decodeCaptureRequest(text)) << text;
  }
}

}  // namespace
}  // namespace vellora
