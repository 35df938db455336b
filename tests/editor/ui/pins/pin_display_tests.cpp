// Pins on a real display with a window manager, driven by synthetic input.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <set>
#include <sstream>

#include <QFile>

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

constexpr const char* probe = VELLORA_BIN_DIR "/pin_probe";
constexpr std::uint32_t titleBar = 0xF4F5F7;  // the top of the specimen
constexpr int shadowRoom = 32;                // around the picture, where windows are blended

class PinOnDisplay : public testing::Test {
 protected:
  void SetUp() override {
    server = XServer::start({.windowManager = true});
    ASSERT_TRUE(server);
    client = std::make_unique<XClient>(*server);
    other =
        std::make_unique<TestWindow>(*server, TestWindow::Options{.frame = {250, 150, 800, 600}, .colour = 0x2244AA});
    // The window manager had a place of its own for it.
    other->move({250, 150, 800, 600});
    ASSERT_TRUE(waitFor([this] { return server->pixels({390, 290, 1, 1})[0] == 0x2244AA; }));
    client->movePointer({5, 5});
    client->sync();
  }

  void pin(const std::string& arguments, const Environment& extra = {}) {
    Environment environment = extra;
    environment.emplace_back("QT_QPA_PLATFORM=xcb");
    server->check({"mkfifo", commands()});
    program = server->spawn(
        {"sh", "-c", std::string("exec ") + probe + " " + arguments + " <>" + commands() + " >" + log()}, environment);
    ASSERT_TRUE(program);
    const auto wanted = static_cast<std::size_t>(std::ranges::count(arguments, '+') / 2);
    ASSERT_TRUE(waitFor([&] { return ids("pinned").size() == wanted; })) << output();
    for (const xcb_window_t id : ids("pinned")) {
      ASSERT_TRUE(waitFor([&] { return isViewable(id); }));
      const int inside = 4 + (arguments.find("--blended") != std::string::npos ? shadowRoom : 0);
      const PixelRect frame = frameOf(id);
      ASSERT_TRUE(waitFor([&] {
        return server->pixels({frame.x + inside, frame.y + inside, 1, 1})[0] == titleBar;
      })) << "it is painted";
    }
  }

  void command(const std::string& line) const { std::ofstream(commands()) << line << std::endl; }

  std::string output() const {
    std::ostringstream all;
    all << std::ifstream(log()).rdbuf();
    return all.str();
  }
  bool said(const std::string& line) const { return ("\n" + output()).find("\n" + line + "\n") != std::string::npos; }
  std::vector<xcb_window_t> ids(const std::string& what) const {
    std::vector<xcb_window_t> result;
    std::istringstream lines(output());
    std::string word;
    xcb_window_t id = 0;
    for (std::string line; std::getline(lines, line);) {
      if (std::istringstream(line) >> word >> id && word == what) result.push_back(id);
    }
    return result;
  }
  xcb_window_t first() const { return ids("pinned").front(); }

