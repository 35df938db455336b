#include <gtest/gtest.h>
#include <sys/resource.h>
#include <xcb/render.h>
#include <xcb/xfixes.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>
#include <thread>

#include "StreamReceiver.h"
#include "platform/linux/x11/X11ScreenCapture.h"
#include "support/XClient.h"

namespace vellora::test {
namespace {

ScreenStreamConfiguration areaOf(PixelRect area, bool cursor = false) {
  return {.area = area, .showsCursor = cursor};
}

/// Draws something different everywhere on the root window, so that a shifted or mixed-up row shows.
void drawPattern(const XClient& client, PixelSize size, std::uint32_t color = 0x102030) {
  for (int y = 0; y < size.height; y += 37) {
    for (int x = 0; x < size.width; x += 53) {
      client.fill(client.root(), {x, y, 53, 37}, color & 0xFFFFFF);
      color = color * 1664525 + 1013904223;
    }
  }
  client.sync();
}

/// A window that shows numbers, 60 a second, each in one piece: as 16 blocks along its upper and its lower edge, on a
/// ground that tells them apart as well.
class NumberPainter {
 public:
  static constexpr int blocks = 16, blockWidth = 40, blockHeight = 30;

  NumberPainter(const XServer& server, PixelRect frame)
      : window_(server, {.frame = frame, .unmanaged = true}), frame_(frame), thread_([this] { run(); }) {}
  ~NumberPainter() { stop(); }

  void stop() {
    stopping_ = true;
    if (thread_.joinable()) thread_.join();
  }
  int painted() const { return painted_; }

  /// The number in a frame in which the window is at `at`; -1 where it is torn.
  static int numberIn(const ScreenFrame& frame, PixelPoint at, PixelSize size) {
    const auto read = [&](int y) {
      int number = 0;
      for (int i = 0; i < blocks; ++i) {
        const int x = at.x + i * blockWidth + blockWidth / 2;
        if (frame.pixels[frame.bytesPerRow * (at.y + y) + std::ptrdiff_t{x} * 4] > 127) number |= 1 << i;
      }
      return number;
    };
    const int upper = read(blockHeight / 2);
    return upper == read(size.height - blockHeight / 2) ? upper : -1;
  }

 private:
  void run() {
    XClient& client = window_.client();
    xcb_connection_t* c = client.connection();
    const xcb_pixmap_t picture = xcb_generate_id(c);
    const xcb_gcontext_t context = xcb_generate_id(c);
    xcb_create_pixmap(c, client.screen()->root_depth, picture, window_.id(), static_cast<std::uint16_t>(frame_.width),
                      static_cast<std::uint16_t>(frame_.height));
    xcb_create_gc(c, context, window_.id(), 0, nullptr);
    constexpr std::chrono::microseconds period(16667);
    auto next = std::chrono::steady_clock::now();
    for (int number = 1; !stopping_; ++number) {
      client.fill(picture, {0, 0, frame_.width, frame_.height}, static_cast<std::uint32_t>(number * 7919) & 0xFFFFFF);
      for (int i = 0; i < blocks; ++i) {
        const std::uint32_t color = (number >> i & 1) != 0 ? 0xFFFFFF : 0;
        client.fill(picture, {i * blockWidth, 0, blockWidth, blockHeight}, color);
        client.fill(picture, {i * blockWidth, frame_.height - blockHeight, blockWidth, blockHeight}, color);
      }
      xcb_copy_area(c, picture, window_.id(), context, 0, 0, 0, 0, static_cast<std::uint16_t>(frame_.width),
                    static_cast<std::uint16_t>(frame_.height));
      client.sync();
      painted_ = number;
      // Without making up for lost time: each number is to be seen for a while.
      next = std::max(next + period, std::chrono::steady_clock::now() + period / 2);
      std::this_thread::sleep_until(next);
    }
  }

