#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>

#include "kit/Icons.h"
#include "kit/WidgetEvents.h"

namespace vellora {
namespace {

using test::ThemeForTest;

// Names that only models know.
const QStringList modelNames{"pause.circle",
                             "stop.circle",
                             "record.circle",
                             "antenna.radiowaves.left.and.right",
                             "capture.area",
                             "capture.window",
                             "capture.fullscreen",
                             "capture.scrolling",
                             "capture.text",
                             "capture.more",
                             "capture.element",
                             "capture.areaSized",
                             "capture.delayed",
                             "load.clipboard",
                             "load.file",
                             "history.reopen",
                             "history.more",
                             "trash",
                             "compress",
                             "record.region",
                             "record.window",
                             "record.fullscreen",
                             "recordings.recent",
                             "folder",
                             "cleanup",
                             "video.import",
                             "settings",
                             "quit",
                             "checkmark.circle.fill",
                             "exclamationmark.triangle.fill"};

/// Names written in the sources where an icon is meant.
QStringList namesInSources() {
  const QRegularExpression use(
      QStringLiteral("(?:\\bicon\\(|paintIcon\\([^\"]{0,40}|iconPixmap\\(|setIconName\\(|IconButton\\(|LinkRow\\()"
                     "QStringLiteral\\(\"([A-Za-z.]+)\""));
  QStringList names;
  QDirIterator files(QStringLiteral(VELLORA_SOURCE_DIR "/src"), {QStringLiteral("*.cpp")}, QDir::Files,
                     QDirIterator::Subdirectories);
  while (files.hasNext()) {
    QFile file(files.next());
    if (!file.open(QIODevice::ReadOnly)) continue;
    auto found = use.globalMatch(QString::fromUtf8(file.readAll()));
    while (found.hasNext()) names << found.next().captured(1);
  }
  return names;
}

int inkedPixels(const QImage& image, const QColor& color) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor pixel = image.pixelColor(x, y);
      if (pixel.alpha() > 200 && std::abs(pixel.red() - color.red()) < 12 &&
          std::abs(pixel.green() - color.green()) < 12 && std::abs(pixel.blue() - color.blue()) < 12) {
        ++count;
      }
    }
  }
  return count;
}

TEST(Icons, EveryNameInUseHasADrawingThatTakesTheColor) {
  const QStringList names = namesInSources() + modelNames;
  EXPECT_GT(names.size(), modelNames.size() + 5);
  for (const QString& name : names) {
    ASSERT_TRUE(iconNames().contains(name)) << name.toStdString();
    if (name.startsWith(QLatin1String("vellora"))) continue;
    const QColor ink(10, 200, 30);
    EXPECT_GT(inkedPixels(iconPixmap(name, 16, ink, 2).toImage(), ink), 10) << name.toStdString();
  }
}

TEST(Icons, ArePicturesOfTheSizeAndScaleAskedFor) {
  const QPixmap pixmap = iconPixmap(QStringLiteral("gear"), 20, Qt::black, 1.5);
  EXPECT_EQ(pixmap.size(), QSize(30, 30));
  EXPECT_DOUBLE_EQ(pixmap.devicePixelRatio(), 1.5);
  EXPECT_FALSE(icon(QStringLiteral("gear")).availableSizes().isEmpty()) << "trays and menus of other processes ask";
}

TEST(Icons, FollowTheThemeAndGreyOutWhenDisabled) {
  const ThemeForTest guard;
  const QIcon gear = icon(QStringLiteral("gear"));
  const auto painted = [&gear](QIcon::Mode mode) {
    QImage picture(32, 32, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    gear.paint(&painter, picture.rect(), Qt::AlignCenter, mode);
    return picture;
  };
  EXPECT_GT(inkedPixels(painted(QIcon::Normal), Theme::palette(Appearance::Light).text), 20);
  EXPECT_GT(inkedPixels(painted(QIcon::Disabled), Theme::palette(Appearance::Light).disabledText), 20);
  Theme::shared().setAppearanceOverride(Appearance::Dark);
  EXPECT_GT(inkedPixels(painted(QIcon::Normal), Theme::palette(Appearance::Dark).text), 20);
}

TEST(Icons, HandedToOtherProcessesAreReadableOnLightAndDark) {
  const ThemeForTest guard;
  const auto lightness = [](const QImage& picture) {
    const QPoint inked = [&] {
      for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
          if (qAlpha(picture.pixel(x, y)) == 255) return QPoint(x, y);
        }
      }
      return QPoint();
    }();
    return picture.pixelColor(inked).lightness();
  };
  const QIcon gear = icon(QStringLiteral("gear"));
  for (const Appearance appearance : {Appearance::Light, Appearance::Dark}) {
    Theme::shared().setAppearanceOverride(appearance);
    EXPECT_NEAR(lightness(gear.pixmap(32, 32).toImage()), 136, 30);
  }
}

TEST(Icons, AnUnknownNameDrawsNothing) {
  EXPECT_EQ(inkedPixels(iconPixmap(QStringLiteral("../../etc"), 16, Qt::black, 1).toImage(), Qt::black), 0);
}

}  // namespace
}  // namespace vellora
