#include "editor/ui/backdrop/BackdropPanel.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QImage>
#include <QTemporaryDir>

#include "editor/BackdropStyles.h"
#include "editor/ui/backdrop/BackdropState.h"
#include "editor/ui/backdrop/BackgroundSection.h"
#include "editor/ui/backdrop/GradientBar.h"
#include "editor/ui/backdrop/PointPad.h"
#include "editor/ui/backdrop/TileButton.h"
#include "kit/ColorPicker.h"
#include "kit/SegmentedControl.h"
#include "kit/Slider.h"
#include "kit/Switch.h"
#include "kit/WidgetEvents.h"
#include "support/FakePreferences.h"

namespace vellora {
namespace {

/// A window that applies what its panel says.
class BackdropPanelTest : public testing::Test {
 protected:
  BackdropPanelTest() {
    QObject::connect(&panel_, &BackdropPanel::changed, [this](const BackdropSettings& settings, const QString& key) {
      shown_ = settings;
      keys_ << key;
      panel_.setSettings(settings);
    });
    QObject::connect(&panel_, &BackdropPanel::editingFinished, [this] { ++finished_; });
    panel_.resize(BackdropPanel::panelWidth, 700);
    panel_.show();
    panel_.activateWindow();
    QApplication::processEvents();
  }

  /// Without texts, everything is named by its key.
  template <class T>
  T* named(const char* key) {
    for (T* const found : panel_.findChildren<T*>()) {
      if (found->accessibleName().startsWith(QLatin1String(key))) return found;
    }
    ADD_FAILURE() << "nothing is called " << key;
    return nullptr;
  }

  test::ThemeForTest theme_;
  test::FakePreferences preferences_;
  BackdropStyles styles_{preferences_};
  BackdropPanel panel_{styles_};
  BackdropSettings shown_;
  QStringList keys_;
  int finished_ = 0;
};

TEST_F(BackdropPanelTest, ShowingSettingsTellsNobody) {
  BackdropSettings settings;
  settings.enabled = true;
  settings.background.value = backdropGradientPresets()[2].gradient;
  settings.innerRadius = 33;
  settings.deviceFrame = DeviceFrame::PhoneDark;
  panel_.setSettings(settings);
  EXPECT_TRUE(keys_.isEmpty());
  EXPECT_EQ(finished_, 0);
  EXPECT_TRUE(panel_.findChild<Switch*>()->isChecked());
  EXPECT_EQ(named<Slider>("backdrop.layout.radius")->number(), 33);
  EXPECT_TRUE(named<TileButton>("backdrop.gradient.coral")->isChecked());
  EXPECT_TRUE(named<TileButton>("backdrop.frame.phoneDark")->isChecked());
}

TEST_F(BackdropPanelTest, ChoosingABackgroundTurnsTheBackdropOnAndKeepsItsRing) {
  TileButton* const lagoon = named<TileButton>("backdrop.curated.lagoon");
  lagoon->click();
  EXPECT_TRUE(shown_.enabled);
  EXPECT_EQ(shown_.background.value,
            (decltype(shown_.background.value)(BackdropBackground::BuiltInImage{QStringLiteral("lagoon")})));
  EXPECT_EQ(keys_, QStringList{QString()});
  lagoon->click();
  EXPECT_TRUE(lagoon->isChecked());
  EXPECT_EQ(keys_.size(), 1) << "choosing it again changes nothing";
  EXPECT_EQ(styles_.lastUsed(), shown_);
}

TEST_F(BackdropPanelTest, ASliderIsOneRunUnderOneKey) {
  Slider* const margin = named<Slider>("backdrop.layout.margin");
  margin->setFocus();
  for (int i = 0; i < 3; ++i) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Right, {}, {}, i > 0);
    QApplication::sendEvent(margin, &press);
  }
  EXPECT_EQ(keys_, QStringList(3, QStringLiteral("backdrop.margin")));
  EXPECT_EQ(finished_, 0);
  QKeyEvent release(QEvent::KeyRelease, Qt::Key_Right, {});
  QApplication::sendEvent(margin, &release);
  EXPECT_EQ(finished_, 1);
  EXPECT_NEAR(shown_.insetFraction, 0.075, 1e-9);
}