  TestWindow window_;
  const PixelRect frame_;
  std::atomic<bool> stopping_ = false;
  std::atomic<int> painted_ = 0;
  std::thread thread_;
};

TEST(X11Stream, TakesEveryFrameOfMovingContentWhole) {
  const auto server = XServer::start();
  ASSERT_TRUE(server);
  const PixelRect frame{0, 0, 1920, 1080};
  NumberPainter painter(*server, frame);
  ASSERT_TRUE(waitFor([&] { return painter.painted() > 0; }));
  StreamReceiver receiver;
  std::vector<int> numbers;  // the stream's thread's until it is stopped
  receiver.inspect = [&](const ScreenFrame& f) { numbers.push_back(NumberPainter::numberIn(f, {0, 0}, frame.size())); };
  ASSERT_TRUE(receiver.start(*server, areaOf(frame)));
  const int first = painter.painted();
  ASSERT_TRUE(waitFor([&] { return painter.painted() >= first + 180; }));
  const ScreenStreamCounts counts = receiver.stream().counts();
  const int painted = painter.painted() - first;
  receiver.stop();
  EXPECT_EQ(std::ranges::count(numbers, -1), 0) << "torn";
  EXPECT_TRUE(std::ranges::is_sorted(numbers));
  const std::set<int> distinct(numbers.begin(), numbers.end());
  // A machine that is busy with something else wakes the stream late, which it counts.
  EXPECT_GE(static_cast<double>(distinct.size() + counts.late), 0.75 * painted) << numbers.size() << " frames";
  EXPECT_EQ(counts.dropped, 0U);
  const auto frames = receiver.frames();
  const double span = frames.back().time - frames.front().time;
  EXPECT_LE(static_cast<double>(frames.size()), span * 60 + 2) << "more than the clock allows";
}

double threadCpuSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& t) {
    return static_cast<double>(t.tv_sec) + 1e-6 * static_cast<double>(t.tv_usec);
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

TEST(X11Stream, AStillScreenCostsNothingAndFramesComeOnRequest) {
  const auto server = XServer::start();
  ASSERT_TRUE(server);
  StreamReceiver receiver;
  ASSERT_TRUE(receiver.start(*server, areaOf({0, 0, 1920, 1080}, true)));
  receiver.settle();
  const std::size_t before = receiver.count();
  const double cpu = threadCpuSeconds();
  std::this_thread::sleep_for(std::chrono::seconds(2));
  EXPECT_LT(threadCpuSeconds() - cpu, 0.02);
  EXPECT_EQ(receiver.count(), before);
  receiver.stream().requestFrame();
  ASSERT_TRUE(waitFor([&] { return receiver.count() > before; }));
  EXPECT_TRUE(receiver.frames().back().changes.empty());
}

TEST(X11Stream, ChangesAreComplete) {
  const PixelSize size{1200, 800};
  const auto server = XServer::start({.size = size});
  ASSERT_TRUE(server);
  const XClient client(*server);
  drawPattern(client, size);
  StreamReceiver receiver;
  const PixelRect area{101, 53, 1003, 601};
  ASSERT_TRUE(receiver.start(*server, areaOf(area)));
  std::uint32_t random = 1;
  const auto next = [&](int limit) {
    random = random * 1664525 + 1013904223;
    return static_cast<int>(random >> 8) % limit;
  };
  for (int i = 0; i < 3000; ++i) {
    client.fill(client.root(), {next(1200), next(800), 1 + next(60), 1 + next(40)},
                static_cast<std::uint32_t>(next(0x1000000)));
    if (i % 50 == 0) std::this_thread::sleep_for(std::chrono::milliseconds(next(20)));
  }
  client.sync();
  receiver.settle();
  EXPECT_TRUE(receiver.picture() == server->pixels(area));
  EXPECT_GT(receiver.count(), 20U);
}

TEST(X11Stream, TheAreaMayReachBeyondDisplaysAndAcrossThem) {
  const auto server = XServer::start({.size = {1000, 600}});
  ASSERT_TRUE(server);
  const XClient client(*server);
  client.fill(client.root(), {0, 0, 1000, 600}, 0x00FF00);
  server->setMonitors({{"LEFT", {0, 0, 400, 600}}, {"RIGHT", {450, 100, 550, 500}}});
  StreamReceiver receiver;
  ASSERT_TRUE(receiver.start(*server, areaOf({-10, 550, 1100, 100})));
  client.fill(client.root(), {0, 560, 1000, 40}, 0x0000FF);
  client.sync();
  receiver.settle();
  EXPECT_EQ(receiver.pixel(9, 0), 0U) << "left of the desktop";
  EXPECT_EQ(receiver.pixel(10, 0), 0x00FF00U);
  EXPECT_EQ(receiver.pixel(10, 49), 0x0000FFU);
  EXPECT_EQ(receiver.pixel(10, 50), 0U) << "below the desktop";
  EXPECT_EQ(receiver.pixel(430, 20), 0U) << "between the displays";
  EXPECT_EQ(receiver.pixel(460, 20), 0x0000FFU);
  EXPECT_EQ(receiver.pixel(1010, 20), 0U) << "right of the desktop";
  server->removeMonitor("RIGHT");
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(460, 20) == 0; })) << "a display went";
  EXPECT_FALSE(receiver.stopped());

  StreamReceiver gone;
  EXPECT_EQ(gone.startError(*server, areaOf({2000, 0, 100, 100})), ScreenCaptureError::NoDisplay);
  EXPECT_EQ(gone.startError(*server, areaOf({0, 0, 0, 100})), ScreenCaptureError::NoDisplay);
}

