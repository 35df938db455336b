#include "media/codecs/HeifReader.h"

#include <dlfcn.h>

#include <QColorSpace>
#include <QFile>
#include <QFileInfo>
#include <memory>

#include "base/Log.h"
#include "media/codecs/heif/HeifModule.h"

namespace vellora {
namespace {

struct Module {
  VelloraHeifDecode decode = nullptr;
  VelloraHeifRelease release = nullptr;
};

Module openModule(const QString& path) {
  void* library = ::dlopen(QFile::encodeName(path).constData(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    log::warning(QStringLiteral("image module failed: %1").arg(QString::fromLocal8Bit(::dlerror())));
    return {};
  }
  return {reinterpret_cast<VelloraHeifDecode>(::dlsym(library, velloraHeifDecodeName)),
          reinterpret_cast<VelloraHeifRelease>(::dlsym(library, velloraHeifReleaseName))};
}

/// Stays loaded once it was needed.
const Module& module() {
  static const Module loaded = [] {
    const QString program = QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).path();
    const QString name = QStringLiteral("/libvellora_heif.so");
    for (const QString& folder : {program, program + u'/' + QStringLiteral(VELLORA_MODULE_FOLDER)}) {
      if (QFileInfo::exists(folder + name)) return openModule(folder + name);
    }
    log::warning(QStringLiteral("image module failed: libvellora_heif.so is not installed"));
    return Module{};
  }();
  return loaded;
}

ImageLoadError errorOf(int status) {
  switch (status) {
    case VelloraHeifUnsupported:
      return ImageLoadError::Unsupported;
    case VelloraHeifTooLarge:
      return ImageLoadError::TooLarge;
    case VelloraHeifOutOfMemory:
      return ImageLoadError::OutOfMemory;
    default:
      return ImageLoadError::Damaged;
  }
}

QImage::Format formatOf(const VelloraHeifPicture& picture) {
  if (picture.hasAlpha == 0) return QImage::Format_RGBX8888;
  return picture.isPremultiplied != 0 ? QImage::Format_RGBA8888_Premultiplied : QImage::Format_RGBA8888;
}

QColorSpace colorSpaceOf(const VelloraHeifPicture& picture) {
  if (picture.profile != nullptr) {
    return QColorSpace::fromIccProfile(
        QByteArray(reinterpret_cast<const char*>(picture.profile), static_cast<qsizetype>(picture.profileBytes)));
  }
  if (picture.primaries == VelloraHeifPrimariesDisplayP3) return QColorSpace(QColorSpace::DisplayP3);
  return QColorSpace(QColorSpace::SRgb);
}

}  // namespace

Result<QImage, ImageLoadError> readHeif(const QByteArray& data) {
  const Module& reader = module();
  if (reader.decode == nullptr || reader.release == nullptr) return failure(ImageLoadError::Unsupported);
  auto picture = std::make_unique<VelloraHeifPicture>();
  const int status =
      reader.decode(reinterpret_cast<const uint8_t*>(data.constData()), static_cast<size_t>(data.size()),
                    static_cast<size_t>(imageLimits::decodedBytes / 4), imageLimits::edge, picture.get());
  if (status != VelloraHeifDone) return failure(errorOf(status));
  QImage image(
      picture->pixels, picture->width, picture->height, picture->stride, formatOf(*picture),
      [](void* kept) {
        const std::unique_ptr<VelloraHeifPicture> owned(static_cast<VelloraHeifPicture*>(kept));
        module().release(owned.get());
      },
      picture.get());
  if (image.isNull()) {
    reader.release(picture.get());
    return failure(ImageLoadError::OutOfMemory);
  }
  const QColorSpace colorSpace = colorSpaceOf(*picture);
  (void)picture.release();  // the image's cleanup owns it now
  image.setColorSpace(colorSpace);
  return image;
}

}  // namespace vellora
