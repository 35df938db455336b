#pragma once

#include <QString>

namespace vellora {

class SettingsWindow;

/// Draws every page in light and dark at two pixels per point into `folder`, which is made when missing:
/// "settings-general-light.png", "settings-general-dark.png" and so on. The window need not be shown; page and theme
/// are as before afterwards. False when a picture could not be written, which is logged.
bool writeSettingsSnapshots(const QString& folder, SettingsWindow& window);

}  // namespace vellora