TEST(X11Stream, OtherDepthsAreConverted) {
  const auto server = XServer::start({.size = {640, 480}, .depth = 16});
  ASSERT_TRUE(server);
  const XClient client(*server);
  client.fill(client.root(), {0, 0, 640, 480}, 0xF800);
  StreamReceiver receiver;
  ASSERT_TRUE(receiver.start(*server, areaOf({100, 100, 200, 200})));
  EXPECT_EQ(receiver.pixel(50, 50), 0xFF0000U);
  client.fill(client.root(), {110, 110, 20, 20}, 0x001F);
  client.sync();
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(15, 15) == 0x0000FF; }));
}

TEST(X11Stream, EndsWithItsDisplay) {
  const auto server = XServer::start({.size = {1600, 900}});
  ASSERT_TRUE(server);
  StreamReceiver receiver;
  ASSERT_TRUE(receiver.start(*server, areaOf({1100, 0, 200, 200})));
  server->setMode({1024, 768});
  ASSERT_TRUE(waitFor([&] { return receiver.stopped().has_value(); }));
  EXPECT_EQ(receiver.stopped(), ScreenCaptureError::NoDisplay);

  StreamReceiver other;
  ASSERT_TRUE(other.start(*server, areaOf({0, 0, 200, 200})));
  other.holdFrames();
  other.stream().requestFrame();
  ASSERT_TRUE(waitFor([&] { return other.count() > 1; }));
  server->crash();
  ASSERT_TRUE(waitFor([&] { return other.stopped().has_value(); }));
  EXPECT_EQ(other.stopped(), ScreenCaptureError::NotAvailable);
  other.stop();
  const auto frames = other.letGo();
  EXPECT_EQ(pixelsOf(*frames.front()).size(), 200U * 200U) << "frames outlive the stream";
  EXPECT_EQ(other.startError(*server, areaOf({0, 0, 200, 200})), ScreenCaptureError::NotAvailable);
}

TEST(X11Stream, AReceiverThatHoldsAllFramesLosesSomeAndThenGetsThePresent) {
  const auto server = XServer::start({.size = {800, 600}});
  ASSERT_TRUE(server);
  const XClient client(*server);
  StreamReceiver receiver;
  ScreenStreamConfiguration configuration = areaOf({0, 0, 800, 600});
  configuration.queueDepth = 3;
  ASSERT_TRUE(receiver.start(*server, configuration));
  receiver.holdFrames();
  std::uint32_t color = 0;
  ASSERT_TRUE(waitFor([&] {
    client.fill(client.root(), {0, 0, 800, 600}, ++color);
    client.sync();
    return receiver.stream().counts().dropped >= 5;
  }));
  const std::size_t held = receiver.count();
  EXPECT_LE(held, 5U);
  client.fill(client.root(), {0, 0, 800, 600}, 0xABCDEF);
  client.sync();
  auto frames = receiver.letGo();
  EXPECT_EQ(frames.size(), 3U);
  std::set<const std::uint8_t*> memory;
  for (const auto& frame : frames) memory.insert(frame->pixels);
  EXPECT_EQ(memory.size(), 3U) << "nobody writes into a frame that is held";
  frames.clear();
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(400, 300) == 0xABCDEF; })) << "what changed meanwhile comes";
}

