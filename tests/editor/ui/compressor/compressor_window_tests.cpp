#include <filesystem>
#include <fstream>
#include <random>

#include <gtest/gtest.h>

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTemporaryDir>
#include <QUrl>

#include "base/QtRunLoop.h"
#include "editor/compressor/CompressSettings.h"
#include "editor/ui/compressor/ComparisonView.h"
#include "editor/ui/compressor/CompressorListView.h"
#include "editor/ui/compressor/CompressorWindow.h"
#include "kit/Button.h"
#include "kit/SegmentedControl.h"
#include "kit/Slider.h"
#include "kit/TextField.h"
#include "kit/Toast.h"
#include "kit/WidgetEvents.h"
#include "media/codecs/ImageConversion.h"
#include "media/pictures/PictureWriter.h"
#include "support/FakePreferences.h"

namespace vellora {
namespace {

namespace fs = std::filesystem;
using test::runUntil;

Raster noise(int width, int height) {
  Raster raster = *Raster::create(width, height, RasterLayout::Rgb);
  std::minstd_rand random;  // NOLINT(cert-msc51-cpp): the same picture every time
  for (int y = 0; y < height; ++y) {
    for (std::size_t i = 0; i < raster.stride(); ++i) raster.row(y)[i] = static_cast<std::uint8_t>(random() >> 8);
  }
  return raster;
}

/// The compressor's window with a real run, files on disk and preferences in memory.
class CompressorWindowTest : public testing::Test {
 protected:
  CompressorWindowTest() { controller_.show(); }
  ~CompressorWindowTest() override { Toast::dismiss(); }

  fs::path write(const std::string& name, int edge = 48, PictureType type = PictureType::Jpeg) {
    WriteOptions best;
    best.quality = 1;
    const auto data = writePicture(noise(edge, edge), {}, type, best);
    fs::create_directories((root() / name).parent_path());
    std::ofstream(root() / name, std::ios::binary)
        .write(reinterpret_cast<const char*>(data->data()), static_cast<std::streamsize>(data->size()));
    return root() / name;
  }
  fs::path writeText(const std::string& name) {
    std::ofstream(root() / name) << "no picture at all";
    return root() / name;
  }

