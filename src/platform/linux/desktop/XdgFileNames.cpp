#include "platform/linux/desktop/XdgFileNames.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace vellora {

QString XdgFileNames::home() const {
  return QDir::homePath();
}

QString XdgFileNames::desktop() const {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
  if (folder.isEmpty()) return home();
  // "Desktop" is also the answer when nothing is configured: then it counts only when it is there.
  const bool isDefault = folder == QDir::homePath() + QStringLiteral("/Desktop");
  return isDefault && !QFileInfo(folder).isDir() ? home() : folder;
}

QString XdgFileNames::movies() const {
  return QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
}

QString XdgFileNames::applicationSupport() const {
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

}  // namespace vellora
