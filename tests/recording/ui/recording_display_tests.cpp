// The windows of a recording on real displays, driven by synthetic input.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <sstream>

#include "support/PrintGeometry.h"
#include "support/XClient.h"
#include "support/XServer.h"

namespace vellora {
namespace {

using test::ChildProcess;
using test::Environment;
using test::TestWindow;
using test::waitFor;
using test::XClient;
using test::XServer;

constexpr const char* probe = VELLORA_BIN_DIR "/recording_probe";
constexpr std::uint32_t ground = 0x2244AA;

class RecordingOnDisplay : public testing::Test {
 protected:
  void begin(const std::string& scales = {}, PixelSize size = {1920, 1080}, bool windowManager = false) {
    server = XServer::start({.size = size, .windowManager = windowManager});
    ASSERT_TRUE(server);
    client = std::make_unique<XClient>(*server);
    if (!scales.empty()) {
      server->setMonitors({{"LEFT", {0, 0, 1280, 1024}}, {"RIGHT", {1280, 0, 1280, 1024}}});
    }
    below = std::make_unique<TestWindow>(
        *server, TestWindow::Options{.frame = {0, 0, size.width, size.height}, .colour = ground, .unmanaged = true});
    client->movePointer({5, 5});
    server->check({"mkfifo", server->home() + "/commands"});
    Environment environment{"QT_QPA_PLATFORM=xcb"};
    if (!scales.empty()) environment.push_back("QT_SCREEN_SCALE_FACTORS=" + scales);
    program = server->spawn({"sh", "-c", std::string("exec ") + probe + " <>" + server->home() + "/commands >" + log()},
                            environment);
    ASSERT_TRUE(program);
    ASSERT_TRUE(waitFor([this] { return said("ready"); }));
  }

  /// Sends a command and waits until it is carried out.
  void command(const std::string& line) {
    const auto count = [&] {
      std::istringstream lines(output());
      std::ptrdiff_t found = 0;
      for (std::string each; std::getline(lines, each);) found += each == "done " + line ? 1 : 0;
      return found;
    };
    const auto before = count();
    std::ofstream(server->home() + "/commands") << line << std::endl;
    ASSERT_TRUE(waitFor([&] { return count() > before; })) << line << "\n" << output();
  }
  std::string log() const { return server->home() + "/log"; }
  std::string output() const {
    std::ostringstream all;
    all << std::ifstream(log()).rdbuf();
    return all.str();
  }
  bool said(const std::string& line) const { return ("\n" + output()).find("\n" + line + "\n") != std::string::npos; }