/// What the still picture of a window shows.
Pixels stillOf(const XServer& server, const TestWindow& window) {
  const auto picture = X11ScreenCapture(server.display()).windowImage(window.id());
  Pixels pixels;
  for (int y = 0; picture && y < picture->height(); ++y) {
    for (int x = 0; x < picture->width(); ++x) {
      std::uint32_t pixel = 0;
      std::memcpy(&pixel, picture->pixel(x, y), sizeof pixel);
      pixels.push_back(pixel & 0xFFFFFF);
    }
  }
  return pixels;
}

TEST(X11Stream, AWindowIsShownWhole) {
  const auto server = XServer::start({.size = {1000, 700}, .windowManager = true});
  ASSERT_TRUE(server);
  TestWindow window(*server, {.frame = {100, 100, 300, 200}, .colour = 0x336699});
  XClient& client = window.client();
  client.fill(window.id(), {10, 10, 50, 40}, 0xFF0000);
  client.sync();
  PixelRect outer;
  {
    const auto content = X11ScreenCapture(server->display()).shareableContent();
    ASSERT_TRUE(content && content->windows.size() == 1);
    outer = content->windows[0].frame;
  }
  ASSERT_GT(outer.height, 200) << "the window manager frames it";
  StreamReceiver receiver;
  ScreenStreamConfiguration configuration = areaOf(outer);
  configuration.window = window.id();
  ASSERT_TRUE(receiver.start(*server, configuration));
  receiver.settle();
  EXPECT_TRUE(receiver.picture() == stillOf(*server, window));
  const PixelPoint inner{window.frame().x - outer.x, window.frame().y - outer.y};

  TestWindow cover(*server, {.frame = {0, 0, 1000, 700}, .colour = 0, .unmanaged = true});
  client.fill(window.id(), {100, 100, 30, 20}, 0x00FF00);
  client.sync();
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(inner.x + 110, inner.y + 110) == 0x00FF00; })) << "covered";
  EXPECT_EQ(receiver.frames().back().changes, (std::vector<PixelRect>{{inner.x + 100, inner.y + 100, 30, 20}}));
  EXPECT_EQ(receiver.pixel(inner.x + 20, inner.y + 20), 0xFF0000U);
  cover.destroy();

  receiver.settle();
  const std::size_t before = receiver.count();
  window.move({400, 300, 300, 200});
  receiver.settle();
  EXPECT_EQ(receiver.pixel(inner.x + 20, inner.y + 20), 0xFF0000U) << "moved";
  EXPECT_LE(receiver.count(), before + 3) << "a window that moves is the same picture";

  server->check({"xdotool", "windowminimize", "--sync", std::to_string(window.id())});
  receiver.settle();
  EXPECT_EQ(receiver.pixel(inner.x + 20, inner.y + 20), 0xFF0000U) << "minimized: the last picture stays";
  server->check({"xdotool", "windowmap", "--sync", std::to_string(window.id())});
  window.unmap();
  receiver.settle();
  EXPECT_FALSE(receiver.stopped()) << "without its frame";
  EXPECT_FALSE(receiver.stopped());
  window.map();
  window.paint(0x777777);
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(inner.x + 20, inner.y + 20) == 0x777777; }));

  window.destroy();
  ASSERT_TRUE(waitFor([&] { return receiver.stopped().has_value(); }));
  EXPECT_EQ(receiver.stopped(), ScreenCaptureError::WindowGone);
  StreamReceiver late;
  EXPECT_EQ(late.startError(*server, configuration), ScreenCaptureError::WindowGone);
}