  void drop(const std::vector<fs::path>& paths) {
    QMimeData data;
    QList<QUrl> urls;
    for (const fs::path& path : paths) urls << QUrl::fromLocalFile(QString::fromStdString(path.string()));
    data.setUrls(urls);
    QDragEnterEvent enter({20, 20}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&window(), &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent dropped({20, 20}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&window(), &dropped);
    EXPECT_EQ(dropped.dropAction(), Qt::CopyAction) << "sources stay where they are";
  }
  /// Drops the paths and waits until the list has this many rows.
  void fill(const std::vector<fs::path>& paths, int rows) {
    drop(paths);
    ASSERT_TRUE(runUntil([&] { return list().model()->rowCount() == rows; }));
  }
  void finish() {
    ASSERT_TRUE(runUntil([this] { return !controller_.isRunning(); }));
  }
  void clickAction(int row, RowAction action) {
    const QRect rect = list().actionRect(list().model()->index(row, 0), action);
    ASSERT_FALSE(rect.isEmpty());
    test::click(*list().viewport(), rect.center());
  }
  template <class Widget>
  Widget& part() {
    return *window().findChild<Widget*>();
  }

  CompressorWindow& window() { return *controller_.window(); }
  CompressorListView& list() { return window().list(); }
  const std::vector<CompressionItem>& items() { return controller_.run().items(); }
  CompressSettings stored() { return CompressSettings(preferences_); }
  fs::path root() const { return fs::path(folder_.path().toStdString()); }

  test::ThemeForTest theme_;
  QTemporaryDir folder_;
  test::FakePreferences preferences_;
  test::FakeFileNames fileNames_{folder_.path()};
  Settings settings_{preferences_, fileNames_};
  QtRunLoop loop_;
  Bitmap onClipboard_;
  fs::path revealed_;
  CompressorWindowController controller_{
      {loop_, settings_, [this](const fs::path& file) { revealed_ = file; },
       [this](const std::function<void(Bitmap)>& receive) { loop_.post([this, receive] { receive(onClipboard_); }); }}};
};

TEST_F(CompressorWindowTest, WhatIsDroppedIsCompressedAndShownInItsFolder) {
  fill({write("one.jpg"), write("folder/below/two.jpg").parent_path().parent_path()}, 2);
  drop({root() / "one.jpg"});
  test::type(window(), Qt::Key_Return);
  finish();
  EXPECT_TRUE(fs::exists(root() / "one-compressed.jpg"));
  EXPECT_TRUE(fs::exists(root() / "folder/below/two-compressed.jpg"));
  ASSERT_EQ(items().size(), 2U) << "the same file is not listed twice";
  ASSERT_NE(Toast::current(), nullptr);
  EXPECT_EQ(Toast::current()->kind(), ToastKind::Success);
  clickAction(0, RowAction::Reveal);
  EXPECT_EQ(revealed_, root() / "one-compressed.jpg");
  // With other settings there is something to do again.
  const auto written = items()[0].lastOutput->bytes;
  stored().setQuality(10);
  test::type(window(), Qt::Key_Return);
  finish();
  EXPECT_LT(items()[0].lastOutput->bytes, written);
}

TEST_F(CompressorWindowTest, AFailedRowSaysWhyAndCanBeTriedAgain) {
  fill({write("good.jpg"), writeText("bad.jpg")}, 2);
  window().start();
  finish();
  EXPECT_EQ(items()[0].state, CompressionState::done);
  ASSERT_EQ(items()[1].state, CompressionState::failed);
  EXPECT_TRUE(list()
                  .model()
                  ->index(1, 0)
                  .data(Qt::AccessibleTextRole)
                  .toString()
                  .contains(QLatin1String("compress.failure.notAPicture")));
  EXPECT_EQ(Toast::current()->kind(), ToastKind::Failure);
  write("bad.jpg");
  stored().setFormat(CompressFormat::png);
  clickAction(1, RowAction::Retry);
  finish();
  EXPECT_EQ(items()[1].state, CompressionState::done);
  EXPECT_TRUE(fs::exists(root() / "bad-compressed.png")) << "with the settings of now";
  EXPECT_FALSE(fs::exists(root() / "good-compressed.png"));
}

TEST_F(CompressorWindowTest, RowsAreRemovedByButtonAndKeyAndTheSelectionGoesOn) {
  fill({write("a.jpg"), write("b.jpg"), write("c.jpg"), write("d.jpg")}, 4);
  clickAction(0, RowAction::Remove);
  ASSERT_EQ(items().size(), 3U);
  list().setFocus();
  list().setCurrentIndex(list().model()->index(0, 0));
  test::type(window(), Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(list().selectedIds().size(), 2U);
  for (QAction* action : window().actions()) {
    if (action->shortcut() == QKeySequence(Qt::Key_Delete)) action->trigger();
  }
  ASSERT_EQ(items().size(), 1U);
  EXPECT_EQ(items()[0].displayName, "d.jpg");
  EXPECT_EQ(list().selectedIds(), std::vector{items()[0].id});
}

TEST_F(CompressorWindowTest, SettingsAreStoredAtOnceAndQualityIsOffWhereItMeansNothing) {
  auto& quality = part<Slider>();
  quality.setFocus();
  test::type(window(), Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(stored().quality(), 65);
  EXPECT_TRUE(quality.isEnabled());
  fill({write("shot.png", 48, PictureType::Png)}, 1);
  EXPECT_TRUE(runUntil([&] { return !quality.isEnabled(); })) << "a list of PNG files only";
  emit part<SegmentedControl>().chosen(3);
  EXPECT_EQ(stored().format(), CompressFormat::webp);
  EXPECT_TRUE(quality.isEnabled());
  stored().setResize(ResizeLimit::custom);
  auto& edge = part<TextField>();
  edge.setText({});
  for (const char* typed : {"0", "20"}) {
    edge.setText(QString::fromLatin1(typed));
    emit edge.textEdited(edge.text());
  }
  EXPECT_EQ(stored().customEdge(), 20);
  window().start();
  finish();
  ASSERT_TRUE(items()[0].lastOutput);
  EXPECT_EQ(items()[0].lastOutput->width, 20);
  EXPECT_EQ(items()[0].lastOutput->file, root() / "shot-compressed.webp");
}

TEST_F(CompressorWindowTest, EscapeStopsARunReturnTakesItUpAgainEscapeCloses) {
  std::vector<fs::path> files;
  for (int i = 0; i < 24; ++i) files.push_back(write("big" + std::to_string(i) + ".jpg", 420));
  fill(files, 24);
  window().start();
  ASSERT_TRUE(runUntil([this] { return controller_.run().progress().finished > 0; }));
  test::type(window(), Qt::Key_Escape);
  finish();
  const auto isCancelled = [](const CompressionItem& item) { return item.state == CompressionState::cancelled; };
  EXPECT_TRUE(std::ranges::any_of(items(), isCancelled));
  EXPECT_TRUE(controller_.isVisible());
  for (const CompressionItem& item : items()) {
    EXPECT_EQ(fs::exists(root() / (item.sourceURL.stem().string() + "-compressed.jpg")),
              item.state == CompressionState::done);
  }
  test::type(window(), Qt::Key_Return);
  finish();
  EXPECT_TRUE(std::ranges::none_of(items(), isCancelled));
  EXPECT_FALSE(fs::exists(root() / "big0-compressed (2).jpg")) << "what was done stays done";
  test::type(window(), Qt::Key_Escape);
  EXPECT_TRUE(runUntil([this] { return controller_.window() == nullptr; }));
  EXPECT_TRUE(items().empty());
}

TEST_F(CompressorWindowTest, ARunGoesOnWithoutItsWindowAndTellsOfItsEnd) {
  std::vector<fs::path> files;
  for (int i = 0; i < 8; ++i) files.push_back(write("big" + std::to_string(i) + ".jpg", 420));
  fill(files, 8);
  window().start();
  window().close();
  EXPECT_FALSE(controller_.isVisible());
  finish();
  EXPECT_TRUE(fs::exists(root() / "big7-compressed.jpg"));
  ASSERT_NE(Toast::current(), nullptr);
  controller_.show();
  EXPECT_EQ(list().model()->rowCount(), 8) << "what became of it can still be seen";
}

TEST_F(CompressorWindowTest, PastedPixelsGetANameAndGoToTheFolderOfCaptures) {
  fs::create_directory(root() / "Desktop");
  QImage picture(40, 30, QImage::Format_ARGB32_Premultiplied);
  picture.fill(QColor(10, 200, 30, 128));
  onClipboard_ = toBitmap(picture);
  window().paste();
  ASSERT_TRUE(runUntil([this] { return list().model()->rowCount() == 1; }));
  EXPECT_EQ(items()[0].image.layout(), RasterLayout::Rgba);
  const std::uint8_t* pixel = items()[0].image.row(0);
  EXPECT_NEAR(pixel[1], 200, 2);
  EXPECT_EQ(pixel[3], 128);
  window().start();
  finish();
  EXPECT_EQ(items()[0].lastOutput->file, root() / "Desktop/compress.pastedName.png");
}

TEST_F(CompressorWindowTest, TheComparisonFollowsTheRowAndTheQuality) {
  fill({write("photo.jpg", 300), writeText("broken.jpg")}, 2);
  list().setFocus();
  test::type(window(), Qt::Key_Space);
  ASSERT_TRUE(window().comparison().isVisible());
  window().comparison().setDivider(0);
  const auto picture = [this] { return window().comparison().grab().toImage(); };
  const QImage empty = picture();
  ASSERT_TRUE(runUntil([&] { return window().comparison().isSettled() && picture() != empty; }));
  const QImage good = picture();
  stored().setQuality(2);
  emit part<Slider>().editingFinished();
  EXPECT_TRUE(runUntil([&] { return window().comparison().isSettled() && picture() != good; }));
  test::type(window(), Qt::Key_Down);
  EXPECT_TRUE(runUntil([&] { return picture() != good; }));
  test::type(window(), Qt::Key_Space);
  EXPECT_FALSE(window().comparison().isVisible());
}

}  // namespace
}  // namespace vellora
