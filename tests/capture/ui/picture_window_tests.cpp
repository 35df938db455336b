#include "capture/ui/PictureWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QShortcut>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "capture/ui/CountdownPanel.h"
#include "capture/ui/PictureView.h"

namespace vellora {
namespace {

CapturedImage picture(PixelSize size, double scale) {
  auto bitmap = MutableBitmap::create(size, PixelAlpha::Opaque);
  for (int y = 0; y < size.height; ++y) {
    std::fill_n(bitmap->row(y), bitmap->stride(), static_cast<std::byte>(y & 0xFF));
  }
  return {std::move(*bitmap).finish(), scale};
}

/// Lends one hot key.
class OneHotKey final : public HotKeyService {
 public:
  std::optional<Registration> registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers, Handler handler) override {
    EXPECT_FALSE(handler_);
    EXPECT_EQ(keyCode, 53u);  // Escape
    EXPECT_EQ(modifiers, 0u);
    handler_ = std::move(handler);
    return 1;
  }
  void unregisterHotKey(Registration) override { handler_ = nullptr; }
  bool isLent() const { return static_cast<bool>(handler_); }
  void press() const { handler_(); }

 private:
  Handler handler_;
};

void wheel(QWidget& widget, QPointF at, int notches) {
  QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                    false);
  QApplication::sendEvent(&widget, &event);
}

/// The picture's row at a place of the view, read from what it draws.
int rowAt(PictureView& view, QPoint at) {
  return qBlue(view.grab().toImage().pixel(at));
}

TEST(PictureView, FitsLargePicturesAndNeverEnlargesSmallOnes) {
  PictureView large(picture({800, 250}, 1));
  large.show();
  large.resize(400, 300);
  EXPECT_DOUBLE_EQ(large.zoom(), 0.5);
  large.resize(200, 300);
  EXPECT_DOUBLE_EQ(large.zoom(), 0.25);
  PictureView dense(picture({200, 100}, 2));
  EXPECT_EQ(dense.sizeHint(), QSize(100, 50));
  dense.show();
  dense.resize(400, 300);
  EXPECT_DOUBLE_EQ(dense.zoom(), 1);
}

TEST(PictureView, ZoomsAtThePointerWithinItsLimits) {
  PictureView view(picture({200, 250}, 1));
  view.resize(200, 250);
  const QPoint at(100, 180);
  ASSERT_EQ(rowAt(view, at), 180);
  for (int i = 0; i < 8; ++i) wheel(view, at, 1);
  EXPECT_GT(view.zoom(), 4);
  EXPECT_NEAR(rowAt(view, at), 180, 1);
  for (int i = 0; i < 100; ++i) wheel(view, at, 1);
  EXPECT_DOUBLE_EQ(view.zoom(), PictureView::mostZoom);
  for (int i = 0; i < 200; ++i) wheel(view, at, -1);
  EXPECT_DOUBLE_EQ(view.zoom(), PictureView::leastZoom);
}

TEST(PictureWindow, HasItsCommandsOnTheKeyboard) {
  QPointer<PictureWindow> window = new PictureWindow(picture({300, 200}, 1), QStringLiteral("Picture"));
  int copies = 0;
  int saves = 0;
  int closes = 0;
  QObject::connect(window, &PictureWindow::copyRequested, [&] { ++copies; });
  QObject::connect(window, &PictureWindow::saveRequested, [&] { ++saves; });
  QObject::connect(window, &PictureWindow::closed, [&] { ++closes; });
  const auto press = [&](const char* keys) {
    for (QShortcut* shortcut : window->findChildren<QShortcut*>()) {
      if (shortcut->key() == QKeySequence(QLatin1String(keys))) return emit shortcut->activated();
    }
    ADD_FAILURE() << keys;
  };
  window->present(nullptr);
  press("Ctrl+C");
  press("Ctrl+S");
  EXPECT_EQ(copies, 1);
  EXPECT_EQ(saves, 1);
  press("Ctrl+W");
  EXPECT_EQ(closes, 1);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(window.isNull());
}

TEST(CountdownPanel, IsCancelledByAClickOrEscapeWhileItIsUp) {
  OneHotKey keys;
  CountdownPanel panel(&keys);
  int cancelled = 0;
  QObject::connect(&panel, &CountdownPanel::cancelled, [&] { ++cancelled; });
  panel.showRemaining(3, nullptr);
  panel.showRemaining(2, nullptr);
  ASSERT_TRUE(keys.isLent());
  keys.press();
  EXPECT_EQ(cancelled, 1);
  QMouseEvent click(QEvent::MouseButtonPress, QPointF(50, 50), QPointF(50, 50), Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
  QApplication::sendEvent(&panel, &click);
  EXPECT_EQ(cancelled, 2);
  panel.hide();
  EXPECT_FALSE(keys.isLent());
}

}  // namespace
}  // namespace vellora
