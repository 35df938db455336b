#include <gtest/gtest.h>
#include <xcb/composite.h>
#include <xcb/xfixes.h>

#include <atomic>
#include <thread>

#include "platform/linux/x11/X11ScreenCapture.h"
#include "support/XClient.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

using Pixels = std::vector<std::uint32_t>;

std::uint32_t argbAt(const Bitmap& bitmap, int x, int y) {
  const std::byte* p = bitmap.pixel(x, y);
  std::uint32_t value = 0;
  for (int i = 3; i >= 0; --i) value = value << 8 | std::to_integer<std::uint32_t>(p[i]);
  return value;
}
std::uint32_t rgbAt(const Bitmap& bitmap, int x, int y) {
  return argbAt(bitmap, x, y) & 0xFFFFFF;
}

Pixels rgbOf(const Bitmap& bitmap) {
  Pixels pixels;
  for (int y = 0; y < bitmap.height(); ++y) {
    for (int x = 0; x < bitmap.width(); ++x) pixels.push_back(rgbAt(bitmap, x, y));
  }
  return pixels;
}

/// Draws something different in every corner of the root window, so that a shifted or mixed-up row shows.
void drawPattern(const XClient& client, PixelSize size) {
  std::uint32_t colour = 0x102030;
  for (int y = 0; y < size.height; y += 37) {
    for (int x = 0; x < size.width; x += 53) {
      client.fill(client.root(), {x, y, 53, 37}, colour & 0xFFFFFF);
      colour = colour * 1664525 + 1013904223;
    }
  }
}

DisplayInfo displayNamed(const ShareableContent& content, const char* name) {
  for (const DisplayInfo& display : content.displays) {
    if (display.name == QLatin1String(name)) return display;
  }
  ADD_FAILURE() << "no display " << name;
  return {};
}

const WindowInfo* windowTitled(const ShareableContent& content, const char* title) {
  for (const WindowInfo& window : content.windows) {
    if (window.title == QString::fromUtf8(title)) return &window;
  }
  return nullptr;
}

std::vector<QString> titles(const ShareableContent& content) {
  std::vector<QString> result;
  for (const WindowInfo& window : content.windows) result.push_back(window.title);
  return result;
}

TEST(X11Capture, PicturesEqualWhatAnotherProgramReads) {
  const PixelSize size{2560, 1441};  // more than two strips, the last one short
  const auto server = XServer::start({.size = size});
  ASSERT_TRUE(server);
  const XClient client(*server);
  drawPattern(client, size);
  X11ScreenCapture capture(server->display());
  const auto content = capture.shareableContent();
  ASSERT_TRUE(content);
  ASSERT_EQ(content->displays.size(), 1U);
  const auto picture = capture.displayImage(content->displays[0].id);
  ASSERT_TRUE(picture);
  ASSERT_EQ(picture->size(), size);
  EXPECT_TRUE(rgbOf(*picture) == server->pixelsByXwd({0, 0, size.width, size.height}));
  const PixelRect region{501, 203, 77, 31};
  const auto part = capture.regionImage(region);
  ASSERT_TRUE(part);
  EXPECT_EQ(rgbOf(*part), server->pixelsByXwd(region));
}

TEST(X11Capture, ColoursOfOtherDepthsAreConvertedAndPalettesRefused) {
  for (const int depth : {16, 30}) {
    const auto server = XServer::start({.size = {1200, 800}, .depth = depth});
    ASSERT_TRUE(server);
    const XClient client(*server);
    const std::uint32_t red = depth == 16 ? 0xF800 : 0x3FF00000;
    const std::uint32_t grey = depth == 16 ? (16 << 11 | 32 << 5 | 16) : (512U << 20 | 512U << 10 | 512U);
    client.fill(client.root(), {0, 0, 600, 800}, red);
    client.fill(client.root(), {600, 0, 600, 800}, grey);
    X11ScreenCapture capture(server->display());
    const auto picture = capture.regionImage({0, 0, 1200, 800});
    ASSERT_TRUE(picture) << depth;
    EXPECT_EQ(rgbAt(*picture, 599, 799), 0xFF0000U) << depth;
    const std::uint32_t level = rgbAt(*picture, 600, 799) & 0xFF;
    EXPECT_NEAR(level, 129, 4) << depth;
  }
  const auto server = XServer::start({.size = {640, 480}, .depth = 8});
  ASSERT_TRUE(server);
  X11ScreenCapture capture(server->display());
  const auto picture = capture.regionImage({0, 0, 640, 480});
  ASSERT_FALSE(picture);
  EXPECT_EQ(picture.error(), ScreenCaptureError::Failed);
}