  bool isViewable(xcb_window_t id) const {
    auto* const connection = client->connection();
    auto* const reply = xcb_get_window_attributes_reply(connection, xcb_get_window_attributes(connection, id), nullptr);
    const bool viewable = reply != nullptr && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    std::free(reply);
    return viewable;
  }
  PixelRect frameOf(xcb_window_t id) const {
    auto* const connection = client->connection();
    auto* const geometry = xcb_get_geometry_reply(connection, xcb_get_geometry(connection, id), nullptr);
    auto* const place = xcb_translate_coordinates_reply(
        connection, xcb_translate_coordinates(connection, id, client->root(), 0, 0), nullptr);
    PixelRect frame;
    if (geometry != nullptr && place != nullptr) {
      frame = {place->dst_x, place->dst_y, geometry->width, geometry->height};
    }
    std::free(geometry);
    std::free(place);
    return frame;
  }
  testing::AssertionResult becomes(const PixelRect& wanted) const {
    if (waitFor([&] { return frameOf(first()) == wanted; }, 5)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << testing::PrintToString(frameOf(first()));
  }
  xcb_window_t activeWindow() const {
    const auto active = client->property(client->root(), "_NET_ACTIVE_WINDOW");
    return active.empty() ? 0 : active[0];
  }
  /// The child of the root window that gets the pointer at a place.
  xcb_window_t pointedAt(PixelPoint place) const {
    client->movePointer(place);
    client->sync();
    auto* const connection = client->connection();
    auto* const reply = xcb_query_pointer_reply(connection, xcb_query_pointer(connection, client->root()), nullptr);
    const xcb_window_t child = reply != nullptr ? reply->child : 0;
    std::free(reply);
    return child;
  }
  void wheel(int notches) const {
    for (int i = 0; i < std::abs(notches); ++i) click(notches > 0 ? 4 : 5);
  }
  void click(std::uint8_t button) const {
    client->button(button, true);
    client->button(button, false);
    client->sync();
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

  std::unique_ptr<XServer> server;
  std::unique_ptr<XClient> client;
  std::unique_ptr<TestWindow> other;
  std::unique_ptr<ChildProcess> program;

 private:
  std::string commands() const { return server->home() + "/commands"; }
  std::string log() const { return server->home() + "/log"; }
};

TEST_F(PinOnDisplay, StaysAboveOtherWindowsAndLeavesThemTheFocus) {
  client->movePointer({900, 600});
  client->button(1, true);
  client->sync();
  ASSERT_TRUE(waitFor([this] { return activeWindow() == other->id(); }));
  client->button(1, false);
  pin("300x200+400+300 120x90+700+300");
  EXPECT_EQ(frameOf(first()), (PixelRect{400, 300, 300, 200}));
  EXPECT_EQ(activeWindow(), other->id());
  server->check(
      {"xdotool", "windowraise", std::to_string(other->id()), "windowactivate", "--sync", std::to_string(other->id())});
  ASSERT_TRUE(waitFor([this] { return server->pixels({390, 290, 1, 1})[0] == 0x2244AA; }));
  EXPECT_NE(server->pixels({405, 450, 1, 1})[0], 0x2244AAu);
  EXPECT_NE(server->pixels({705, 380, 1, 1})[0], 0x2244AAu);

  const auto states = client->property(first(), "_NET_WM_STATE");
  const std::set<std::uint32_t> has(states.begin(), states.end());
  EXPECT_TRUE(has.contains(client->atom("_NET_WM_STATE_ABOVE")));
  EXPECT_TRUE(has.contains(client->atom("_NET_WM_STATE_SKIP_TASKBAR")));
  EXPECT_EQ(client->property(first(), "_NET_WM_DESKTOP"), std::vector<std::uint32_t>{0xFFFFFFFF});
}

TEST_F(PinOnDisplay, IsMovedZoomedAndResizedByThePointer) {
  pin("300x200+400+300");
  client->movePointer({550, 450});
  client->sync();
  wheel(1);
  EXPECT_TRUE(becomes({385, 290, 330, 220}));
  wheel(-1);
  EXPECT_TRUE(becomes({400, 300, 300, 200}));
  drag({550, 400}, {557, 500});
  EXPECT_TRUE(becomes({407, 400, 300, 200}));
  drag({550, 450}, {149, 350});
  EXPECT_TRUE(becomes({0, 300, 300, 200})) << "drawn to the edge of the screen";
  drag({298, 400}, {448, 400});
  EXPECT_TRUE(becomes({0, 300, 450, 300})) << "with the picture's proportions, the other edges held";
  // As fast as a hand, not faster: the window manager looks at every click before it passes it on.
  server->check({"xdotool", "mousemove", "200", "500", "click", "--repeat", "2", "--delay", "60", "1"});
  EXPECT_TRUE(becomes({75, 350, 300, 200})) << "its own size, around the centre";
}

TEST_F(PinOnDisplay, AnswersTheKeyboardOnceItWasClicked) {
  pin("300x200+400+300 120x90+700+300");
  client->movePointer({550, 450});
  client->sync();
  click(1);
  ASSERT_TRUE(waitFor([this] { return activeWindow() == first(); }));
  server->check({"xdotool", "key", "Right", "shift+Down", "ctrl+c", "ctrl+s"});
  EXPECT_TRUE(becomes({401, 310, 300, 200}));
  EXPECT_TRUE(waitFor([this] { return said("copy") && said("save"); })) << output();
  server->check({"xdotool", "key", "minus"});
  EXPECT_TRUE(becomes({431, 330, 240, 160}));
  const xcb_window_t closed = first();
  server->check({"xdotool", "key", "Escape"});
  EXPECT_TRUE(waitFor([&] { return said("closed " + std::to_string(closed)); }));
  EXPECT_TRUE(waitFor([&] { return !isViewable(closed); }));
  EXPECT_TRUE(isViewable(ids("pinned").back()));
  command("close-all");
  EXPECT_TRUE(waitFor([this] { return ids("closed").size() == 2; })) << output();
}

TEST_F(PinOnDisplay, LetsClicksThroughItsShadowAndThroughItselfWhenAsked) {
  pin("300x200+400+300 --blended");
  EXPECT_EQ(frameOf(first()),
            (PixelRect{400 - shadowRoom, 300 - shadowRoom, 300 + 2 * shadowRoom, 200 + 2 * shadowRoom}));
  const xcb_window_t below = other->topLevel();
  EXPECT_TRUE(waitFor([&] { return pointedAt({380, 400}) == below; })) << "its shadow";
  EXPECT_NE(pointedAt({396, 400}), below) << "what is left to grasp its edge by";
  EXPECT_NE(pointedAt({550, 450}), below);
  command("click-through 0");
  EXPECT_TRUE(waitFor([&] { return pointedAt({550, 450}) == below; }));
  EXPECT_TRUE(said("told"));
  command("end-click-through");
  EXPECT_TRUE(waitFor([&] { return pointedAt({550, 450}) != below; }));
  wheel(1);
  EXPECT_TRUE(becomes({385 - shadowRoom, 290 - shadowRoom, 330 + 2 * shadowRoom, 220 + 2 * shadowRoom}));
  EXPECT_TRUE(waitFor([&] { return pointedAt({387, 400}) != below && pointedAt({375, 400}) == below; }));
}

TEST_F(PinOnDisplay, ControlsAppearUnderThePointer) {
  pin("300x200+400+300");
  const auto quiet = server->pixels({400, 300, 300, 50});
  client->movePointer({550, 450});
  client->sync();
  const auto differs = [&] { return server->pixels({400, 300, 300, 50}) != quiet; };
  EXPECT_TRUE(waitFor(differs));
  client->movePointer({464, 322});  // the copy button stands behind the readout
  client->sync();
  click(1);
  EXPECT_TRUE(waitFor([this] { return said("copy"); }));
  client->movePointer({5, 5});
  client->sync();
  EXPECT_TRUE(waitFor([&] { return !differs(); }));
  client->movePointer({678, 322});
  client->sync();
  click(1);
  EXPECT_TRUE(waitFor([this] { return ids("closed").size() == 1; }));
}

TEST_F(PinOnDisplay, WaitsOnAnotherScreenUntilItsOwnIsBack) {
  const std::vector<XServer::Monitor> both{{"left", {0, 0, 960, 1080}}, {"right", {960, 0, 960, 1080}}};
  server->setMonitors(both);
  pin("300x200+1400+700");
  const PixelRect home{1400, 700, 300, 200};
  ASSERT_TRUE(becomes(home));
  server->setMonitors({both.front()});
  EXPECT_TRUE(becomes({440, 700, 300, 200}));
  server->setMonitors(both);
  EXPECT_TRUE(becomes(home));
}

TEST_F(PinOnDisplay, ShowsEveryPixelOnScaledScreens) {
  pin("150x100+200+150", {"QT_SCALE_FACTOR=2"});
  EXPECT_EQ(frameOf(first()), (PixelRect{400, 300, 300, 200}));
  // The third line of text: 6 points high and sharp at both edges.
  const auto column = server->pixels({520, 300, 1, 200});
  int changes = 0;
  for (std::size_t y = 0; y < 199; ++y) changes += column[y] != column[y + 1] ? 1 : 0;
  EXPECT_EQ(changes % 2, 1) << "the bar ends once, every line begins and ends once, nothing in between";
  EXPECT_EQ(column[2 * 34], column[2 * 34 + 11]);
  EXPECT_NE(column[2 * 34 - 1], column[2 * 34]);
  EXPECT_NE(column[2 * 34 + 12], column[2 * 34 + 11]);
}

}  // namespace
}  // namespace vellora
