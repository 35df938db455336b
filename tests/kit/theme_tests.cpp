#include <cmath>

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPalette>

#include "kit/Button.h"
#include "kit/LinkRow.h"
#include "kit/MenuButton.h"
#include "kit/SettingsGroup.h"
#include "kit/Switch.h"
#include "kit/TextLabel.h"
#include "kit/Tokens.h"
#include "kit/WidgetEvents.h"

namespace vellora {
namespace {

using test::ThemeForTest;

double luminance(const QColor& color) {
  const auto linear = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
  const double light = std::max(luminance(a), luminance(b));
  const double dark = std::min(luminance(a), luminance(b));
  return (light + 0.05) / (dark + 0.05);
}

TEST(Theme, TextCanBeReadOnEveryGround) {
  for (const Appearance appearance : {Appearance::Light, Appearance::Dark}) {
    const ThemeColors& p = Theme::palette(appearance);
    for (const QColor& ground : {p.surface, p.raised, p.sunken}) {
      for (const QColor& ink : {p.text, p.secondaryText, p.errorText}) {
        EXPECT_GE(contrast(ink, ground), 4.5) << ink.name().toStdString() << " on " << ground.name().toStdString();
      }
      EXPECT_GE(contrast(p.accent, ground), 3.0) << "focus ring on " << ground.name().toStdString();
    }
    EXPECT_GE(contrast(p.onFill, p.accentFill), 4.5);
    EXPECT_GE(contrast(p.onFill, p.dangerFill), 4.5);
  }
}

TEST(Theme, AnOverrideBeatsTheDesktopAndTheDesktopBeatsThePalette) {
  const ThemeForTest guard;
  Theme& theme = Theme::shared();
  theme.setAppearanceOverride(std::nullopt);
  const QPalette before = QApplication::palette();
  QPalette dark = before;
  dark.setColor(QPalette::Window, Qt::black);
  dark.setColor(QPalette::WindowText, Qt::white);
  int changes = 0;
  const auto connection = QObject::connect(&theme, &Theme::changed, [&] { ++changes; });

  QApplication::setPalette(dark);
  QApplication::processEvents();
  EXPECT_EQ(theme.appearance(), Appearance::Dark);
  EXPECT_EQ(changes, 1);
  theme.setDesktopAppearance(Appearance::Light);
  EXPECT_EQ(theme.appearance(), Appearance::Light);
  theme.setAppearanceOverride(Appearance::Dark);
  EXPECT_EQ(theme.appearance(), Appearance::Dark);
  theme.setDesktopAppearance(Appearance::Dark);
  EXPECT_EQ(changes, 3) << "a change that shows nothing new is not told";

  QApplication::setPalette(before);
  QObject::disconnect(connection);
}

class PaintCounter final : public QObject {
 public:
  int paints = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++paints;
    return false;
  }
};

TEST(Theme, EveryControlRepaintsWhenItChanges) {
  const ThemeForTest guard;
  QWidget window;
  followTheme(window);
  auto* const group = new SettingsGroup(&window);
  group->addRow(new LinkRow(QStringLiteral("globe"), QStringLiteral("Link")));
  group->setTitle(QStringLiteral("Group"));
  QList<QWidget*> controls{new PrimaryButton(QStringLiteral("Ok"), &window),
                           new IconButton(QStringLiteral("copy"), QStringLiteral("Copy"), {}, &window),
                           new Switch(&window),
                           new MenuButton(&window),
                           new TextLabel(TextLabel::Role::Secondary, QStringLiteral("text"), &window),
                           group->findChild<LinkRow*>()};
  int y = 0;
  for (QWidget* const control : controls) {
    if (control->parent() == &window) control->move(0, y);
    y += 50;
  }
  group->setGeometry(200, 0, 300, 200);
  window.resize(600, 400);
  window.show();
  QApplication::processEvents();
  const QImage before = window.grab().toImage();
  for (QWidget* const control : controls) {
    PaintCounter counter;
    control->installEventFilter(&counter);
    Theme::shared().setAppearanceOverride(Appearance::Dark);
    QApplication::processEvents();
    EXPECT_GT(counter.paints, 0) << control->metaObject()->className();
    Theme::shared().setAppearanceOverride(Appearance::Light);
    QApplication::processEvents();
  }
  EXPECT_EQ(window.grab().toImage(), before) << "back in light, it looks as it did";
}

TEST(Tokens, TabularFiguresHaveOneWidthInEveryWeight) {
  if (!QFontDatabase::families().contains(QStringLiteral("Inter"))) GTEST_FAIL() << "the font Inter is not installed";
  for (const QFont& base : {bodyFont(), badgeFont(), headingFont()}) {
    const QFontMetricsF metrics(tabularFont(base));
    const double zero = metrics.horizontalAdvance(QLatin1Char('0'));
    for (const char figure : {'1', '4', '7', '9'}) {
      EXPECT_DOUBLE_EQ(metrics.horizontalAdvance(QLatin1Char(figure)), zero);
    }
    EXPECT_DOUBLE_EQ(metrics.horizontalAdvance(QStringLiteral("00:11:17")),
                     metrics.horizontalAdvance(QStringLiteral("28:40:96")));
    EXPECT_NE(QFontMetricsF(base).horizontalAdvance(QLatin1Char('1')), zero) << "else the face is not needed";
  }
}

}  // namespace
}  // namespace vellora