TEST(X11Capture, SeveralDisplaysGapsAndTheEdgeOfTheDesktop) {
  const auto server = XServer::start({.size = {1000, 600}});
  ASSERT_TRUE(server);
  const XClient client(*server);
  client.fill(client.root(), {0, 0, 1000, 600}, 0x00FF00);
  client.fill(client.root(), {400, 100, 600, 500}, 0x0000FF);
  server->setMonitors({{"LEFT", {0, 0, 400, 600}}, {"RIGHT", {450, 100, 550, 500}}, {"COPY", {450, 100, 500, 400}}});
  X11ScreenCapture capture(server->display());
  const auto content = capture.shareableContent();
  ASSERT_TRUE(content);
  ASSERT_EQ(content->displays.size(), 2U) << "a mirrored display is none of its own";
  EXPECT_EQ(content->displays[0].name, QStringLiteral("LEFT"));
  EXPECT_TRUE(content->displays[0].isPrimary);
  const DisplayInfo right = displayNamed(*content, "RIGHT");
  EXPECT_EQ(right.frame, (PixelRect{450, 100, 550, 500}));
  EXPECT_GE(right.refreshRate, 1);
  const auto picture = capture.displayImage(right.id);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->size(), (PixelSize{550, 500}));
  EXPECT_EQ(rgbAt(*picture, 0, 0), 0x0000FFU);

  const auto across = capture.regionImage({-10, 550, 1100, 100});
  ASSERT_TRUE(across);
  EXPECT_EQ(across->size(), (PixelSize{1100, 100}));
  EXPECT_EQ(rgbAt(*across, 9, 0), 0U) << "left of the desktop";
  EXPECT_EQ(rgbAt(*across, 10, 49), 0x00FF00U);
  EXPECT_EQ(rgbAt(*across, 10, 50), 0U) << "below the desktop";
  EXPECT_EQ(rgbAt(*across, 430, 0), 0U) << "between the displays, although the root window has pixels there";
  EXPECT_EQ(rgbAt(*across, 460, 0), 0x0000FFU);
  for (const PixelRect nowhere : {PixelRect{2000, 0, 10, 10}, PixelRect{410, 0, 20, 50}, PixelRect{0, 0, 0, 5},
                                  PixelRect{-2000000000, 0, 2000000100, 10}}) {
    const auto none = capture.regionImage(nowhere);
    ASSERT_FALSE(none);
    EXPECT_EQ(none.error(), ScreenCaptureError::NoDisplay);
  }
}

TEST(X11Capture, DisplaysThatGoOrChangeTheirSize) {
  const auto server = XServer::start({.size = {1000, 600}});
  ASSERT_TRUE(server);
  server->setMonitors({{"LEFT", {0, 0, 500, 600}}, {"RIGHT", {500, 0, 500, 600}}});
  X11ScreenCapture capture(server->display());
  const auto content = capture.shareableContent();
  ASSERT_TRUE(content);
  const DisplayInfo left = displayNamed(*content, "LEFT");
  const DisplayInfo right = displayNamed(*content, "RIGHT");
  server->removeMonitor("RIGHT");
  const auto gone = capture.displayImage(right.id);
  ASSERT_FALSE(gone);
  EXPECT_EQ(gone.error(), ScreenCaptureError::NoDisplay);
  EXPECT_TRUE(capture.displayImage(left.id));

  server->removeMonitor("LEFT");
  const auto before = capture.shareableContent();
  ASSERT_TRUE(before);
  ASSERT_EQ(before->displays.size(), 1U);
  server->setMode({640, 480});
  const auto smaller = capture.displayImage(before->displays[0].id);
  ASSERT_TRUE(smaller);
  EXPECT_EQ(smaller->size(), (PixelSize{640, 480}));
}

