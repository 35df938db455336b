#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>

#include <thread>

#include "platform/linux/x11/X11ScreenCapture.h"
#include "platform/linux/x11/X11ScreenStill.h"
#include "support/XClient.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

using Pixels = std::vector<std::uint32_t>;

class X11ScreenStillTests : public testing::Test {
 protected:
  void SetUp() override {
    server = XServer::start({.size = {1000, 600}});
    ASSERT_TRUE(server);
    server->setMonitors({{"LEFT", {0, 0, 400, 600}}, {"RIGHT", {400, 0, 600, 600}}});
    client = std::make_unique<XClient>(*server);
    X11ScreenCapture capture(server->display());
    displays = capture.shareableContent()->displays;
    ASSERT_EQ(displays.size(), 2U);
    left = displays[0];
    right = displays[1];
    stills = std::make_unique<X11ScreenStills>(server->display());
  }

  /// Asks for the ground and runs the event loop until the answer is there.
  std::optional<bool> paintBehind(ScreenStill& still, std::uint64_t window, DisplayId display, double brightness) {
    std::optional<bool> answer;
    still.paintBehind(window, display, brightness, [&](bool painted) { answer = painted; });
    QElapsedTimer clock;
    clock.start();
    while (!answer && clock.elapsed() < 5000) {
      QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    }
    return answer;
  }

  std::unique_ptr<XServer> server;
  std::unique_ptr<XClient> client;
  std::vector<DisplayInfo> displays;
  DisplayInfo left, right;
  std::unique_ptr<X11ScreenStills> stills;
};

TEST_F(X11ScreenStillTests, AWindowComesUpWithTheDimmedPictureOfThatMoment) {
  client->fill(client->root(), {0, 0, 1000, 600}, 0x6496C8);
  const TestWindow window(*server, {.frame = {500, 100, 100, 100}, .colour = 0xFFFFFF});
  const auto still = stills->freeze(displays);
  ASSERT_TRUE(still);
  const TestWindow later(*server, {.frame = {700, 100, 100, 100}, .colour = 0xFF0000});

  TestWindow overlay(*server, {.frame = right.frame, .unmanaged = true, .mapped = false});
  EXPECT_EQ(paintBehind(*still, overlay.id(), right.id, 0.4), true);
  overlay.map();
  EXPECT_EQ(server->pixels({399, 0, 2, 1}), (Pixels{0x6496C8, 0x283C50}));
  EXPECT_EQ(server->pixels({550, 150, 1, 1}), Pixels{0x666666}) << "windows are in the picture";
  EXPECT_EQ(server->pixels({750, 150, 1, 1}), Pixels{0x283C50}) << "what came afterwards is not";

  Result<Bitmap, ScreenCaptureError> image = failure(ScreenCaptureError::Failed);
  std::thread([&] { image = still->image(right.id); }).join();
  ASSERT_TRUE(image);
  EXPECT_EQ(image->size(), (PixelSize{600, 600}));
  const auto rgb = [&](int x, int y) {
    const std::byte* p = image->pixel(x, y);
    return std::to_integer<std::uint32_t>(p[2]) << 16 | std::to_integer<std::uint32_t>(p[1]) << 8 |
           std::to_integer<std::uint32_t>(p[0]);
  };
  EXPECT_EQ(rgb(0, 0), 0x6496C8U);
  EXPECT_EQ(rgb(150, 150), 0xFFFFFFU);
  EXPECT_EQ(rgb(350, 150), 0x6496C8U);
}

TEST_F(X11ScreenStillTests, TheGroundOutlivesTheStill) {
  client->fill(client->root(), {0, 0, 1000, 600}, 0xFFFFFF);
  TestWindow overlay(*server, {.frame = left.frame, .unmanaged = true, .mapped = false});
  auto still = stills->freeze(displays);
  ASSERT_TRUE(still);
  ASSERT_EQ(paintBehind(*still, overlay.id(), left.id, 0.5), true);
  still.reset();
  stills.reset();
  overlay.map();
  const Pixels pixel = server->pixels({200, 300, 1, 1});
  ASSERT_EQ(pixel.size(), 1U);
  EXPECT_NEAR(pixel[0] & 0xFF, 0x80, 1);
}

TEST_F(X11ScreenStillTests, WhatCannotBePaintedIsAnswered) {
  auto still = stills->freeze({left});
  ASSERT_TRUE(still);
  const TestWindow overlay(*server, {.frame = left.frame, .unmanaged = true, .mapped = false});
  const TestWindow glass(*server, {.frame = left.frame, .alpha = true, .unmanaged = true, .mapped = false});
  EXPECT_EQ(paintBehind(*still, overlay.id(), right.id, 0.4), false) << "not frozen";
  EXPECT_EQ(paintBehind(*still, glass.id(), left.id, 0.4), false) << "another depth";
  EXPECT_EQ(paintBehind(*still, 0x7FFFFFF, left.id, 0.4), false) << "no window";
  EXPECT_EQ(paintBehind(*still, std::uint64_t{1} << 40, left.id, 0.4), false);
  EXPECT_EQ(still->image(right.id).error(), ScreenCaptureError::NoDisplay);
  bool called = false;
  still->paintBehind(overlay.id(), left.id, 0.4, [&](bool) { called = true; });
  still.reset();
  QElapsedTimer clock;
  clock.start();
  while (clock.elapsed() < 50) QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
  EXPECT_FALSE(called);
  EXPECT_EQ(X11ScreenStills(":9999").freeze(displays), nullptr);
}

TEST_F(X11ScreenStillTests, AWindowThatReachesTheServerLateGetsItsGroundAllTheSame) {
  const auto still = stills->freeze({left});
  ASSERT_TRUE(still);
  // A window id that the other connection uses a little later.
  const xcb_window_t window = xcb_generate_id(client->connection());
  std::thread late([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    xcb_create_window(client->connection(), XCB_COPY_FROM_PARENT, window, client->root(), 0, 0, 10, 10, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    client->sync();
  });
  EXPECT_EQ(paintBehind(*still, window, left.id, 0.4), true);
  late.join();
}

TEST_F(X11ScreenStillTests, ALostServerIsAnswered) {
  const auto still = stills->freeze({left});
  ASSERT_TRUE(still);
  const TestWindow overlay(*server, {.frame = left.frame, .unmanaged = true, .mapped = false});
  server->crash();
  EXPECT_EQ(paintBehind(*still, overlay.id(), left.id, 0.4), false);
  EXPECT_EQ(still->image(left.id).error(), ScreenCaptureError::NotAvailable);
  EXPECT_EQ(stills->freeze({left}), nullptr);
}

}  // namespace
}  // namespace vellora::test
