#include <gtest/gtest.h>

#include <QImage>
#include <QMenu>
#include <QPixmap>

#include "kit/Icons.h"
#include "kit/Menu.h"
#include "kit/WidgetEvents.h"

namespace vellora {
namespace {

/// The rectangle around everything of that colour.
QRect extent(const QImage& image, QRgb color) {
  QRect found;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) == color) found |= QRect(x, y, 1, 1);
    }
  }
  return found;
}

TEST(Menu, ShowsPicturesLargeAndSymbolsSmall) {
  const test::ThemeForTest theme;
  QMenu menu;
  styleMenu(menu);
  QPixmap picture(96, 60);
  picture.fill(Qt::red);
  QAction* const capture = menu.addAction(QIcon(picture), QStringLiteral("1920 × 1080"));
  QAction* const clear = menu.addAction(icon(QStringLiteral("trash"), QColor(0, 255, 0)), QStringLiteral("Clear"));
  for (QAction* const action : {capture, clear}) action->setIconVisibleInMenu(true);
  menu.ensurePolished();
  menu.resize(menu.sizeHint());
  const QImage shown = menu.grab().toImage().convertToFormat(QImage::Format_RGB32);
  const QRect red = extent(shown, qRgb(255, 0, 0));
  EXPECT_NEAR(red.width(), 48, 3);
  EXPECT_NEAR(red.height(), 30, 3);
  EXPECT_TRUE(menu.actionGeometry(capture).contains(red));
  const QRect green = extent(shown, qRgb(0, 255, 0));
  EXPECT_LE(green.width(), 16);
  EXPECT_NEAR(green.center().x(), red.center().x(), 2);
}

}  // namespace
}  // namespace vellora