TEST(X11Capture, ScalesAreThoseOfAProgramWithWindows) {
  const auto server = XServer::start({.size = {1000, 600}});
  ASSERT_TRUE(server);
  server->setMonitors({{"FIRST", {0, 0, 500, 600}}, {"SECOND", {500, 0, 500, 600}}});
  struct Case {
    const char* resources;
    Environment environment;
  };
  const Case cases[] = {{"", {}},
                        {"", {"QT_SCALE_FACTOR=2"}},
                        {"Xft.dpi:\t144\n", {}},
                        {"Xft.dpi:\t150.7\n", {"QT_SCALE_FACTOR=1.25"}},
                        {"Xft.dpi:\t72\n", {}},
                        {"Xft.dpi:\t192\n", {"QT_FONT_DPI=120"}},
                        {"Xft.dpi:\t168\n", {"QT_SCALE_FACTOR_ROUNDING_POLICY=Round"}},
                        {"Xft.dpi:\t144\n", {"QT_SCREEN_SCALE_FACTORS=SECOND=3"}},
                        {"Xft.dpi:\t144\n", {"QT_SCREEN_SCALE_FACTORS=2;1.5", "QT_SCALE_FACTOR=1.5"}},
                        {"Xft.dpi:\t144\n", {"QT_ENABLE_HIGHDPI_SCALING=0"}}};
  const ScopedDisplay display(*server);
  for (const Case& c : cases) {
    server->check({"xrdb", "-load", "-nocpp"}, c.resources);
    const Finished expected = server->run({std::string(VELLORA_BIN_DIR) + "/qt_scale_probe"}, {}, c.environment);
    ASSERT_EQ(expected.exitCode, 0) << expected.errors;
    for (const std::string& variable : c.environment) {
      const std::size_t equals = variable.find('=');
      setenv(variable.substr(0, equals).c_str(), variable.substr(equals + 1).c_str(), 1);
    }
    X11ScreenCapture capture;
    const auto content = capture.shareableContent();
    for (const std::string& variable : c.environment) unsetenv(variable.substr(0, variable.find('=')).c_str());
    ASSERT_TRUE(content);
    std::string found;
    for (const DisplayInfo& info : content->displays) {
      char line[64];
      std::snprintf(line, sizeof line, "%s %.6f\n", qPrintable(info.name), info.scale);
      found += line;
    }
    EXPECT_EQ(found, expected.output) << c.resources << (c.environment.empty() ? "" : c.environment[0]);
  }
}