TEST_F(BackdropPanelTest, EveryNumberGoesIntoItsField) {
  const std::pair<const char*, double BackdropSettings::*> fields[] = {
      {"backdrop.layout.margin", &BackdropSettings::insetFraction},
      {"backdrop.layout.radius", &BackdropSettings::innerRadius},
      {"backdrop.layout.shadow", &BackdropSettings::shadow},
      {"backdrop.tiltX", &BackdropSettings::tiltX},
      {"backdrop.tiltY", &BackdropSettings::tiltY},
      {"backdrop.rotation", &BackdropSettings::rotation},
      {"backdrop.contentScale", &BackdropSettings::contentScale},
      {"backdrop.glow", &BackdropSettings::glowIntensity},
      {"backdrop.grain", &BackdropSettings::noiseIntensity},
      {"backdrop.edgeBlur", &BackdropSettings::edgeBlurStrength}};
  for (const auto& [key, field] : fields) {
    Slider* const slider = named<Slider>(key);
    ASSERT_NE(slider, nullptr);
    slider->setFocus();
    test::type(panel_, Qt::Key_End);
    const BackdropSettings before = shown_;
    EXPECT_EQ(shown_.*field, slider->number()) << key;
    EXPECT_NE(shown_.*field, BackdropSettings().*field) << key;
    test::type(panel_, Qt::Key_Home);
    EXPECT_LT(shown_.*field, before.*field) << key;
  }
}

TEST_F(BackdropPanelTest, PadsMoveByKeysAndGoHome) {
  PointPad* const pad = named<PointPad>("backdrop.contentOffset");
  pad->setFocus();
  test::type(panel_, Qt::Key_Right, Qt::ShiftModifier);
  test::type(panel_, Qt::Key_Up);
  EXPECT_NEAR(shown_.contentOffset.x, 0.1, 1e-9);
  EXPECT_NEAR(shown_.contentOffset.y, -0.01, 1e-9);
  test::type(panel_, Qt::Key_Home);
  EXPECT_EQ(shown_.contentOffset, Point());
  EXPECT_EQ(finished_, 3);
}

