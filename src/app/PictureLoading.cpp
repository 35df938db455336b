#include "app/PictureLoading.h"

#include <QtGlobal>

namespace vellora {

void PictureLoading::loadFromPasteboard(Callback done) {
  pasteboard_.readImage(lifetime_.guard([this, done = std::move(done)](std::optional<Pasteboard::ImageOffer> offer) {
    if (!offer) {
      //% "No picture could be read from the clipboard"
      static const char* const key = QT_TRID_NOOP("load.error.noPicture");
      return done(failure(QString::fromLatin1(key)));
    }
    load(
        [offer = std::move(*offer)] {
          return offer.encoded.isEmpty() ? ImageLoader::fromFile(offer.filePath) : ImageLoader::fromData(offer.encoded);
        },
        done);
  }));
}

void PictureLoading::loadFromFile(const QString& path, Callback done) {
  load([path] { return ImageLoader::fromFile(path); }, std::move(done));
}

void PictureLoading::load(std::function<Result<LoadedImage, ImageLoadError>()> work, Callback done) {
  queue_.async([this, work = std::move(work), done = lifetime_.guard(std::move(done))]() mutable {
    auto loaded = work();
    Outcome outcome = loaded ? Outcome(std::move(*loaded)) : Outcome(failure(localizationKey(loaded.error())));
    runLoop_.post([done = std::move(done), outcome = std::move(outcome)]() mutable { done(outcome); });
  });
}

QString PictureLoading::fileNamePatterns() {
  return QStringLiteral("*.png *.jpg *.jpeg *.webp *.tif *.tiff *.bmp *.gif *.heic *.heif *.avif");
}

}  // namespace vellora
