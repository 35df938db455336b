#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

#include "base/Log.h"
#include "capture/CaptureCountdown.h"
#include "capture/RepaintWait.h"
#include "capture/SelectionSession.h"
#include "capture/WindowPickerSession.h"
#include "support/FakeOverlayPresenter.h"
#include "support/FakeScreenCapture.h"
#include "support/PrintGeometry.h"
#include "support/VirtualRunLoop.h"

namespace vellora {
namespace {

using test::FakeOverlayPresenter;
using test::FakeScreenCapture;
using test::FakeScreens;
using test::VirtualRunLoop;
using Calls = std::vector<std::string>;

std::vector<QString>& logged() {
  static std::vector<QString> lines;
  return lines;
}

class OverlaySessionTest : public testing::Test {
 protected:
  OverlaySessionTest() {
    DisplayInfo left;
    left.id = 1;
    left.frame = {0, 0, 400, 300};
    DisplayInfo right = left;
    right.id = 2;
    right.frame = {400, 0, 800, 600};
    right.scale = 2;
    right.refreshRate = 120;
    setDisplays({left, right});
    WindowInfo window;
    window.id = 7;
    window.title = QStringLiteral("Notes");
    window.frame = {450, 50, 100, 80};
    desktop.content.windows = {window};
    screens.pointer = PixelPoint{10, 10};
    logged().clear();
    log::setSink([](log::Level, const QString& line) { logged().push_back(line); });
  }
  ~OverlaySessionTest() override { log::setSink(nullptr); }

  void setDisplays(const std::vector<DisplayInfo>& displays) {
    desktop.content.displays = displays;
    screens.list.clear();
    for (const DisplayInfo& display : displays) screens.list.push_back({display, display.frame});
  }

  OverlaySession::Completion completion() {
    return [this](std::optional<CapturedImage> image, CaptureOrigin from) {
      ++completions;
      picture = std::move(image);
      origin = from;
      if (session) error = session->error();
      session.reset();  // as an owner does
    };
  }

  void startArea() {
    session = std::make_unique<SelectionSession>(SelectionSession::Purpose::ImageCapture, services(), completion());
    session->begin();
  }
  void startPicker() {
    session = std::make_unique<WindowPickerSession>(services(), completion());
    session->begin();
  }
  OverlayServices services() { return {engine, screens, presenter, loop}; }

  void untilShown() {
    ASSERT_TRUE(loop.runUntil([this] { return presenter.isVisible(); }));
  }
  void drag(PixelPoint from, PixelPoint to) {
    presenter.input->pointerPressed({PointerButton::Primary, from, {}});
    presenter.input->pointerMoved(to, {});
    presenter.input->pointerReleased({PointerButton::Primary, to, {}});
  }
  bool untilDone() {
    return loop.runUntil([this] { return completions > 0; });
  }

