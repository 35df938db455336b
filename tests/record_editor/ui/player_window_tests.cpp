#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTemporaryDir>

#include "base/QtRunLoop.h"
#include "kit/Button.h"
#include "record_editor/ui/PictureView.h"
#include "record_editor/ui/PlayerWindow.h"
#include "record_editor/ui/WaveformScrubber.h"
#include "support/FakeMovies.h"
#include "support/ScriptedMovie.h"

namespace vellora::test {
namespace {

class PlayerWindowTest : public testing::Test {
 protected:
  PlayerWindowTest() {
    const QString bundle = home_.filePath(QStringLiteral("Demo.vellorav"));
    QDir().mkpath(bundle);
    write(bundle + QStringLiteral("/screen.mov"), "movie");
    write(bundle + QStringLiteral("/camera.mov"), "movie");
    write(bundle + QStringLiteral("/pauses.json"), "[1]");
    write(bundle + QStringLiteral("/project.json"), R"({"name": "My demo"})");
    movies_.readVideo = [](const std::filesystem::path& path) {
      const bool isCamera = path.filename() == "camera.mov";
      return std::make_unique<ScriptedVideo>(100, 25, isCamera ? 64 : 640, isCamera ? 48 : 360);
    };
    movies_.readAudio = [](const std::filesystem::path&, std::size_t track) {
      return track == 0 ? std::make_unique<ScriptedTrack>(4) : nullptr;
    };
    bundle_ = bundle;
  }

  static void write(const QString& path, const QByteArray& text) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
  }
  void open() {
    PlayerWindow::Services services{.runLoop = loop_, .movies = movies_, .playback = speakers_};
    services.reveal = [this](const QString& path) { revealed_ = path; };
    services.loudness = [](const RecordProjectBundle&, const std::function<bool()>&) {
      return std::vector<float>(200, 0.5F);
    };
    window_ = std::make_unique<PlayerWindow>(*RecordProjectBundle::open(bundle_), std::move(services));
    window_->present();
  }
  bool waitUntil(const std::function<bool()>& condition) {
    QElapsedTimer passed;
    passed.start();
    while (!condition() && passed.elapsed() < 10'000) {
      QApplication::processEvents(QEventLoop::AllEvents, 5);
      speakers_.take(0.005);
    }
    return condition();
  }
  void press(int key, Qt::KeyboardModifiers modifiers = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(window_.get(), &event);
  }
  /// The number of the picture that is on the window.
  int shown() {
    auto* const view = window_->findChild<PictureView*>();
    const QImage image = view->grab().toImage();
    return static_cast<int>(image.pixel(image.width() / 2, image.height() / 2) & 0xFFFFFF);
  }
  bool shows(int number) {
    return waitUntil([&] { return shown() == number; });
  }

  QTemporaryDir home_;
  QString bundle_;
  QString revealed_;
  QtRunLoop loop_;
  FakeMovies movies_;
  ScriptedSpeakers speakers_;
  std::unique_ptr<PlayerWindow> window_;
};

TEST_F(PlayerWindowTest, PlaysAndSeeksByKeysAndPointer) {
  open();
  ASSERT_TRUE(waitUntil([&] { return window_->player() != nullptr; }));
  EXPECT_EQ(window_->windowTitle(), QStringLiteral("My demo"));
  EXPECT_TRUE(shows(0));
  MoviePlayer& player = *window_->player();

  press(Qt::Key_Space);
  EXPECT_TRUE(waitUntil([&] { return player.isPlaying() && player.position() > 0.1; }));
  press(Qt::Key_K);
  EXPECT_FALSE(player.isPlaying());
  press(Qt::Key_Home);
  press(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_DOUBLE_EQ(player.position(), 4) << "five seconds are more than there are";
  press(Qt::Key_Left);
  EXPECT_DOUBLE_EQ(player.position(), 3);
  EXPECT_TRUE(shows(75));
  press(Qt::Key_Period);
  EXPECT_TRUE(shows(76));
  press(Qt::Key_Comma);
  EXPECT_TRUE(shows(75));
  press(Qt::Key_M);
  EXPECT_TRUE(player.isMuted());

  auto* const scrubber = window_->findChild<WaveformScrubber*>();
  const QPointF middle(scrubber->width() / 2.0, scrubber->height() / 2.0);
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent click(type, middle, scrubber->mapToGlobal(middle), Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, {});
    QApplication::sendEvent(scrubber, &click);
  }
  EXPECT_NEAR(player.position(), 2, 0.03);
  press(Qt::Key_Home);
  for (int i = 0; i < 3; ++i) {
    QKeyEvent right(QEvent::KeyPress, Qt::Key_Right, {});
    QApplication::sendEvent(scrubber, &right);
  }
  EXPECT_DOUBLE_EQ(player.position(), 3);
  for (auto* button : window_->findChildren<IconButton*>()) {
    QKeyEvent left(QEvent::KeyPress, Qt::Key_Left, {});
    QApplication::sendEvent(button, &left);
  }
  EXPECT_DOUBLE_EQ(player.position(), 0) << "arrow keys do the same wherever the focus is";
  scrubber->setValue(1000);  // as a screen reader does
  EXPECT_NEAR(player.position(), 1, 1e-9);
  EXPECT_TRUE(shows(25));
}

TEST_F(PlayerWindowTest, EveryControlHasANameAndTheCloseKeysClose) {
  open();
  ASSERT_TRUE(waitUntil([&] { return window_->player() != nullptr; }));
  for (QWidget* control : window_->findChildren<QWidget*>()) {
    if (control->focusPolicy() == Qt::NoFocus) continue;
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(control);
    ASSERT_TRUE(seen);
    EXPECT_FALSE(seen->text(QAccessible::Name).isEmpty()) << control->metaObject()->className();
  }
  bool isClosed = false;
  QObject::connect(window_.get(), &PlayerWindow::closed, [&] { isClosed = true; });
  press(Qt::Key_Space);
  press(Qt::Key_F);
  EXPECT_TRUE(window_->isFullScreen());
  press(Qt::Key_Escape);
  EXPECT_FALSE(window_->isFullScreen());
  EXPECT_FALSE(isClosed);
  press(Qt::Key_Escape);
  EXPECT_TRUE(isClosed);
  EXPECT_FALSE(window_->player()->isPlaying());
}

TEST_F(PlayerWindowTest, SaysWhenTheMovieCannotBePlayed) {
  movies_.readVideo = {};
  open();
  auto* const view = window_->findChild<PictureView*>();
  const QImage empty = view->grab().toImage();
  EXPECT_TRUE(waitUntil([&] { return view->grab().toImage() != empty; }));
  EXPECT_EQ(window_->player(), nullptr);
  press(Qt::Key_Space);
  for (auto* button : window_->findChildren<IconButton*>()) {
    if (button->isEnabled()) button->click();
  }
  EXPECT_EQ(revealed_, bundle_);
}

}  // namespace
}  // namespace vellora::test