TEST(X11Stream, AWindowOfAnotherSizeIsScaledIntoThePicture) {
  const auto server = XServer::start({.size = {1000, 700}});
  ASSERT_TRUE(server);
  TestWindow window(*server, {.frame = {100, 100, 300, 200}, .colour = 0x336699, .unmanaged = true});
  StreamReceiver receiver;
  ScreenStreamConfiguration configuration = areaOf(window.frame());
  configuration.window = window.id();
  ASSERT_TRUE(receiver.start(*server, configuration));
  window.move({100, 100, 600, 200});
  XClient& client = window.client();
  client.fill(window.id(), {0, 0, 300, 200}, 0xFF0000);
  client.sync();
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(10, 100) == 0xFF0000; }));
  receiver.settle();
  EXPECT_EQ(receiver.pixel(10, 49), 0U) << "letterboxed";
  EXPECT_EQ(receiver.pixel(10, 50), 0xFF0000U);
  EXPECT_EQ(receiver.pixel(290, 149), 0x336699U);
  EXPECT_EQ(receiver.pixel(290, 150), 0U);
  const std::size_t before = receiver.count();
  client.fill(window.id(), {400, 40, 80, 60}, 0x00FF00);
  client.sync();
  ASSERT_TRUE(waitFor([&] { return receiver.count() > before; }));
  receiver.settle();
  EXPECT_EQ(receiver.pixel(220, 85), 0x00FF00U);
  EXPECT_EQ(receiver.pixel(180, 85), 0x336699U);

  window.move({100, 100, 150, 100});  // half as large: every pixel becomes four
  window.paint(0x224466);
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(5, 5) == 0x224466 && receiver.pixel(295, 195) == 0x224466; }));
  window.move({100, 100, 300, 200});
  client.fill(window.id(), {299, 199, 1, 1}, 0xFFFFFF);
  client.sync();
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(299, 199) == 0xFFFFFF; })) << "its own pixels again";
}

TEST(X11Stream, AlphaAndShapeAreFlattenedOnBlack) {
  const auto server = XServer::start({.size = {600, 400}});
  ASSERT_TRUE(server);
  TestWindow window(*server, {.frame = {50, 50, 100, 80}, .colour = 0x80400000, .alpha = true, .unmanaged = true});
  xcb_connection_t* c = window.client().connection();
  const xcb_xfixes_region_t shape = xcb_generate_id(c);
  const xcb_rectangle_t left{0, 0, 60, 80};
  xcb_discard_reply(c, xcb_xfixes_query_version(c, 5, 0).sequence);
  xcb_xfixes_create_region(c, shape, 1, &left);
  xcb_xfixes_set_window_shape_region(c, window.id(), XCB_SHAPE_SK_BOUNDING, 0, 0, shape);
  window.client().sync();
  StreamReceiver receiver;
  ScreenStreamConfiguration configuration = areaOf(window.frame());
  configuration.window = window.id();
  ASSERT_TRUE(receiver.start(*server, configuration));
  receiver.settle();
  EXPECT_EQ(receiver.pixel(59, 40), 0x400000U);
  EXPECT_EQ(receiver.pixel(60, 40), 0U);
}