  FakeScreenCapture desktop;
  FakeScreens screens;
  FakeOverlayPresenter presenter;
  VirtualRunLoop loop;
  CaptureEngine engine{desktop, loop};
  std::unique_ptr<OverlaySession> session;
  int completions = 0;
  std::optional<CapturedImage> picture;
  CaptureOrigin origin;
  std::optional<CaptureError> error;
};

TEST_F(OverlaySessionTest, CapturesTheRectangleTwoFramesAfterHiding) {
  struct Case {
    double refresh;
    double wait;
  };
  for (const Case& c : {Case{60, 2.0 / 60 + 0.008}, Case{120, 2.0 / 120 + 0.008}, Case{30, 2.0 / 60 + 0.008}}) {
    SCOPED_TRACE(c.refresh);
    completions = 0;
    presenter.calls.clear();
    auto displays = desktop.content.displays;
    displays[1].refreshRate = c.refresh;
    setDisplays(displays);
    startArea();
    untilShown();
    EXPECT_EQ(presenter.displays.size(), 2u);
    desktop.pictures = 0;
    drag({500, 100}, {619, 179});
    EXPECT_FALSE(presenter.isVisible());
    EXPECT_EQ(presenter.calls, (Calls{"prepare", "show", "hide"}));
    loop.advance(c.wait - 0.0001);
    EXPECT_EQ(desktop.pictures, 0);
    loop.advance(0.0002);
    ASSERT_TRUE(untilDone());
    EXPECT_EQ(completions, 1);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->scale, 2);
    EXPECT_EQ(picture->image.size(), (PixelSize{120, 80}));
    EXPECT_EQ(test::colourAt(picture->image, 0, 0), test::desktopColour(500, 100));
    EXPECT_EQ(test::colourAt(picture->image, 119, 79), test::desktopColour(619, 179));
    EXPECT_EQ(origin, (CaptureOrigin{{500, 100, 120, 80}, 2}));
    EXPECT_EQ(presenter.calls.back(), "close");
    EXPECT_TRUE(logged().empty());
  }
  EXPECT_NEAR(repaintWait(60), 0.0413, 0.0001);
  EXPECT_NEAR(repaintWait(120), 0.0247, 0.0001);
  EXPECT_NEAR(repaintWait(std::numeric_limits<double>::quiet_NaN()), 0.0413, 0.0001);
}

TEST_F(OverlaySessionTest, EndsOnceWithNothingWhereverItIsCancelled) {
  enum class At { Fetching, Selecting, Waiting, Capturing };
  for (const At stage : {At::Fetching, At::Selecting, At::Waiting, At::Capturing}) {
    SCOPED_TRACE(static_cast<int>(stage));
    completions = 0;
    startArea();
    if (stage >= At::Selecting) untilShown();
    if (stage >= At::Waiting) drag({10, 10}, {60, 60});
    if (stage == At::Capturing) loop.advance(0.05);
    if (completions == 0) session->cancel();
    EXPECT_EQ(completions, 1);
    EXPECT_TRUE(stage == At::Capturing || !picture);
    EXPECT_FALSE(presenter.isVisible());
    EXPECT_EQ(presenter.calls.back(), "close");
    EXPECT_EQ(loop.pendingTimers(), 0u);
    engine.waitForPictures();
    loop.advance(1);
    EXPECT_EQ(completions, 1);
  }
}

TEST_F(OverlaySessionTest, EscapeHidesAtOnceAndEndsAfterTheEvent) {
  startArea();
  untilShown();
  presenter.input->keyPressed(OverlayKey::Escape, {});
  EXPECT_FALSE(presenter.isVisible());
  EXPECT_EQ(completions, 0);
  presenter.input->keyPressed(OverlayKey::Escape, {});
  loop.runPosted();
  EXPECT_EQ(completions, 1);
  EXPECT_FALSE(picture);
  EXPECT_FALSE(error);
  EXPECT_TRUE(logged().empty());
}

TEST_F(OverlaySessionTest, GivesUpOnDisplaysThatGoAway) {
  // While selecting, and between the rectangle and the picture.
  startArea();
  untilShown();
  presenter.input->displaysChanged();
  loop.runPosted();
  EXPECT_EQ(completions, 1);
  EXPECT_EQ(error, CaptureError::NoDisplay);

  completions = 0;
  startArea();
  untilShown();
  drag({500, 100}, {619, 179});
  setDisplays({desktop.content.displays.front()});
  loop.advance(0.05);
  ASSERT_TRUE(untilDone());
  EXPECT_FALSE(picture);
  EXPECT_EQ(error, CaptureError::NoDisplay);
  EXPECT_EQ(origin, CaptureOrigin{});
  ASSERT_EQ(logged().size(), 2u);
  EXPECT_EQ(logged().back(), QStringLiteral("Vellora: area capture failed: no display"));
}

TEST_F(OverlaySessionTest, FollowsADisplayThatMovedAndFailsOnOneThatShrank) {
  startArea();
  untilShown();
  drag({500, 100}, {619, 179});
  auto displays = desktop.content.displays;
  displays[1].frame.x = 1000;
  setDisplays(displays);
  loop.advance(0.05);
  ASSERT_TRUE(untilDone());
  ASSERT_TRUE(picture);
  EXPECT_EQ(test::colourAt(picture->image, 0, 0), test::desktopColour(1100, 100));

  completions = 0;
  startArea();
  untilShown();
  drag({1100, 100}, {1219, 179});
  displays[1].frame = {1000, 0, 100, 80};
  setDisplays(displays);
  loop.advance(0.05);
  ASSERT_TRUE(untilDone());
  EXPECT_EQ(error, CaptureError::CropFailed);
}

TEST_F(OverlaySessionTest, EndsWhenTheDesktopTellsNothing) {
  desktop.refuses = ScreenCaptureError::NotAvailable;
  startArea();
  ASSERT_TRUE(untilDone());
  EXPECT_EQ(error, CaptureError::Failed);
  EXPECT_EQ(presenter.calls, (Calls{"prepare", "close"}));

  completions = 0;
  desktop.refuses.reset();
  setDisplays({});
  startArea();
  ASSERT_TRUE(untilDone());
  EXPECT_EQ(error, CaptureError::NoDisplay);
}

TEST_F(OverlaySessionTest, PicksAWindow) {
  startPicker();
  untilShown();
  EXPECT_FALSE(presenter.scene.clear);
  presenter.input->keyPressed(OverlayKey::Tab, {});
  EXPECT_EQ(presenter.scene.title, QStringLiteral("Notes"));
  presenter.input->keyPressed(OverlayKey::Return, {});
  loop.advance(0.0246);
  loop.advance(0.0002);
  ASSERT_TRUE(untilDone());
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->image.size(), (PixelSize{100, 80}));
  EXPECT_EQ(picture->scale, 2);
  EXPECT_EQ(origin, (CaptureOrigin{{450, 50, 100, 80}, 2, 7}));

