#include <gtest/gtest.h>
#include <sys/resource.h>
#include <xcb/xfixes.h>

#include <algorithm>
#include <atomic>
#include <cmath>
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