/// Gives the root window a cursor of one translucent color.
void setCursor(const XClient& client, std::uint32_t premultiplied, PixelSize size, PixelPoint hotSpot) {
  xcb_connection_t* c = client.connection();
  const auto formats = std::unique_ptr<xcb_render_query_pict_formats_reply_t, decltype(&std::free)>(
      xcb_render_query_pict_formats_reply(c, xcb_render_query_pict_formats(c), nullptr), &std::free);
  ASSERT_TRUE(formats);
  xcb_render_pictformat_t argb = 0;
  for (auto f = xcb_render_query_pict_formats_formats_iterator(formats.get()); f.rem > 0;
       xcb_render_pictforminfo_next(&f)) {
    if (f.data->depth == 32 && f.data->direct.alpha_mask == 0xFF && f.data->direct.red_shift == 16) argb = f.data->id;
  }
  const xcb_pixmap_t pixmap = xcb_generate_id(c);
  const xcb_render_picture_t picture = xcb_generate_id(c);
  const xcb_cursor_t cursor = xcb_generate_id(c);
  xcb_create_pixmap(c, 32, pixmap, client.root(), static_cast<std::uint16_t>(size.width),
                    static_cast<std::uint16_t>(size.height));
  xcb_render_create_picture(c, picture, pixmap, argb, 0, nullptr);
  const auto channel = [&](int shift) { return static_cast<std::uint16_t>((premultiplied >> shift & 0xFF) * 257); };
  const xcb_rectangle_t all{0, 0, static_cast<std::uint16_t>(size.width), static_cast<std::uint16_t>(size.height)};
  xcb_render_fill_rectangles(c, XCB_RENDER_PICT_OP_SRC, picture, {channel(16), channel(8), channel(0), channel(24)}, 1,
                             &all);
  xcb_render_create_cursor(c, cursor, picture, static_cast<std::uint16_t>(hotSpot.x),
                           static_cast<std::uint16_t>(hotSpot.y));
  xcb_change_window_attributes(c, client.root(), XCB_CW_CURSOR, &cursor);
  client.sync();
}

TEST(X11Stream, TheCursorIsDrawnWhereItIsAndAsItLooks) {
  const auto server = XServer::start({.size = {800, 600}});
  ASSERT_TRUE(server);
  const XClient client(*server);
  client.fill(client.root(), {0, 0, 800, 600}, 0x0000FF);
  setCursor(client, 0x80800000, {16, 20}, {4, 6});
  client.movePointer({300, 200});
  StreamReceiver receiver;
  ASSERT_TRUE(receiver.start(*server, areaOf({100, 100, 400, 300}, true)));
  const std::uint32_t blended = 0x80007F;
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(196, 94) == blended; })) << std::hex << receiver.pixel(200, 100);
  EXPECT_EQ(receiver.pixel(195, 94), 0x0000FFU);
  EXPECT_EQ(receiver.pixel(211, 113), blended);
  EXPECT_EQ(receiver.pixel(212, 113), 0x0000FFU);
  const std::uint64_t shape = receiver.pointers().back().shape;

  receiver.settle();
  std::size_t before = receiver.count();
  client.movePointer({398, 298});
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(294, 192) == blended; }));
  EXPECT_EQ(receiver.pixel(200, 100), 0x0000FFU) << "gone from its old place";
  EXPECT_EQ(receiver.count(), before + 1);
  EXPECT_EQ(receiver.frames().back().changes.size(), 2U) << "the old place and the new one";
  EXPECT_EQ(receiver.pointers().back().position, (PixelPoint{298, 198}));

  setCursor(client, 0xFF00FF00, {8, 8}, {0, 0});
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(298, 198) == 0x00FF00; }));
  EXPECT_EQ(receiver.pixel(294, 192), 0x0000FFU);
  EXPECT_NE(receiver.pointers().back().shape, shape);
  setCursor(client, 0x80800000, {16, 20}, {4, 6});
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(294, 192) == blended; }));
  EXPECT_EQ(receiver.pointers().back().shape, shape) << "the same picture has the same name";

  client.movePointer({102, 103});
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(0, 0) == blended; })) << "cut off at the edge";
  client.fill(client.root(), {90, 90, 40, 40}, 0x00FFFF);
  client.sync();
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(0, 0) == 0x807F7F; })) << "over what is drawn below it";
  client.movePointer({10, 10});
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(0, 0) == 0x00FFFF; }));
  receiver.settle();
  before = receiver.count();
  client.movePointer({20, 20});
  receiver.settle();
  EXPECT_EQ(receiver.count(), before) << "outside the picture";

  const std::size_t samples = receiver.pointers().size();
  client.button(1, true);
  client.button(1, false);
  client.button(3, true);
  ASSERT_TRUE(waitFor([&] { return receiver.pointers().back().buttons == 4; }));
  client.button(3, false);
  ASSERT_TRUE(waitFor([&] { return receiver.pointers().back().buttons == 0; }));
  bool clicked = false;
  for (const PointerSample& sample : receiver.pointers()) clicked = clicked || (sample.buttons & 1) != 0;
  EXPECT_TRUE(clicked) << "a click shorter than a frame";
  EXPECT_LE(receiver.pointers().size(), samples + 5);
}

