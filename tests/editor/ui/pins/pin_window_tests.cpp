#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMenu>
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QScreen>
#include <QTranslator>
#include <QUrl>
#include <QWheelEvent>

#include "PinSpecimen.h"
#include "base/QtRunLoop.h"
#include "editor/ui/pins/PinBoard.h"
#include "editor/ui/pins/PinChrome.h"
#include "editor/ui/pins/PinDrag.h"
#include "editor/ui/pins/PinMenu.h"
#include "editor/ui/pins/PinWindow.h"
#include "editor/ui/pins/PinWindowController.h"
#include "kit/Compositing.h"
#include "kit/Paint.h"
#include "media/SharedPng.h"
#include "support/FakePreferences.h"
#include "support/TestBitmaps.h"

namespace vellora {
namespace {

using Tier = PinGeometry::ChromeTier;
using test::solidBitmap;

/// Runs the event loop until `done`, for at most five seconds.
template <class Condition>
bool runUntil(Condition done) {
  QElapsedTimer timer;
  timer.start();
  while (!done() && timer.elapsed() < 5000) QApplication::processEvents(QEventLoop::AllEvents, 10);
  return done();
}

/// Every pixel another colour; the fourth byte as the X server leaves it.
Bitmap colourful(PixelSize size) {
  auto bitmap = MutableBitmap::create(size, PixelAlpha::Opaque);
  if (!bitmap) return {};
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const auto pixel = static_cast<std::uint32_t>((x * 7 % 256) << 16 | (y * 5 % 256) << 8 | (x * y % 256));
      std::memcpy(bitmap->row(y) + x * 4, &pixel, 4);
    }
  }
  return std::move(*bitmap).finish();
}

/// The two texts that carry a number.
class Figures final : public QTranslator {
 public:
  bool isEmpty() const override { return false; }
  QString translate(const char*, const char* id, const char*, int) const override {
    const bool hasFigure = std::string_view(id) == "pin.percent" || std::string_view(id) == "pin.opacity.badge";
    return hasFigure ? QStringLiteral("%1") : QString();
  }
};

class PinsTest : public testing::Test {
 protected:
  PinsTest() {
    Theme::shared().setReducedMotion(true);
    setCompositingProbe([this](const QScreen*) { return blended; });
    QApplication::installTranslator(&figures);
  }
  ~PinsTest() override {
    setCompositingProbe({});
    Theme::shared().setReducedMotion(std::nullopt);
  }

  PinActions actions() {
    PinActions all;
    all.output = [this](auto png, Date, bool copy, bool save, auto done) {
      outputs.push_back({png, copy, save});
      done(true);
    };
    all.edit = [this](PinWindowController&) { return editorTakes; };
    all.closed = [this](PinWindowController& pin) { closed.push_back(pin.content().image); };
    all.tell = [this](QScreen*, const QString& text) { told << text; };
    all.changed = [this] { ++changes; };
    return all;
  }