  std::uint32_t pixel(int x, int y) const { return server->pixels({x, y, 1, 1})[0]; }
  bool isUntouched(const PixelRect& area) const {
    return std::ranges::all_of(server->pixels(area), [](std::uint32_t each) { return each == ground; });
  }
  bool goesThrough(PixelPoint place) const {
    client->movePointer(place);
    client->sync();
    auto* const connection = client->connection();
    auto* const reply = xcb_query_pointer_reply(connection, xcb_query_pointer(connection, client->root()), nullptr);
    const xcb_window_t child = reply != nullptr ? reply->child : 0;
    std::free(reply);
    return child == below->id();
  }
  void drag(PixelPoint from, PixelPoint to) const {
    client->movePointer(from);
    client->sync();
    client->button(1, true);
    for (int step = 1; step <= 8; ++step) {
      client->movePointer({from.x + (to.x - from.x) * step / 8, from.y + (to.y - from.y) * step / 8});
      client->sync();
    }
    client->button(1, false);
    client->sync();
  }
  testing::AssertionResult tells(const std::string& line) const {
    if (waitFor([&] { return said(line); }, 5)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << output();
  }

  std::unique_ptr<XServer> server;
  std::unique_ptr<XClient> client;
  std::unique_ptr<TestWindow> below;
  std::unique_ptr<ChildProcess> program;
};

/// The border around `area`, whose line is `line` pixels wide, is there, beside the area and nowhere else.
void expectBorderAround(const PixelRect& area, int line, const std::function<std::uint32_t(int, int)>& pixel) {
  const int middleX = area.center().x;
  const int middleY = area.center().y;
  for (int off = 1; off <= line; ++off) {
    EXPECT_NE(pixel(middleX, area.y - off), ground) << off;
    EXPECT_NE(pixel(middleX, area.bottom() - 1 + off), ground) << off;
    EXPECT_NE(pixel(area.x - off, middleY), ground) << off;
    EXPECT_NE(pixel(area.right() - 1 + off, middleY), ground) << off;
  }
  EXPECT_EQ(pixel(middleX, area.y - line - 1), ground);
  EXPECT_EQ(pixel(area.right() + line, middleY), ground);
}

TEST_F(RecordingOnDisplay, theBorderCoversNoRecordedPixelAndNoClick) {
  ASSERT_NO_FATAL_FAILURE(begin());
  const PixelRect area{301, 203, 777, 555};
  command("border 299 201 781 559 0 armed");
  ASSERT_TRUE(waitFor([&] { return pixel(300, 400) != ground; }));
  const auto see = [this](int x, int y) { return pixel(x, y); };
  expectBorderAround(area, 2, see);
  EXPECT_TRUE(isUntouched(area));
  for (const PixelPoint place : {PixelPoint{300, 400}, PixelPoint{600, 202}, PixelPoint{600, 400}}) {
    EXPECT_TRUE(goesThrough(place)) << place.x;
  }

  // It follows a window.
  command("border 449 101 781 559 0 recording");
  ASSERT_TRUE(waitFor([&] { return pixel(450, 300) != ground && pixel(300, 400) == ground; }));
  expectBorderAround({451, 103, 777, 555}, 2, see);
  EXPECT_TRUE(isUntouched({451, 103, 777, 555}));

  // With round corners: what lies within the inner arc stays free.
  command("border 449 101 781 559 12 paused");
  ASSERT_TRUE(waitFor([&] { return pixel(450, 300) == 0x8B9098; }));
  ASSERT_TRUE(waitFor([&] { return pixel(449, 101) == ground; })) << "outside the arc";
  const PixelRect inside{451, 103, 777, 555};
  constexpr double radius = 10;
  int covered = 0;
  const auto seen = server->pixels(inside);
  for (int y = 0; y < inside.height; ++y) {
    for (int x = 0; x < inside.width; ++x) {
      const double dx = std::max(0.0, std::max(radius - (x + 1), x - (inside.width - radius)));
      const double dy = std::max(0.0, std::max(radius - (y + 1), y - (inside.height - radius)));
      const bool isRecorded = dx * dx + dy * dy <= (radius - 1) * (radius - 1);
      covered += isRecorded && seen[static_cast<std::size_t>(y * inside.width + x)] != ground ? 1 : 0;
    }
  }
  EXPECT_EQ(covered, 0);
}

TEST_F(RecordingOnDisplay, onScreensOfDifferentScaleTheBorderIsExactToThePixel) {
  ASSERT_NO_FATAL_FAILURE(begin("LEFT=1;RIGHT=1.5", {2560, 1024}));
  command("border 1398 198 405 307 0 armed");
  ASSERT_TRUE(waitFor([&] { return pixel(1399, 300) != ground; }));
  const PixelRect area{1401, 201, 399, 301};
  expectBorderAround(area, 3, [this](int x, int y) { return pixel(x, y); });
  EXPECT_TRUE(isUntouched(area));
  EXPECT_TRUE(goesThrough({1399, 300}));
}

TEST_F(RecordingOnDisplay, theRegionIsPulledWhileItsInsideIsFree) {
  ASSERT_NO_FATAL_FAILURE(begin());
  command("region 400 300 640 360");
  command("bar preStart 400 300 640 360");
  ASSERT_TRUE(waitFor([&] { return pixel(399, 480) != ground; }));
  EXPECT_TRUE(isUntouched({410, 310, 620, 340}));
  EXPECT_TRUE(goesThrough({720, 480}));
  EXPECT_TRUE(goesThrough({300, 480}));
  EXPECT_FALSE(goesThrough({399, 400}));

  drag({1040, 660}, {1100, 720});  // the corner
  ASSERT_TRUE(tells("region 400 300 700 420"));
  drag({720, 291}, {820, 191});  // the band moves it
  ASSERT_TRUE(tells("region 500 200 700 420"));
  EXPECT_TRUE(goesThrough({850, 400}));
  drag({499, 360}, {9, 360});  // a side
  ASSERT_TRUE(tells("region 10 200 1190 420"));

  server->check({"xdotool", "key", "Right"});
  ASSERT_TRUE(tells("region 11 200 1190 420"));
  server->check({"xdotool", "key", "shift+Up"});
  ASSERT_TRUE(tells("region 11 190 1190 420"));
  server->check({"xdotool", "key", "Return"});
  ASSERT_TRUE(tells("start"));
  server->check({"xdotool", "key", "Escape"});
  ASSERT_TRUE(tells("stop"));
}

TEST_F(RecordingOnDisplay, theKeyboardGoesBackToWhatIsRecorded) {
  ASSERT_NO_FATAL_FAILURE(begin({}, {1920, 1080}, true));
  below->destroy();
  const TestWindow recorded(*server, {.frame = {200, 200, 600, 400}});
  const auto isActive = [&] {
    const auto active = client->property(client->root(), "_NET_ACTIVE_WINDOW");
    return !active.empty() && active[0] == recorded.id();
  };
  ASSERT_TRUE(waitFor(isActive));
  command("bar preStart 200 200 600 400");
  ASSERT_TRUE(waitFor([&] { return !isActive(); }));
  command("countdown 3 200 200 600 400");
  command("bar recording");
  EXPECT_TRUE(waitFor(isActive));
  server->check({"xdotool", "key", "Escape"});
  EXPECT_TRUE(tells("stop")) << "Escape cancels the countdown wherever the keyboard is";
}

}  // namespace
}  // namespace vellora