TEST(X11Stream, WindowsLeftOutAreNotInThePicture) {
  const auto server = XServer::start({.size = {800, 600}});
  ASSERT_TRUE(server);
  const XClient client(*server);
  const std::uint32_t ground = 0x202020;
  xcb_change_window_attributes(client.connection(), client.root(), XCB_CW_BACK_PIXEL, &ground);
  xcb_clear_area(client.connection(), 0, client.root(), 0, 0, 0, 0);
  client.sync();
  TestWindow below(*server, {.frame = {100, 100, 300, 300}, .colour = 0x336699, .unmanaged = true});
  below.client().fill(below.id(), {150, 150, 100, 100}, 0xFFFF00);
  below.client().sync();
  const PixelRect area{0, 0, 800, 600};
  const Pixels expected = server->pixels(area);
  TestWindow bar(*server, {.frame = {50, 180, 200, 60}, .colour = 0xFF0000, .unmanaged = true});
  // A frame around the whole area, as a shaped window.
  TestWindow border(*server, {.frame = {0, 0, 800, 600}, .colour = 0x00FF00, .unmanaged = true, .mapped = false});
  {
    xcb_connection_t* c = border.client().connection();
    const xcb_rectangle_t edges[] = {{0, 0, 800, 2}, {0, 2, 2, 596}, {798, 2, 2, 596}, {0, 598, 800, 2}};
    const xcb_xfixes_region_t shape = xcb_generate_id(c);
    xcb_discard_reply(c, xcb_xfixes_query_version(c, 5, 0).sequence);
    xcb_xfixes_create_region(c, shape, 4, edges);
    xcb_xfixes_set_window_shape_region(c, border.id(), XCB_SHAPE_SK_BOUNDING, 0, 0, shape);
    border.map();
  }
  ASSERT_NE(server->pixels(area), expected);
  StreamReceiver receiver;
  ScreenStreamConfiguration configuration = areaOf(area);
  configuration.leftOut = {bar.id(), border.id()};
  std::atomic<int> shown = 0;
  receiver.inspect = [&](const ScreenFrame& frame) {
    const Pixels pixels = pixelsOf(frame);
    if (std::ranges::find(pixels, 0xFF0000U) != pixels.end() || std::ranges::find(pixels, 0x00FF00U) != pixels.end()) {
      ++shown;
    }
  };
  ASSERT_TRUE(receiver.start(*server, configuration));
  // A program repaints what was hidden when it is asked to.
  below.client().fill(below.id(), {150, 150, 100, 100}, 0xFFFF00);
  below.client().sync();
  receiver.settle();
  EXPECT_TRUE(receiver.picture() == expected);

  std::size_t before = receiver.count();
  bar.paint(0xFF0000);
  receiver.settle();
  EXPECT_EQ(receiver.count(), before) << "what happens in them is no change";
  below.client().fill(below.id(), {20, 100, 20, 20}, 0xABCDEF);
  below.client().sync();
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(125, 205) == 0xABCDEF; })) << "what happens below them is one";
  below.client().fill(below.id(), {20, 100, 20, 20}, 0x336699);
  below.client().sync();

  for (int step = 0; step < 40; ++step) {
    bar.move({50 + step * 10, 180 + step * 3, 200, 60});
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  receiver.settle();
  EXPECT_TRUE(receiver.picture() == expected) << "moved";
  {
    TestWindow above(*server, {.frame = {500, 280, 100, 100}, .colour = 0xCC00CC, .unmanaged = true});
    ASSERT_TRUE(waitFor([&] { return receiver.pixel(550, 320) == 0xCC00CC; })) << "a window above them is shown";
    above.destroy();
  }
  bar.unmap();
  border.unmap();
  receiver.settle();
  EXPECT_TRUE(receiver.picture() == expected) << "gone";
  bar.map();
  receiver.settle();
  EXPECT_TRUE(receiver.picture() == expected) << "come back";
  EXPECT_EQ(shown, 0) << "in some frame";
}

