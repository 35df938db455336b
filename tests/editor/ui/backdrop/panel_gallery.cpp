/// Writes pictures of the backdrop's panel, light and dark, to be looked at and for the documentation.
#include <cstdio>

#include <QApplication>
#include <QDir>
#include <QScrollArea>
#include <QTranslator>

#include "editor/BackdropStyles.h"
#include "editor/ui/backdrop/BackdropPanel.h"
#include "kit/Theme.h"
#include "support/FakePreferences.h"

namespace {

using namespace vellora;

void writePanels(const QDir& folder, Appearance appearance) {
  Theme::shared().setAppearanceOverride(appearance);
  const QString name = appearance == Appearance::Dark ? QStringLiteral("dark") : QStringLiteral("light");
  test::FakePreferences preferences;
  BackdropStyles styles(preferences);
  BackdropSettings settings;
  settings.enabled = true;
  settings.background.value = BackdropBackground::BuiltInImage{QStringLiteral("lavender")};
  settings.tiltX = 18;
  styles.add(QStringLiteral("Release notes"), settings);
  settings.background.value = backdropGradientPresets()[6].gradient;
  settings.tiltX = 0;
  settings.deviceFrame = DeviceFrame::BrowserDark;
  styles.add(QStringLiteral("Blog, dark window"), settings);
  settings.background.value = backdropGradientPresets()[3].gradient;
  settings.deviceFrame = DeviceFrame::LaptopLight;
  settings.rotation = -6;
  settings.glowIntensity = 0.4;
  settings.contentOffset = {0.1, -0.05};
  settings.aspect = BackdropSettings::Aspect::SixteenNine;
  settings.edgeBlurDirection = BackdropSettings::EdgeBlurDirection::Bottom;
  settings.edgeBlurStrength = 0.5;

  BackdropPanel panel(styles);
  followTheme(panel);
  panel.setSettings(settings);
  // As high as everything in it, so that one picture shows it all.
  panel.resize(BackdropPanel::panelWidth, 680);
  panel.show();
  QApplication::processEvents();
  panel.grab().save(folder.filePath(QStringLiteral("panel-%1.png").arg(name)));
  const int all = panel.findChild<QScrollArea*>()->widget()->sizeHint().height();
  panel.resize(BackdropPanel::panelWidth, all + 50);
  QApplication::processEvents();
  panel.grab().save(folder.filePath(QStringLiteral("panel-%1-whole.png").arg(name)));
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  if (argc < 2) {
    std::fputs("usage: backdrop_panel_gallery FOLDER [TEXTS.qm]\n", stderr);
    return 2;
  }
  QTranslator texts;
  if (argc > 2 && texts.load(QString::fromLocal8Bit(argv[2]))) QApplication::installTranslator(&texts);
  const QDir folder(QString::fromLocal8Bit(argv[1]));
  if (!folder.mkpath(QStringLiteral("."))) return 1;
  writePanels(folder, Appearance::Light);
  writePanels(folder, Appearance::Dark);
  return 0;
}
