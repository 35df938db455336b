#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "support/PrintGeometry.h"
#include "support/XClient.h"
#include "support/XServer.h"

// Overlays on real displays: another program draws the desktop, synthetic input drives a session, and what was captured
// is held against what a third program saw on the screen before.
namespace vellora {
namespace {

using test::ChildProcess;
using test::Environment;
using test::TestWindow;
using test::waitFor;
using test::XClient;
using test::XServer;

constexpr const char* probe = VELLORA_BIN_DIR "/overlay_probe";

class Desktop {
 public:
  explicit Desktop(XServer::Options options) : server(XServer::start(std::move(options))) {
    if (!server) return;
    // Odd edges and different colours: a picture that is one pixel off, or of the wrong place, differs.
    const std::vector<PixelRect> frames{{101, 97, 311, 207}, {353, 251, 403, 299}, {907, 601, 151, 333},
                                        {51, 777, 1399, 77}, {1501, 33, 333, 701}, {1890, 555, 61, 122}};
    std::uint32_t colour = 0x3366CC;
    for (const PixelRect& frame : frames) {
      windows.push_back(std::make_unique<TestWindow>(
          *server, TestWindow::Options{.frame = frame, .colour = colour, .unmanaged = true}));
      colour = (colour * 7 + 0x123457) & 0xFFFFFF;
    }
  }

  /// Starts a session and waits for its overlays.
  void begin(const std::string& mode, const Environment& extra = {}) {
    Environment environment = extra;
    environment.emplace_back("QT_QPA_PLATFORM=xcb");
    QFile::remove(log());
    session = server->spawn(
        {"sh", "-c", std::string("exec ") + probe + " " + mode + " " + picture() + " > " + log().toStdString()},
        environment);
    ASSERT_TRUE(session);
    ASSERT_TRUE(waitFor([this] { return output().find("shown") != std::string::npos; })) << output();
  }

  void input(const std::vector<std::string>& words) const {
    std::vector<std::string> command{"xdotool"};
    command.insert(command.end(), words.begin(), words.end());
    server->check(command);
  }

  /// Presses at one place, moves in two steps to another, and releases there.
  void drag(PixelPoint from, PixelPoint to) const {
    press(from, to);
    input({"mouseup", "1"});
  }
  void press(PixelPoint from, PixelPoint to) const {
    const auto at = [](int number) { return std::to_string(number); };
    input({"mousemove", at(from.x), at(from.y), "mousedown", "1", "mousemove", at((from.x + to.x) / 2),
           at((from.y + to.y) / 2), "mousemove", at(to.x), at(to.y)});
  }

  /// The last line of the session's output, once it has ended.
  std::string outcome() {
    EXPECT_EQ(session->wait(10), 0) << output();
    const std::string all = output();
    const auto start = all.rfind('\n', all.size() - 2);
    const std::string line = all.substr(start == std::string::npos ? 0 : start + 1);
    return line.substr(0, line.find(" after"));
  }

  /// The captured picture as 0xRRGGBB, row by row.
  std::vector<std::uint32_t> captured() const {
    const QImage image(QString::fromStdString(picture()));
    std::vector<std::uint32_t> colours;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) colours.push_back(image.pixel(x, y) & 0xFFFFFF);
    }
    return colours;
  }

  std::string picture() const { return folder.filePath(QStringLiteral("picture.png")).toStdString(); }

  std::unique_ptr<XServer> server;
  std::vector<std::unique_ptr<TestWindow>> windows;
  std::unique_ptr<ChildProcess> session;

 private:
  QString log() const { return folder.filePath(QStringLiteral("log")); }
  std::string output() const {
    QFile file(log());
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
  }

  QTemporaryDir folder;
};

std::string took(const PixelRect& rect, const std::string& scale) {
  return "took " + std::to_string(rect.x) + "," + std::to_string(rect.y) + " " + std::to_string(rect.width) + "x" +
         std::to_string(rect.height) + " scale " + scale;
}

struct Case {
  const char* what;
  bool twoMonitors;
  const char* scale;  // of all monitors, or NAME=scale
  PixelPoint from, to;
  PixelRect rect;
};

TEST(OverlayOnDisplay, CapturesWhatWasUnderADraggedRectangle) {
  const std::vector<Case> cases{
      {"one monitor", false, "1", {203, 151}, {602, 350}, {203, 151, 400, 200}},
      {"one monitor, scaled", false, "2", {203, 151}, {601, 349}, {203, 151, 399, 199}},
      {"one monitor, scaled by a fraction", false, "1.5", {203, 151}, {601, 349}, {203, 151, 399, 199}},
      {"right monitor, from its far corner", true, "1", {1899, 821}, {1000, 40}, {1000, 40, 900, 782}},
      {"right monitor, scaled", true, "2", {1333, 41}, {1899, 821}, {1333, 41, 567, 781}},
      {"held to the left monitor", true, "1", {701, 501}, {1500, 700}, {701, 501, 259, 200}},
      {"right monitor, denser than the left", true, "RIGHT=2", {1333, 41}, {1899, 821}, {1333, 41, 567, 781}},
      {"left monitor, denser than the right", true, "LEFT=2", {203, 151}, {601, 349}, {203, 151, 399, 199}},
  };
  for (const bool twoMonitors : {false, true}) {
    Desktop desktop({.size = {1920, 1080}});
    ASSERT_TRUE(desktop.server);
    if (twoMonitors) desktop.server->setMonitors({{"LEFT", {0, 0, 960, 1080}}, {"RIGHT", {960, 0, 960, 1080}}});
    for (const Case& c : cases) {
      if (c.twoMonitors != twoMonitors) continue;
      SCOPED_TRACE(c.what);
      const auto before = desktop.server->pixels(c.rect);
      const std::string scale = c.scale;
      const auto named = scale.find('=');
      desktop.input({"mousemove", "100", "100"});
      desktop.begin("area", {(named == std::string::npos ? "QT_SCALE_FACTOR=" : "QT_SCREEN_SCALE_FACTORS=") + scale});
      desktop.drag(c.from, c.to);
      EXPECT_EQ(desktop.outcome(), took(c.rect, scale.substr(named == std::string::npos ? 0 : named + 1)));
      EXPECT_TRUE(desktop.captured() == before);
      // Nothing of the overlay stays.
      EXPECT_TRUE(desktop.server->pixels(c.rect) == before);
    }
  }
}