TEST_F(BackdropPanelTest, GradientsAreEditedByKeys) {
  BackdropSettings settings;
  settings.enabled = true;
  settings.background.value = BackdropBackground::Gradient{{{0, {1, 0, 0, 1}}, {1, {0, 0, 1, 1}}}, 90};
  panel_.setSettings(settings);
  auto* const bar = panel_.findChild<GradientBar*>();
  ASSERT_TRUE(bar->isVisibleTo(&panel_));
  const auto stops = [&] { return std::get<BackdropBackground::Gradient>(shown_.background.value).stops; };
  bar->setFocus();
  test::type(panel_, Qt::Key_Insert);
  ASSERT_EQ(stops().size(), 3);
  EXPECT_EQ(stops()[1], (GradientStop{0.5, {0.5, 0, 0.5, 1}}));
  EXPECT_EQ(bar->chosen(), 1);
  test::type(panel_, Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_NEAR(stops()[1].position, 0.6, 1e-9);
  // Past its neighbour: the chosen stop stays the chosen one.
  for (int i = 0; i < 5; ++i) test::type(panel_, Qt::Key_Right, Qt::ShiftModifier);
  test::type(panel_, Qt::Key_PageUp);
  for (int i = 0; i < 12; ++i) test::type(panel_, Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_TRUE(std::ranges::is_sorted(stops(), {}, &GradientStop::position));
  EXPECT_EQ(stops()[bar->chosen()].position, 1);
  test::type(panel_, Qt::Key_Delete);
  EXPECT_EQ(stops().size(), 2);
  test::type(panel_, Qt::Key_Delete);
  EXPECT_EQ(stops().size(), 2) << "a gradient keeps two";
  named<TileButton>("backdrop.color.red")->click();
  EXPECT_FALSE(bar->isVisibleTo(&panel_));
}

TEST_F(BackdropPanelTest, TheSwitchBeginsWithTheLastBackdropAndResetGoesToTheDefault) {
  BackdropSettings last;
  last.enabled = true;
  last.rotation = 5;
  styles_.remember(last);
  auto* const toggle = panel_.findChild<Switch*>();
  toggle->click();
  EXPECT_EQ(shown_, last);
  named<QAbstractButton>("backdrop.reset")->click();
  BackdropSettings plain;
  plain.enabled = true;
  EXPECT_EQ(shown_, plain);
  toggle->click();
  EXPECT_FALSE(shown_.enabled);
}

TEST_F(BackdropPanelTest, AnyColourIsChosenAsOneRun) {
  std::function<void(const QColor&)> sampled;
  panel_.setColorSampler([&](std::function<void(const QColor&)> chosen) { sampled = std::move(chosen); });
  named<TileButton>("backdrop.ownColor")->click();
  auto* const picker = panel_.findChild<ColorPicker*>();
  ASSERT_NE(picker, nullptr);
  emit picker->colorChanged(QColor(1, 2, 3));
  emit picker->colorChanged(QColor(51, 102, 153));
  EXPECT_EQ(keys_, QStringList(2, QStringLiteral("backdrop.color")));
  EXPECT_NEAR(std::get<BackdropBackground::Solid>(shown_.background.value).color.green, 0.4, 1e-4);
  emit picker->settled();
  EXPECT_EQ(finished_, 1);
  EXPECT_TRUE(named<TileButton>("backdrop.ownColor")->isChecked());
  // The eyedropper closes the chooser; the colour may come after the panel has gone on.
  emit picker->eyedropperRequested();
  ASSERT_TRUE(sampled);
  EXPECT_TRUE(test::runUntil([&] { return panel_.findChild<ColorPicker*>() == nullptr; }));
  sampled(QColor(255, 0, 0));
  EXPECT_EQ(std::get<BackdropBackground::Solid>(shown_.background.value).color, (ColorComponents{1, 0, 0, 1}));
}

TEST_F(BackdropPanelTest, SavedStylesAreAppliedAndDeleted) {
  BackdropSettings saved;
  saved.tiltX = 12;
  styles_.add(QStringLiteral("My style"), saved);
  BackdropPanel panel(styles_);
  BackdropSettings applied;
  QObject::connect(&panel, &BackdropPanel::changed, [&](const BackdropSettings& settings) { applied = settings; });
  TileButton* style = nullptr;
  for (TileButton* const tile : panel.findChildren<TileButton*>()) {
    if (tile->accessibleName() == QStringLiteral("My style")) style = tile;
  }
  ASSERT_NE(style, nullptr);
  style->click();
  EXPECT_EQ(applied.tiltX, 12);
  EXPECT_TRUE(applied.enabled);
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, {});
  QApplication::sendEvent(style, &press);
  EXPECT_TRUE(styles_.styles().empty());
}

TEST_F(BackdropPanelTest, APictureOfOnesOwnIsReadElsewhereAndThenUsed) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("mine.png"));
  QImage picture(30, 20, QImage::Format_RGB32);
  picture.fill(Qt::red);
  ASSERT_TRUE(picture.save(path));
  panel_.findChild<BackgroundSection*>()->usePicture(path);
  EXPECT_TRUE(keys_.isEmpty()) << "not before it was read";
  EXPECT_TRUE(test::runUntil([&] { return !keys_.isEmpty(); }));
  EXPECT_EQ(std::get<BackdropBackground::Image>(shown_.background.value).path, path);
  EXPECT_TRUE(named<TileButton>("backdrop.ownPicture")->isChecked());
}

TEST_F(BackdropPanelTest, EverythingHasANameAndIsReachedByTab) {
  BackdropSettings settings;
  settings.background.value = backdropGradientPresets()[0].gradient;
  panel_.setSettings(settings);
  QSet<QWidget*> reached;
  for (int i = 0; i < 200; ++i) {
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, {});
    QApplication::sendEvent(panel_.focusWidget() != nullptr ? panel_.focusWidget() : &panel_, &tab);
    if (panel_.focusWidget() != nullptr) reached << panel_.focusWidget();
  }
  for (QWidget* const widget : panel_.findChildren<QWidget*>()) {
    const bool control = qobject_cast<QAbstractButton*>(widget) != nullptr ||
                         qobject_cast<Slider*>(widget) != nullptr || qobject_cast<PointPad*>(widget) != nullptr ||
                         qobject_cast<GradientBar*>(widget) != nullptr;
    if (!control || !widget->isVisibleTo(&panel_) || !widget->isEnabled()) continue;
    const auto* const button = qobject_cast<QAbstractButton*>(widget);
    EXPECT_FALSE(widget->accessibleName().isEmpty() && (button == nullptr || button->text().isEmpty()))
        << widget->metaObject()->className();
    const bool segment = qobject_cast<SegmentedControl*>(widget->parentWidget()) != nullptr;
    EXPECT_TRUE(segment || reached.contains(widget)) << widget->accessibleName().toStdString();
  }
}

}  // namespace
}  // namespace vellora