TEST(X11Stream, WindowsToLeaveOutMayComeAndGo) {
  const auto server = XServer::start({.size = {400, 300}});
  ASSERT_TRUE(server);
  TestWindow below(*server, {.frame = {50, 50, 200, 150}, .colour = 0x336699, .unmanaged = true});
  const PixelRect area{0, 0, 400, 300};
  const Pixels expected = server->pixels(area);
  StreamReceiver receiver;
  std::atomic<int> shown = 0;
  receiver.inspect = [&](const ScreenFrame& frame) {
    const Pixels pixels = pixelsOf(frame);
    if (std::ranges::find(pixels, 0x00FF00U) != pixels.end()) ++shown;
  };
  ASSERT_TRUE(receiver.start(*server, areaOf(area)));
  const auto shows = [&](const Pixels& pixels) {
    // A program repaints what was hidden when it is asked to.
    below.client().fill(below.id(), {0, 0, 200, 150}, 0x336699);
    below.client().sync();
    return waitFor([&] { return receiver.picture() == pixels; });
  };

  TestWindow bar(*server, {.frame = {100, 100, 80, 40}, .colour = 0xFF0000, .unmanaged = true});
  ASSERT_TRUE(waitFor([&] { return receiver.pixel(120, 120) == 0xFF0000; }));
  const Pixels withBar = server->pixels(area);
  receiver.stream().setLeftOut({bar.id()});
  EXPECT_TRUE(shows(expected)) << "the first one";
  // Another one is told before it is shown: it is in no frame.
  TestWindow toast(*server, {.frame = {200, 150, 90, 60}, .colour = 0x00FF00, .unmanaged = true, .mapped = false});
  receiver.stream().setLeftOut({bar.id(), toast.id()});
  receiver.settle();
  toast.map();
  receiver.settle();
  EXPECT_TRUE(shows(expected));
  toast.move({90, 90, 90, 60});
  receiver.settle();
  EXPECT_TRUE(shows(expected)) << "moved over the other one";
  EXPECT_EQ(shown, 0);
  toast.destroy();
  receiver.stream().setLeftOut({});
  EXPECT_TRUE(shows(withBar)) << "none any more";
  bar.move({10, 10, 80, 40});
  EXPECT_TRUE(waitFor([&] { return receiver.picture() == server->pixels(area); })) << "an ordinary window again";
}

std::size_t openDescriptors() {
  using Iterator = std::filesystem::directory_iterator;
  return static_cast<std::size_t>(std::distance(Iterator("/proc/self/fd"), Iterator()));
}
/// Memory of this process in kilobytes.
long residentSize() {
  std::ifstream file("/proc/self/statm");
  long total = 0;
  long resident = 0;
  file >> total >> resident;
  return resident * 4;
}

TEST(X11Stream, LeavesNothingBehind) {
  const auto server = XServer::start({.size = {1280, 720}});
  ASSERT_TRUE(server);
  TestWindow window(*server);
  std::size_t descriptors = 0;
  long memory = 0;
  for (int i = 0; i < 60; ++i) {
    StreamReceiver receiver;
    ScreenStreamConfiguration configuration = areaOf({0, 0, 1280, 720}, true);
    if (i % 4 == 0) configuration.leftOut = {window.id()};
    if (i % 2 == 1) configuration.window = window.id();
    ASSERT_TRUE(receiver.start(*server, configuration));
    receiver.stop();
    if (i != 9) continue;
    descriptors = openDescriptors();
    memory = residentSize();
  }
  EXPECT_EQ(openDescriptors(), descriptors);
  EXPECT_LT(residentSize() - memory, 4096);
}

}  // namespace
}  // namespace vellora::test