TEST(OverlayOnDisplay, ShowsTheSelectionClearAndTheRestDimmed) {
  for (const char* scale : {"1", "2"}) {
    SCOPED_TRACE(scale);
    Desktop desktop({.size = {1920, 1080}});
    ASSERT_TRUE(desktop.server);
    desktop.server->setMonitors({{"LEFT", {0, 0, 960, 1080}}, {"RIGHT", {960, 0, 960, 1080}}});
    const PixelRect inside{351, 241, 200, 100};
    const std::vector<PixelRect> outside{{120, 600, 300, 80}, {1700, 200, 100, 100}};
    const auto clear = desktop.server->pixels(inside);
    std::vector<std::vector<std::uint32_t>> bright;
    for (const PixelRect& rect : outside) bright.push_back(desktop.server->pixels(rect));
    desktop.begin("area", {std::string("QT_SCALE_FACTOR=") + scale});
    desktop.press({341, 231}, {560, 350});
    EXPECT_TRUE(waitFor([&] { return desktop.server->pixels(inside) == clear; }));
    for (std::size_t i = 0; i < outside.size(); ++i) {
      const auto dim = desktop.server->pixels(outside[i]);
      for (const int shift : {0, 8, 16}) {
        EXPECT_NEAR(dim[0] >> shift & 0xFF, (bright[i][0] >> shift & 0xFF) * 0.4, 1.5);
        EXPECT_NEAR(dim.back() >> shift & 0xFF, (bright[i].back() >> shift & 0xFF) * 0.4, 1.5);
      }
    }
    desktop.input({"key", "Escape", "key", "Escape"});
    EXPECT_EQ(desktop.outcome(), "nothing\n");
    desktop.input({"mouseup", "1"});
  }
}

TEST(OverlayOnDisplay, TakesAWindowByItself) {
  Desktop desktop({.size = {1920, 1080}, .windowManager = true});
  ASSERT_TRUE(desktop.server);
  TestWindow below(*desktop.server, {.frame = {1000, 100, 240, 180}, .colour = 0x20A060, .title = "Below"});
  TestWindow above(*desktop.server, {.frame = {1010, 110, 400, 300}, .colour = 0xA02060, .title = "Above"});
  desktop.begin("window");
  desktop.input({"mousemove", "1100", "200", "key", "Tab", "key", "Return"});
  EXPECT_EQ(desktop.outcome().rfind("took", 0), 0u);
  // The lower window's own colour, where the upper one covered it.
  const QImage image(QString::fromStdString(desktop.picture()));
  ASSERT_GE(image.width(), 240);
  EXPECT_EQ(image.pixel(image.width() / 2, image.height() / 2) & 0xFFFFFF, 0x20A060u);
}

TEST(OverlayOnDisplay, CanBeDrivenFromTheKeyboard) {
  Desktop desktop({.size = {1920, 1080}});
  ASSERT_TRUE(desktop.server);
  desktop.input({"mousemove", "300", "300"});
  const PixelRect rect{290, 301, 122, 12};
  const auto before = desktop.server->pixels(rect);
  desktop.begin("area");
  desktop.input({"key", "shift+Left",  "key", "Down",  "key", "space",      "key", "ctrl+Right", "key", "shift+Right",
                 "key", "shift+Right", "key", "Right", "key", "shift+Down", "key", "Down",       "key", "Return"});
  EXPECT_EQ(desktop.outcome(), took(rect, "1"));
  EXPECT_TRUE(desktop.captured() == before);
}

TEST(OverlayOnDisplay, GetsTheKeyboardAsSoonAsTheHotKeyIsReleased) {
  Desktop desktop({.size = {800, 600}});
  ASSERT_TRUE(desktop.server);
  XClient other(*desktop.server);
  auto* reply = xcb_grab_keyboard_reply(other.connection(),
                                        xcb_grab_keyboard(other.connection(), 0, other.root(), XCB_CURRENT_TIME,
                                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                        nullptr);
  ASSERT_TRUE(reply != nullptr && reply->status == XCB_GRAB_STATUS_SUCCESS);
  std::free(reply);
  desktop.begin("area");
  desktop.input({"key", "Escape"});  // goes to the other program
  xcb_ungrab_keyboard(other.connection(), XCB_CURRENT_TIME);
  other.sync();
  EXPECT_TRUE(waitFor([&] {
    desktop.input({"key", "Escape"});
    return !desktop.session->isRunning();
  }));
  EXPECT_EQ(desktop.outcome(), "nothing\n");
}

}  // namespace
}  // namespace vellora
