#include "app/AppServices.h"

#include <QCoreApplication>
#include <QLocale>

#include "editor/rendering/DocumentRenderer.h"
#include "media/codecs/ImageLoader.h"

namespace vellora {
namespace {

/// A copy that runs from a build folder keeps out of the installed one's hot keys.
BuildKind buildKind() {
  return qEnvironmentVariableIntValue("VELLORA_DEVELOPMENT") != 0 ? BuildKind::Development : BuildKind::Installed;
}

std::optional<Bitmap> readPicture(const QString& path) {
  auto loaded = ImageLoader::fromFile(path);
  if (!loaded) return std::nullopt;
  return loaded->bitmap;
}

}  // namespace

AppServices::AppServices()
    : hotKeySettings(*preferences, notices, buildKind()),
      localization(*preferences, notices, QLocale::system().uiLanguages()),
      sessionStore(SessionStore::defaultDirectory(fileNames.applicationSupport()), runLoop, readPicture,
                   renderDocument) {}

}  // namespace vellora