  PinWindowController& pin(const Bitmap& image, double scale = 1) {
    PinContent content;
    content.image = image;
    content.scale = scale;
    return *board.open(content);
  }
  /// What the window shows, with alpha.
  static QImage shown(PinWindowController& pin) {
    QApplication::processEvents();
    QImage image(pin.window().size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    pin.window().render(&image, {}, {}, {});
    return image;
  }
  static void press(PinWindowController& pin, int key, Qt::KeyboardModifiers modifiers = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(&pin.window(), &event);
  }
  static void gesture(PinWindowController& pin, Qt::NativeGestureType type, double value) {
    QNativeGestureEvent event(type, QPointingDevice::primaryPointingDevice(), 2, {}, {}, {}, value, {});
    QApplication::sendEvent(&pin.window(), &event);
  }

  struct Output {
    std::shared_ptr<SharedPng> png;
    bool copy;
    bool save;
  };
  Figures figures;
  bool blended = true;
  bool editorTakes = true;
  std::vector<Output> outputs;
  std::vector<Bitmap> closed;
  QStringList told;
  int changes = 0;
  QtRunLoop runLoop;
  test::FakePreferences preferences;
  PinBoard board{runLoop, preferences, nullptr, actions()};
  const int room = PanelShadow::margin();
};

TEST_F(PinsTest, EveryPixelIsShownAtItsOwnSize) {
  const Bitmap image = colourful({301, 203});
  const QImage seen = shown(pin(image)).copy(room, room, 301, 203);
  int different = 0;
  for (int y = 0; y < 203; ++y) {
    for (int x = 0; x < 301; ++x) {
      std::uint32_t wanted = 0;
      std::memcpy(&wanted, image.pixel(x, y), 4);
      if (seen.pixel(x, y) != (wanted | 0xFF000000U)) ++different;
    }
  }
  EXPECT_EQ(different, 0);
}

TEST_F(PinsTest, PixelsAreSquaresFromTwiceTheSizeOn) {
  const Bitmap image = colourful({90, 70});
  PinWindowController& enlarged = pin(image);
  enlarged.setScale(3);
  const QImage seen = shown(enlarged).copy(room, room, 270, 210);
  for (const QPoint at : {QPoint(0, 0), QPoint(44, 31), QPoint(89, 69)}) {
    std::uint32_t wanted = 0;
    std::memcpy(&wanted, image.pixel(at.x(), at.y()), 4);
    for (const QPoint corner : {QPoint(0, 0), QPoint(2, 2)}) {
      EXPECT_EQ(seen.pixel(at * 3 + corner), wanted | 0xFF000000U) << at.x();
    }
  }
}

TEST_F(PinsTest, AReducedPictureIsTheAverageOfItsPixels) {
  // Single black lines on white: what picks pixels would show black or white.
  auto lines = MutableBitmap::create({800, 800}, PixelAlpha::Opaque);
  ASSERT_TRUE(lines);
  for (int y = 0; y < 800; ++y) std::memset(lines->row(y), y % 4 == 0 ? 0 : 0xFF, 3200);
  PinWindowController& reduced = pin(std::move(*lines).finish());
  reduced.setScale(0.25);
  EXPECT_TRUE(runUntil([&] {
    const QImage seen = shown(reduced);
    return std::abs(qGreen(seen.pixel(room + 100, room + 101)) - 191) < 6 &&
           std::abs(qGreen(seen.pixel(room + 100, room + 150)) - 191) < 6;
  }));
}

TEST_F(PinsTest, ShadowCornersAndOpacityAreDrawnWhereTheDesktopBlends) {
  PinWindowController& framed = pin(solidBitmap({200, 120}, 0xFFFF0000));
  const auto below = [&](const QImage& seen) { return qAlpha(seen.pixel(room + 100, room + 120 + 6)); };
  EXPECT_GT(below(shown(framed)), 10);
  EXPECT_EQ(shown(framed).pixel(room, room), 0xFFFF0000U);
  framed.toggleRoundedCorners();
  EXPECT_LT(qAlpha(shown(framed).pixel(room + 1, room + 1)), 80);
  EXPECT_EQ(shown(framed).pixel(room + 16, room + 16), 0xFFFF0000U);
  framed.toggleShadow();
  EXPECT_EQ(below(shown(framed)), 0);
  EXPECT_EQ(qAlpha(shown(framed).pixel(room, room)), 0);
  framed.setOpacity(0.5);
  EXPECT_NEAR(qAlpha(shown(framed).pixel(room + 100, room + 60)), 128, 1);
  framed.toggleShadow();
  EXPECT_NEAR(qAlpha(shown(framed).pixel(room + 100, room + 60)), 128, 1) << "no shadow shows through";

  framed.toggleRoundedCorners();
  framed.toggleRoundedCorners();
  EXPECT_TRUE(pin(solidBitmap({200, 120}, 0xFF00FF00)).model().style().roundedCorners) << "as chosen last";

  blended = false;
  PinWindowController& plain = pin(solidBitmap({200, 120}, 0xFF0000FF));
  EXPECT_EQ(plain.window().size(), QSize(200, 120));
  EXPECT_EQ(qAlpha(shown(plain).pixel(1, 1)), 255);
}

TEST_F(PinsTest, EveryTierHasItsControlsAndTheyFit) {
  struct Case {
    int width;
    Tier tier;
    int usable;
    QStringList names;
  };
  const QString zoom = qtTrId("pin.zoom"), copy = qtTrId("pin.copy"), edit = qtTrId("pin.edit"),
                more = qtTrId("pin.more"), close = qtTrId("pin.close");
  for (const Case& entry :
       {Case{174, Tier::Full, 158, {zoom, copy, edit, more, close}},
        Case{131, Tier::NoReadout, 115, {copy, edit, more, close}}, Case{104, Tier::CopyEdit, 88, {copy, edit, close}},
        Case{77, Tier::CopyOnly, 61, {copy, close}}, Case{46, Tier::CloseOnly, 30, {close}}}) {
    PinWindowController& narrow = pin(solidBitmap({entry.width, 200}, 0xFF808080));
    PinChrome& chrome = narrow.window().chrome();
    chrome.fadeIn();
    EXPECT_EQ(chrome.tier(), entry.tier);
    EXPECT_LE(PinChrome::widthOf(entry.tier), entry.usable);
    EXPECT_EQ(chrome.width(), entry.usable);
    QStringList names;
    QRegion taken;
    for (const PinButton* button : chrome.findChildren<PinButton*>()) {
      if (!button->isVisible()) continue;
      names << button->accessibleName();
      EXPECT_TRUE(chrome.rect().contains(button->geometry()));
      EXPECT_FALSE(taken.intersects(button->geometry()));
      EXPECT_GE(std::min(button->width(), button->height()), 28);
      taken += button->geometry();
    }
    EXPECT_EQ(names, entry.names) << entry.width;
  }
}

TEST_F(PinsTest, KeysWheelAndPinchReachTheModel) {
  PinWindowController& any = pin(solidBitmap({400, 300}, 0xFF808080));
  press(any, Qt::Key_Plus);
  EXPECT_EQ(any.model().scale(), 1.25);
  press(any, Qt::Key_0);
  EXPECT_EQ(any.model().scale(), 1);
  const Rect before = any.model().frame();
  press(any, Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(any.model().frame().minX(), before.minX() - 10);
  const auto wheel = [&](int delta, Qt::KeyboardModifiers modifiers) {
    QWheelEvent event({200, 150}, {300, 300}, {}, {0, delta}, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&any.window(), &event);
  };
  wheel(-240, Qt::ControlModifier);
  EXPECT_DOUBLE_EQ(any.model().opacity(), 0.8);
  wheel(-2400, Qt::ControlModifier);
  EXPECT_DOUBLE_EQ(any.model().opacity(), 0.2);
  EXPECT_EQ(any.model().scale(), 1);
  wheel(120, {});
  EXPECT_NEAR(any.model().scale(), 1.1, 1e-9);

  press(any, Qt::Key_0);
  const Point center = PinGeometry::center(any.model().frame());
  gesture(any, Qt::BeginNativeGesture, 0);
  gesture(any, Qt::ZoomNativeGesture, -0.25);
  gesture(any, Qt::ZoomNativeGesture, -0.32);
  EXPECT_NEAR(any.model().scale(), 0.51, 1e-9);
  gesture(any, Qt::EndNativeGesture, 0);
  EXPECT_EQ(any.model().scale(), 0.5);
  EXPECT_EQ(PinGeometry::center(any.model().frame()), center);

  press(any, Qt::Key_C, Qt::ControlModifier);
  press(any, Qt::Key_S, Qt::ControlModifier);
  ASSERT_EQ(outputs.size(), 2u);
  EXPECT_TRUE(outputs[0].copy && !outputs[0].save && outputs[1].save && !outputs[1].copy);
  EXPECT_EQ(outputs[0].png, outputs[1].png);
}

TEST_F(PinsTest, ClosingTellsAndEditingHandsOver) {
  const Bitmap first = solidBitmap({200, 100}, 0xFF111111);
  PinWindowController& one = pin(first);
  PinWindowController& two = pin(solidBitmap({200, 100}, 0xFF222222));
  pin(solidBitmap({200, 100}, 0xFF333333));
  EXPECT_EQ(changes, 3);
  one.window().close();
  ASSERT_EQ(closed.size(), 1u);
  EXPECT_EQ(closed[0].row(0), first.row(0));
  editorTakes = false;
  two.edit();
  EXPECT_EQ(board.pins().size(), 2u) << "no editor took it";
  editorTakes = true;
  two.edit();
  EXPECT_EQ(board.pins().size(), 1u);
  EXPECT_EQ(closed.size(), 1u);
  QApplication::processEvents();
  board.pins()[0]->closeAll();
  EXPECT_TRUE(board.isEmpty());
  EXPECT_EQ(closed.size(), 2u);
}

TEST_F(PinsTest, ClickThroughHasAWayBack) {
  PinWindowController& one = pin(solidBitmap({200, 100}, 0xFF111111));
  EXPECT_FALSE(board.hasClickThrough());
  one.setClickThrough(true);
  one.setClickThrough(true);
  EXPECT_TRUE(board.hasClickThrough());
  EXPECT_EQ(told.size(), 1);
  board.endClickThrough();
  EXPECT_FALSE(board.hasClickThrough());
  EXPECT_EQ(told.size(), 1);
  EXPECT_EQ(changes, 3);
}

TEST_F(PinsTest, TheMenuOffersWhatIsPossible) {
  PinWindowController& small = pin(solidBitmap({200, 100}, 0xFF111111));
  const auto menu = makePinMenu(small);
  const auto find = [](const QMenu& in, const QString& text) {
    for (QAction* action : in.actions()) {
      if (action->text().section(u'\t', 0, 0) == text) return action;
    }
    return static_cast<QAction*>(nullptr);
  };
  for (const char* id : {"pin.copy", "pin.save", "pin.edit", "pin.zoom", "pin.opacity", "pin.shadow",
                         "pin.roundedCorners", "pin.clickThrough", "pin.close", "pin.closeAll"}) {
    ASSERT_NE(find(*menu, qtTrId(id)), nullptr) << id;
    EXPECT_TRUE(find(*menu, qtTrId(id))->isEnabled()) << id;
  }
  const auto scales = find(*menu, qtTrId("pin.zoom"))->menu()->actions();
  EXPECT_FALSE(scales.first()->isEnabled()) << "25 % would be too small to grasp";
  EXPECT_TRUE(scales[2]->isChecked());
  scales[4]->trigger();
  EXPECT_EQ(small.model().scale(), 2);
  find(*menu, qtTrId("pin.shadow"))->trigger();
  EXPECT_FALSE(small.model().style().shadow);
}

TEST_F(PinsTest, APictureLeavesAsAFileAndAsData) {
  const auto png = std::make_shared<SharedPng>(colourful({64, 48}), 1);
  SerialQueue queue("dev.orlo.vellora.test");
  const PinDrag both(
      png, [](const auto&) { return QStringLiteral("/tmp/a name.png"); }, queue);
  EXPECT_EQ(both.urls(), QList<QUrl>{QUrl::fromLocalFile(QStringLiteral("/tmp/a name.png"))});
  EXPECT_EQ(QImage::fromData(both.data(QStringLiteral("image/png"))).size(), QSize(64, 48));
  const PinDrag failed(
      png, [](const auto&) { return std::optional<QString>(); }, queue);
  EXPECT_TRUE(failed.urls().isEmpty());
  const PinDrag plain(png, {}, queue);
  EXPECT_FALSE(plain.hasUrls());
  EXPECT_EQ(QImage::fromData(plain.data(QStringLiteral("image/png"))).size(), QSize(64, 48));
}

TEST_F(PinsTest, StrangePicturesAreRefusedOrShown) {
  PinContent content;
  EXPECT_EQ(board.open(content), nullptr);
  content.image = solidBitmap({10, 10}, 0xFF000000);
  for (const double scale : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
    content.scale = scale;
    EXPECT_EQ(board.open(content), nullptr);
  }
  for (const PixelSize size : {PixelSize{1, 1}, {65535, 1}, {1, 65535}, {5000, 3}}) {
    PinWindowController& strange = pin(solidBitmap(size, 0xFF123456));
    strange.window().chrome().fadeIn();
    const QImage seen = shown(strange);
    const QSize screen = strange.window().screen()->size();
    EXPECT_LE(seen.width(), screen.width() + 2 * room);
    EXPECT_LE(seen.height(), screen.height() + 2 * room);
    strange.setScale(1e9);
    strange.setScale(1e-9);
    shown(strange);
  }
}

}  // namespace
}  // namespace vellora
