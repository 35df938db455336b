#include <gtest/gtest.h>

#include "platform/linux/x11/X11Screens.h"
#include "support/XClient.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

PixelRect visibleFrameOf(X11Screens& screens, const char* name) {
  for (const ScreenInfo& screen : screens.screens()) {
    if (screen.display.name == QLatin1String(name)) return screen.visibleFrame;
  }
  return {};
}

/// A panel that keeps its part of an edge free (_NET_WM_STRUT_PARTIAL).
std::unique_ptr<TestWindow> makePanel(const XServer& server, PixelRect frame, std::vector<std::uint32_t> strut) {
  auto panel =
      std::make_unique<TestWindow>(server, TestWindow::Options{.frame = frame, .mapped = false, .title = "Panel"});
  XClient& client = panel->client();
  client.setProperty(panel->id(), "_NET_WM_WINDOW_TYPE", "ATOM", {client.atom("_NET_WM_WINDOW_TYPE_DOCK")});
  client.setProperty(panel->id(), "_NET_WM_STRUT_PARTIAL", "CARDINAL", strut);
  panel->map();
  return panel;
}

TEST(X11Desktop, ScreensPanelsAndThePointer) {
  const auto server = XServer::start({.size = {1000, 600}, .windowManager = true, .tray = true, .bus = true});
  ASSERT_TRUE(server);
  X11Screens screens(server->display());
  EXPECT_EQ(visibleFrameOf(screens, "screen"), (PixelRect{0, 0, 1000, 600}));
  const auto top = makePanel(*server, {400, 0, 600, 32}, {0, 0, 32, 0, 0, 0, 0, 0, 400, 999, 0, 0});
  EXPECT_TRUE(waitFor([&] { return visibleFrameOf(screens, "screen") == PixelRect{0, 32, 1000, 568}; }));

  server->setMonitors({{"LEFT", {0, 0, 400, 600}}, {"RIGHT", {400, 0, 600, 600}}});
  const auto panel = makePanel(*server, {0, 560, 400, 40}, {0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 0, 399});
  EXPECT_TRUE(waitFor([&] { return visibleFrameOf(screens, "LEFT") == PixelRect{0, 0, 400, 560}; }));
  EXPECT_EQ(visibleFrameOf(screens, "RIGHT"), (PixelRect{400, 32, 600, 568}));

  panel->client().movePointer({731, 412});
  EXPECT_EQ(screens.pointerPosition(), (PixelPoint{731, 412}));
  server->crash();
  EXPECT_TRUE(screens.screens().empty());
  EXPECT_FALSE(screens.pointerPosition());
}

}  // namespace
}  // namespace vellora::test
