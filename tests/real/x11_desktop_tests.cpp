#include <gtest/gtest.h>

#include "support/XClient.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

TEST(X11Desktop, StartsWithEverythingAndShowsAWindow) {
  const auto server = XServer::start({.size = {800, 600}, .windowManager = true, .tray = true, .bus = true});
  ASSERT_TRUE(server);
  TestWindow window(*server, {.frame = {200, 200, 100, 100}, .colour = 0x336699});
  EXPECT_NE(window.topLevel(), window.id());
  const PixelRect f = window.frame();
  ASSERT_TRUE(waitFor([&] {
    return server->pixels({f.x + 5, f.y + 5, 1, 1}) == std::vector<std::uint32_t>{0x336699};
  }));
  server->setMonitors({{"LEFT", {0, 0, 400, 600}}, {"RIGHT", {400, 0, 400, 600}}});
  EXPECT_NE(server->check({"xrandr", "--listmonitors"}).find("RIGHT"), std::string::npos);
  server->setMode({640, 480});
  EXPECT_EQ(server->pixels({639, 479, 1, 1}).size(), 1U);
}

}  // namespace
}  // namespace vellora::test
