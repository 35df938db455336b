#include "editor/painting/Fonts.h"

#include <fontconfig/fontconfig.h>

#include <QFile>
#include <QFileInfo>

#include "base/Log.h"

namespace vellora {

void registerFonts() {
  const QString program = QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).absolutePath();
  for (const char* place : {"/../share/vellora/fonts", "/../../share/vellora/fonts"}) {
    const QString folder = program + QLatin1StringView(place);
    if (!QFileInfo(folder).isDir()) continue;
    if (FcConfigAppFontAddDir(nullptr, reinterpret_cast<const FcChar8*>(QFile::encodeName(folder).constData())) !=
        FcTrue) {
      log::warning(QStringLiteral("the fonts in %1 cannot be read").arg(folder));
    }
    return;
  }
  log::info(QStringLiteral("no fonts of the program's own are installed; the desktop's are used"));
}

}  // namespace vellora