TEST(X11Capture, ListsTheWindowsAPersonSees) {
  const auto server = XServer::start({.size = {1000, 700}, .windowManager = true});
  ASSERT_TRUE(server);
  TestWindow back(*server, {.frame = {50, 60, 300, 200}, .title = "Zurück – 后", .application = "Backer"});
  TestWindow front(*server, {.frame = {120, 90, 300, 200}, .title = "Front"});
  TestWindow minimised(*server, {.title = "Minimised"});
  TestWindow elsewhere(*server, {.title = "Elsewhere"});
  TestWindow panel(*server, {.frame = {0, 0, 1000, 30}, .mapped = false, .title = "Panel"});
  panel.client().setProperty(panel.id(), "_NET_WM_WINDOW_TYPE", "ATOM",
                             {panel.client().atom("_NET_WM_WINDOW_TYPE_DOCK")});
  panel.map();
  TestWindow shadowed(*server, {.frame = {400, 300, 240, 180}, .mapped = false, .title = "Own shadow"});
  shadowed.client().setProperty(shadowed.id(), "_GTK_FRAME_EXTENTS", "CARDINAL", {10, 20, 30, 40});
  shadowed.client().setProperty(shadowed.id(), "_MOTIF_WM_HINTS", "_MOTIF_WM_HINTS", {2, 0, 0, 0, 0});
  shadowed.map();
  server->check({"xdotool", "windowminimize", "--sync", std::to_string(minimised.id())});
  server->check({"xdotool", "set_num_desktops", "2"});
  server->check({"xdotool", "set_desktop_for_window", std::to_string(elsewhere.id()), "1"});
  server->check({"xdotool", "windowactivate", "--sync", std::to_string(front.id())});
  X11ScreenCapture capture(server->display());
  const std::vector<QString> expected = {QStringLiteral("Front"), QStringLiteral("Own shadow"),
                                         QStringLiteral("Zurück – 后")};
  EXPECT_TRUE(waitFor([&] { return titles(*capture.shareableContent()) == expected; }));
  const auto content = capture.shareableContent();
  ASSERT_TRUE(content);
  ASSERT_EQ(titles(*content), expected);
  const WindowInfo* own = windowTitled(*content, "Zurück – 后");
  EXPECT_EQ(own->application, QStringLiteral("Backer"));
  EXPECT_EQ(own->id, back.id());
  EXPECT_GT(own->frame.height, 200) << "the title bar belongs to the window";
  EXPECT_EQ(own->frame.intersected(back.frame()), back.frame());
  const WindowInfo* gtk = windowTitled(*content, "Own shadow");
  const PixelRect whole = shadowed.frame();
  EXPECT_EQ(gtk->frame, (PixelRect{whole.x + 10, whole.y + 30, 240 - 30, 180 - 70}));

  const auto picture = capture.windowImage(own->id);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->size(), own->frame.size());
  const PixelRect inner = back.frame().translated(-own->frame.x, -own->frame.y);
  for (const PixelPoint p : {PixelPoint{inner.x, inner.y}, PixelPoint{inner.right() - 1, inner.bottom() - 1}}) {
    EXPECT_EQ(rgbAt(*picture, p.x, p.y), 0x336699U) << "covered, and whole all the same";
  }
  const auto cropped = capture.windowImage(shadowed.id());
  ASSERT_TRUE(cropped);
  EXPECT_EQ(cropped->size(), gtk->frame.size());
}

TEST(X11Capture, WithoutAWindowManagerTheTreeIsTheList) {
  const auto server = XServer::start({.size = {800, 600}});
  ASSERT_TRUE(server);
  TestWindow low(*server, {.frame = {10, 10, 100, 100}, .title = "Low"});
  TestWindow high(*server, {.frame = {20, 20, 100, 100}, .title = "High"});
  TestWindow menu(*server, {.frame = {30, 30, 100, 100}, .unmanaged = true, .title = "Menu"});
  TestWindow dot(*server, {.frame = {30, 30, 1, 1}, .title = "Dot"});
  X11ScreenCapture capture(server->display());
  const auto content = capture.shareableContent();
  ASSERT_TRUE(content);
  EXPECT_EQ(titles(*content), (std::vector<QString>{QStringLiteral("High"), QStringLiteral("Low")}));
}