  completions = 0;
  startPicker();
  untilShown();
  presenter.input->pointerPressed({PointerButton::Primary, {460, 60}, {}});
  presenter.input->pointerReleased({PointerButton::Primary, {460, 60}, {}});
  desktop.content.windows.clear();
  loop.advance(0.05);
  ASSERT_TRUE(untilDone());
  EXPECT_EQ(error, CaptureError::WindowGone);
  EXPECT_EQ(logged().back(), QStringLiteral("Vellora: window capture failed: window gone"));
}

TEST_F(OverlaySessionTest, DestroyingARunningSessionClosesItsOverlays) {
  startArea();
  untilShown();
  session.reset();
  EXPECT_EQ(presenter.calls.back(), "close");
  EXPECT_EQ(completions, 0);
}

TEST(CaptureCountdown, TicksDownAndFires) {
  VirtualRunLoop loop;
  auto countdown = std::make_unique<CaptureCountdown>(loop);
  std::vector<int> ticks;
  int fired = 0;
  const auto start = [&] {
    countdown->start([&](int remaining) { ticks.push_back(remaining); },
                     [&] {
                       ++fired;
                       countdown.reset();
                     });
  };
  start();
  loop.advance(1.5);
  countdown->cancel();
  loop.advance(5);
  EXPECT_EQ(fired, 0);
  EXPECT_EQ(ticks, (std::vector<int>{3, 2}));
  ticks.clear();
  start();
  loop.advance(2.999);
  EXPECT_EQ(fired, 0);
  loop.advance(0.002);
  EXPECT_EQ(fired, 1);
  EXPECT_EQ(ticks, (std::vector<int>{3, 2, 1}));
  EXPECT_FALSE(countdown);
  EXPECT_EQ(loop.pendingTimers(), 0u);
}

}  // namespace
}  // namespace vellora
