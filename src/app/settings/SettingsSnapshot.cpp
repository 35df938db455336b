#include "app/settings/SettingsSnapshot.h"

#include <QDir>
#include <QImage>

#include "app/settings/SettingsWindow.h"
#include "base/Log.h"
#include "kit/Theme.h"

namespace vellora {
namespace {

constexpr int pixelsPerPoint = 2;

bool writePicture(const QString& path, SettingsWindow& window) {
  QImage picture(window.size() * pixelsPerPoint, QImage::Format_RGB32);
  picture.setDevicePixelRatio(pixelsPerPoint);
  window.render(&picture);
  if (picture.save(path, "PNG")) return true;
  log::error(QStringLiteral("settings picture not written: %1").arg(path));
  return false;
}

}  // namespace

bool writeSettingsSnapshots(const QString& folder, SettingsWindow& window) {
  const QDir directory(folder);
  if (!directory.mkpath(QStringLiteral("."))) {
    log::error(QStringLiteral("settings pictures: the folder %1 cannot be made").arg(folder));
    return false;
  }
  Theme& theme = Theme::shared();
  const auto before = theme.appearanceOverride();
  const SettingsPageId shown = window.currentPage();
  const bool hidden = !window.isVisible();
  if (hidden) {
    // Lays everything out as on screen, without a window there.
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.show();
  }
  bool complete = true;
  for (const SettingsPageId page : allSettingsPages) {
    window.showPage(page);
    for (const Appearance appearance : {Appearance::Light, Appearance::Dark}) {
      theme.setAppearanceOverride(appearance);
      const QString name = QStringLiteral("settings-%1-%2.png")
                               .arg(identifier(page),
                                    appearance == Appearance::Light ? QStringLiteral("light") : QStringLiteral("dark"));
      complete = writePicture(directory.filePath(name), window) && complete;
    }
  }
  theme.setAppearanceOverride(before);
  window.showPage(shown);
  if (hidden) {
    window.hide();
    window.setAttribute(Qt::WA_DontShowOnScreen, false);
  }
  return complete;
}

}  // namespace vellora