/// A program that paints its window by itself, in two halves and not at once, when it is asked to.
class SlowPainter {
 public:
  SlowPainter(const XServer& server, PixelRect frame) : client_(server), frame_(frame) {
    xcb_connection_t* c = client_.connection();
    window_ = xcb_generate_id(c);
    const std::uint32_t mask = XCB_EVENT_MASK_EXPOSURE;
    xcb_create_window(c, XCB_COPY_FROM_PARENT, window_, client_.root(), static_cast<std::int16_t>(frame.x),
                      static_cast<std::int16_t>(frame.y), static_cast<std::uint16_t>(frame.width),
                      static_cast<std::uint16_t>(frame.height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_EVENT_MASK, &mask);
    xcb_map_window(c, window_);
    client_.sync();
    thread_ = std::thread([this] { run(); });
  }
  ~SlowPainter() {
    ending_ = true;
    thread_.join();
  }
  xcb_window_t id() const { return window_; }
  int paints() const { return paints_; }

 private:
  void run() {
    while (!ending_) {
      bool exposed = false;
      while (xcb_generic_event_t* event = xcb_poll_for_event(client_.connection())) {
        exposed = exposed || event->response_type == XCB_EXPOSE;
        std::free(event);
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
      if (!exposed) continue;
      client_.fill(window_, {0, 0, frame_.width / 2, frame_.height}, 0xAA0000);
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
      client_.fill(window_, {frame_.width / 2, 0, frame_.width, frame_.height}, 0x00AA00);
      ++paints_;
    }
  }

  XClient client_;
  PixelRect frame_;
  xcb_window_t window_ = 0;
  std::atomic<bool> ending_ = false;
  std::atomic<int> paints_ = 0;
  std::thread thread_;
};

TEST(X11Capture, CoveredAndHalfOutsideWindowsAreTakenWhole) {
  const auto server = XServer::start({.size = {800, 600}});
  ASSERT_TRUE(server);
  const SlowPainter painter(*server, {700, 100, 200, 200});  // its right half is outside the screen
  ASSERT_TRUE(waitFor([&] { return painter.paints() > 0; }));
  const TestWindow cover(*server, {.frame = {650, 50, 150, 150}, .colour = 0xFFFFFF});
  X11ScreenCapture capture(server->display());
  const auto picture = capture.windowImage(painter.id());
  ASSERT_TRUE(picture);
  ASSERT_EQ(picture->size(), (PixelSize{200, 200}));
  for (const int y : {0, 50, 199}) {
    EXPECT_EQ(rgbAt(*picture, 0, y), 0xAA0000U) << y;
    EXPECT_EQ(rgbAt(*picture, 199, y), 0x00AA00U) << y;
  }
  EXPECT_EQ(server->pixels({700, 100, 1, 1}), Pixels{0xFFFFFF}) << "the screen is as it was";
}

TEST(X11Capture, WindowsUnderACompositingManagerAreReadFromTheirPixmaps) {
  const auto server = XServer::start({.size = {800, 600}});
  ASSERT_TRUE(server);
  const XClient manager(*server);
  xcb_composite_redirect_subwindows(manager.connection(), manager.root(), XCB_COMPOSITE_REDIRECT_MANUAL);
  manager.sync();
  TestWindow low(*server, {.frame = {100, 100, 200, 150}, .colour = 0x123456});
  TestWindow high(*server, {.frame = {100, 100, 200, 150}, .colour = 0xFFFFFF});
  X11ScreenCapture capture(server->display());
  const auto picture = capture.windowImage(low.id());
  ASSERT_TRUE(picture);
  EXPECT_EQ(rgbAt(*picture, 100, 75), 0x123456U);
  EXPECT_EQ(picture->alpha(), PixelAlpha::Opaque);
}

TEST(X11Capture, AlphaAndShapeStay) {
  const auto server = XServer::start({.size = {800, 600}});
  ASSERT_TRUE(server);
  const TestWindow glass(*server, {.frame = {10, 10, 50, 50}, .colour = 0x80402010, .alpha = true});
  const TestWindow careless(*server, {.frame = {100, 10, 50, 50}, .colour = 0x00402010, .alpha = true});
  TestWindow round(*server, {.frame = {200, 10, 60, 60}, .colour = 0x884422});
  xcb_connection_t* c = round.client().connection();
  std::free(xcb_xfixes_query_version_reply(c, xcb_xfixes_query_version(c, 4, 0), nullptr));
  const xcb_xfixes_region_t region = xcb_generate_id(c);
  const xcb_rectangle_t bands[] = {{20, 0, 20, 20}, {0, 20, 60, 20}, {20, 40, 20, 20}};
  xcb_xfixes_create_region(c, region, 3, bands);
  xcb_xfixes_set_window_shape_region(c, round.id(), XCB_SHAPE_SK_BOUNDING, 0, 0, region);
  round.client().sync();
  X11ScreenCapture capture(server->display());
  const auto transparent = capture.windowImage(glass.id());
  ASSERT_TRUE(transparent);
  EXPECT_EQ(transparent->alpha(), PixelAlpha::Premultiplied);
  EXPECT_EQ(argbAt(*transparent, 25, 25), 0x80402010U);
  const auto opaque = capture.windowImage(careless.id());
  ASSERT_TRUE(opaque);
  EXPECT_EQ(opaque->alpha(), PixelAlpha::Opaque) << "a program that leaves the fourth byte alone is not invisible";
  const auto shaped = capture.windowImage(round.id());
  ASSERT_TRUE(shaped);
  EXPECT_EQ(shaped->alpha(), PixelAlpha::Premultiplied);
  for (const PixelPoint corner : {PixelPoint{0, 0}, PixelPoint{59, 0}, PixelPoint{19, 59}, PixelPoint{40, 40}}) {
    EXPECT_EQ(argbAt(*shaped, corner.x, corner.y), 0U) << corner.x << ',' << corner.y;
  }
  for (const PixelPoint inside : {PixelPoint{20, 0}, PixelPoint{0, 39}, PixelPoint{59, 20}, PixelPoint{39, 59}}) {
    EXPECT_EQ(argbAt(*shaped, inside.x, inside.y), 0xFF884422U) << inside.x << ',' << inside.y;
  }
}

TEST(X11Capture, WindowsThatHaveGone) {
  const auto server = XServer::start({.size = {800, 600}});
  ASSERT_TRUE(server);
  TestWindow window(*server);
  X11ScreenCapture capture(server->display());
  EXPECT_TRUE(capture.windowImage(window.id()));
  window.unmap();
  const auto unmapped = capture.windowImage(window.id());
  ASSERT_FALSE(unmapped);
  EXPECT_EQ(unmapped.error(), ScreenCaptureError::WindowGone);
  window.destroy();
  for (const WindowId id : {window.id(), WindowId{0}, WindowId{0xFFFFFFFF}}) {
    const auto destroyed = capture.windowImage(id);
    ASSERT_FALSE(destroyed);
    EXPECT_EQ(destroyed.error(), ScreenCaptureError::WindowGone);
  }
  EXPECT_TRUE(capture.shareableContent());
}

TEST(X11Capture, ALostServerIsAnErrorAndSoIsNone) {
  const auto server = XServer::start({.size = {800, 600}});
  ASSERT_TRUE(server);
  X11ScreenCapture capture(server->display());
  const auto content = capture.shareableContent();
  ASSERT_TRUE(content);
  server->crash();
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(capture.displayImage(content->displays[0].id).error(), ScreenCaptureError::NotAvailable);
    EXPECT_EQ(capture.regionImage({0, 0, 10, 10}).error(), ScreenCaptureError::NotAvailable);
    EXPECT_EQ(capture.windowImage(1).error(), ScreenCaptureError::NotAvailable);
    EXPECT_EQ(capture.shareableContent().error(), ScreenCaptureError::NotAvailable);
  }
  X11ScreenCapture nowhere(":9999");
  EXPECT_EQ(nowhere.shareableContent().error(), ScreenCaptureError::NotAvailable);
}

TEST(X11Capture, ThreadsTakeTurns) {
  const auto server = XServer::start({.size = {1920, 1080}});
  ASSERT_TRUE(server);
  const XClient client(*server);
  client.fill(client.root(), {0, 0, 1920, 1080}, 0x445566);
  const TestWindow window(*server);
  X11ScreenCapture capture(server->display());
  std::atomic<int> good = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&, i] {
      for (int n = 0; n < 5; ++n) {
        const auto picture = i % 2 == 0 ? capture.regionImage({0, 0, 1920, 1080}) : capture.windowImage(window.id());
        if (picture &&
            rgbAt(*picture, picture->width() - 1, picture->height() - 1) == (i % 2 == 0 ? 0x445566U : 0x336699U))
          ++good;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(good, 20);
}

}  // namespace
}  // namespace vellora::test
