// The canvas under a real pointer and keyboard: what only a display can tell.

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>

#include "base/Json.h"
#include "support/XClient.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

class EditorCanvasTest : public testing::Test {
 protected:
  void SetUp() override {
    server = XServer::start({.size = {1280, 900}, .windowManager = true});
    ASSERT_TRUE(server);
    QImage picture(400, 300, QImage::Format_RGB32);
    picture.fill(Qt::white);
    ASSERT_TRUE(picture.save(home(QStringLiteral("picture.png"))));
  }

  QString home(const QString& name) const { return QString::fromStdString(server->home()) + u'/' + name; }

  void start(const std::string& tool) {
    probe = server->spawn({VELLORA_BIN_DIR "/canvas_probe", home(QStringLiteral("picture.png")).toStdString(),
                           home(QStringLiteral("state.json")).toStdString(), tool});
    ASSERT_TRUE(probe);
    client = std::make_unique<XClient>(*server);
    Json place;
    // The window manager moves the window about before it leaves it alone.
    ASSERT_TRUE(waitFor([&] {
      const Json now = state();
      const bool still = !now.is_null() && now["settled"] == true && now["origin"] == place;
      place = now.is_null() ? Json() : now["origin"];
      if (!still) std::this_thread::sleep_for(std::chrono::milliseconds(200));
      return still;
    }));
  }

  Json state() const {
    QFile file(home(QStringLiteral("state.json")));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return json::parse(file.readAll()).value_or(Json());
  }

  /// Where a document point is on the screen.
  PixelPoint onScreen(Point place) const {
    const Json now = state();
    const Point origin = json::point(now["origin"]).value_or(Point());
    const Point unit = json::point(now["unit"]).value_or(Point());
    return {static_cast<int>(std::lround(origin.x + (unit.x - origin.x) * place.x)),
            static_cast<int>(std::lround(origin.y + (unit.y - origin.y) * place.y))};
  }

  Json annotations() const {
    const Json now = state();
    return now.is_null() ? Json::array() : now["annotations"];
  }

  void press(Point place) const {
    client->movePointer(onScreen(place));
    client->button(1, true);
    client->sync();
  }
  void release() const {
    client->button(1, false);
    client->sync();
  }

  std::unique_ptr<XServer> server;
  std::unique_ptr<ChildProcess> probe;
  std::unique_ptr<XClient> client;
};

TEST_F(EditorCanvasTest, DrawsWhereThePointerIs) {
  start("4");  // a line
  press({40, 150});
  client->movePointer(onScreen({360, 150}));
  release();
  ASSERT_TRUE(waitFor([&] { return annotations().size() == 1; }));
  EXPECT_NEAR(annotations()[0]["p1"][0].get<double>(), 40, 1);
  EXPECT_NEAR(annotations()[0]["p2"][0].get<double>(), 360, 1);
  const PixelPoint middle = onScreen({200, 150});
  EXPECT_TRUE(waitFor([&] { return server->pixels({middle.x, middle.y, 1, 1}).front() != 0xFFFFFF; }));
  client->chord({29, 44});  // Ctrl+Z
  EXPECT_TRUE(waitFor([&] { return annotations().empty(); }));
  EXPECT_TRUE(waitFor([&] { return server->pixels({middle.x, middle.y, 1, 1}).front() == 0xFFFFFF; }));
}

TEST_F(EditorCanvasTest, LosesNoSampleOfAStroke) {
  start("9");  // the pen
  press({40, 100});
  // The window manager looks at a press before the window gets it, and the server merges what moves meanwhile.
  client->movePointer(onScreen({50, 100}));
  client->sync();
  ASSERT_TRUE(waitFor([&] { return annotations().size() == 1; }));
  constexpr int samples = 300;
  for (int i = 1; i <= samples; ++i) {
    // One after the other as fast as they can be sent: nothing may be merged on the way.
    client->movePointer(onScreen({50.0 + i, 100.0 + (i % 7) * 3}));
  }
  release();
  const auto taken = [&] { return annotations().empty() ? 0 : annotations()[0]["samples"].get<int>(); };
  EXPECT_TRUE(waitFor([&] { return taken() >= samples * 95 / 100; }, 5)) << taken() << " samples";
}

TEST_F(EditorCanvasTest, ZoomsByTheNotchesOfAWheel) {
  start("0");
  client->movePointer(onScreen({100, 100}));
  const PixelPoint before = onScreen({100, 100});
  for (int i = 0; i < 3; ++i) {
    client->button(4, true);
    client->button(4, false);
  }
  client->sync();
  ASSERT_TRUE(waitFor([&] { return state()["zoom"].get<double>() > 1.5 && state()["settled"] == true; }));
  const PixelPoint after = onScreen({100, 100});
  EXPECT_NEAR(after.x, before.x, 1);
  EXPECT_NEAR(after.y, before.y, 1);
}

TEST_F(EditorCanvasTest, TypesWhereItWasClicked) {
  start("5");  // text
  press({60, 80});
  release();
  ASSERT_TRUE(waitFor([&] { return state()["editing"] == true; }));
  for (const int key : {35, 23, 2}) client->chord({static_cast<std::uint16_t>(key)});  // h, i, 1
  ASSERT_TRUE(waitFor([&] { return annotations().size() == 1 && annotations()[0]["text"] == "hi1"; }));
  client->chord({1});  // Escape
  EXPECT_TRUE(waitFor([&] { return state()["editing"] == false; }));
}

TEST_F(EditorCanvasTest, PicksAColorAnywhereOnTheScreen) {
  TestWindow other(*server, {.frame = {1100, 700, 150, 150}, .colour = 0x1188CC, .unmanaged = true});
  start("pick");
  ASSERT_TRUE(waitFor([&] { return state()["picking"] == true; }));
  client->movePointer({1170, 770});
  client->button(1, true);
  client->button(1, false);
  client->sync();
  ASSERT_TRUE(waitFor([&] { return state().contains("picked"); }));
  const auto picked = json::color(state()["picked"]);
  ASSERT_TRUE(picked);
  EXPECT_NEAR(picked->red, 0x11 / 255.0, 0.01);
  EXPECT_NEAR(picked->green, 0x88 / 255.0, 0.01);
  EXPECT_NEAR(picked->blue, 0xCC / 255.0, 0.01);
  EXPECT_EQ(state()["picking"], false);
}

}  // namespace
}  // namespace vellora::test
