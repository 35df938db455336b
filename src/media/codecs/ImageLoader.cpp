#include "media/codecs/ImageLoader.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>
#include <mutex>
#include <span>

#include "base/AtomicFile.h"
#include "media/PngDecoder.h"
#include "media/codecs/HeifReader.h"
#include "media/codecs/ImageConversion.h"
#include "media/codecs/ImageFormat.h"

namespace vellora {
namespace {

constexpr QColorSpace::NamedColorSpace workingSpace = QColorSpace::SRgb;

const char* readerName(ImageFormat format) {
  switch (format) {
    case ImageFormat::Png:
      return "png";
    case ImageFormat::Jpeg:
      return "jpeg";
    case ImageFormat::WebP:
      return "webp";
    case ImageFormat::Tiff:
      return "tiff";
    case ImageFormat::Bmp:
      return "bmp";
    case ImageFormat::Gif:
      return "gif";
    case ImageFormat::Heif:
    case ImageFormat::Unknown:
      break;
  }
  return "";
}

ImageLoadError errorOf(FileError::Kind kind) {
  switch (kind) {
    case FileError::Kind::NotFound:
      return ImageLoadError::NotFound;
    case FileError::Kind::NotPermitted:
      return ImageLoadError::NotPermitted;
    case FileError::Kind::TooLarge:
      return ImageLoadError::TooLarge;
    case FileError::Kind::NoSpace:
    case FileError::Kind::Other:
      break;
  }
  return ImageLoadError::NotAFile;
}

ImageLoadError errorOf(PngDecodeError error) {
  switch (error) {
    case PngDecodeError::Unsupported:
      return ImageLoadError::Unsupported;
    case PngDecodeError::TooLarge:
      return ImageLoadError::TooLarge;
    case PngDecodeError::OutOfMemory:
      return ImageLoadError::OutOfMemory;
    case PngDecodeError::Damaged:
      break;
  }
  return ImageLoadError::Damaged;
}

/// The kinds of PNG that screens give, several times faster than Qt reads them.
Result<Bitmap, PngDecodeError> readUsualPng(const QByteArray& data) {
  constexpr PngLimits limits{.edge = imageLimits::edge, .bytes = std::size_t{imageLimits::decodedBytes}};
  return decodePng(std::as_bytes(std::span(data.constData(), static_cast<std::size_t>(data.size()))), limits);
}

bool isTooLarge(QSize size) {
  return size.width() > imageLimits::edge || size.height() > imageLimits::edge ||
         qint64{size.width()} * size.height() * 4 > imageLimits::decodedBytes;
}

Result<QImage, ImageLoadError> read(const QByteArray& data, ImageFormat format) {
  // 16 bits per channel take twice the room of the result. The setting belongs to the whole process.
  static std::once_flag limited;
  std::call_once(limited, [] { QImageReader::setAllocationLimit(static_cast<int>(imageLimits::decodedBytes >> 19)); });

  QByteArray bytes = data;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer, readerName(format));
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  if (!QImageReader::supportedImageFormats().contains(readerName(format))) return failure(ImageLoadError::Unsupported);
  const QSize size = reader.size();
  if (!size.isValid() || size.isEmpty()) return failure(ImageLoadError::Damaged);
  if (isTooLarge(size)) return failure(ImageLoadError::TooLarge);
  QImage image;
  if (!reader.read(&image) || image.isNull()) {
    return failure(reader.error() == QImageReader::UnsupportedFormatError ? ImageLoadError::Unsupported
                                                                          : ImageLoadError::Damaged);
  }
  return image;
}

/// 8 bits a channel, sRGB, in one of the two formats a bitmap has.
QImage normalized(QImage image) {
  const bool deep = image.depth() > 32;
  const auto eightBit = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
  if (!deep && image.format() != eightBit) image.convertTo(eightBit);
  const QColorSpace space = image.colorSpace();
  // With 16 bits a channel the colours are converted first, where rounding does not show.
  if (!image.isNull() && space.isValid() && space != QColorSpace(workingSpace)) image.convertToColorSpace(workingSpace);
  if (!image.isNull() && image.format() != eightBit) image.convertTo(eightBit);
  return image;
}

}  // namespace

QString localizationKey(ImageLoadError error) {
  switch (error) {
    case ImageLoadError::NotFound:
      //% "The file does not exist"
      return QString::fromLatin1(QT_TRID_NOOP("load.error.notFound"));
    case ImageLoadError::NotPermitted:
      //% "You may not read this file"
      return QString::fromLatin1(QT_TRID_NOOP("load.error.notPermitted"));
    case ImageLoadError::NotAFile:
      //% "This is not a file"
      return QString::fromLatin1(QT_TRID_NOOP("load.error.notAFile"));
    case ImageLoadError::TooLarge:
      //% "The picture is too large"
      return QString::fromLatin1(QT_TRID_NOOP("load.error.tooLarge"));
    case ImageLoadError::NotAnImage:
      //% "This is not a picture Vellora can read"
      return QString::fromLatin1(QT_TRID_NOOP("load.error.notAnImage"));
    case ImageLoadError::Unsupported:
      //% "This kind of picture cannot be read"
      return QString::fromLatin1(QT_TRID_NOOP("load.error.unsupported"));
    case ImageLoadError::OutOfMemory:
      //% "There is not enough memory for the picture"
      return QString::fromLatin1(QT_TRID_NOOP("load.error.outOfMemory"));
    case ImageLoadError::Damaged:
      break;
  }
  //% "The picture is damaged"
  return QString::fromLatin1(QT_TRID_NOOP("load.error.damaged"));
}

Result<LoadedImage, ImageLoadError> ImageLoader::fromFile(const QString& path) {
  const auto data = AtomicFile::read(path, imageLimits::fileBytes);
  if (!data) return failure(errorOf(data.error().kind));
  return fromData(*data);
}

Result<LoadedImage, ImageLoadError> ImageLoader::fromData(const QByteArray& data) {
  if (data.size() > imageLimits::fileBytes) return failure(ImageLoadError::TooLarge);
  const ImageFormat format = imageFormatOf(data);
  if (format == ImageFormat::Unknown) return failure(ImageLoadError::NotAnImage);
  if (format == ImageFormat::Jpeg && !isCompleteJpeg(data)) return failure(ImageLoadError::Damaged);
  if (format == ImageFormat::Bmp && !isCompleteBmp(data)) return failure(ImageLoadError::Damaged);
  if (format == ImageFormat::Png) {
    const auto bitmap = readUsualPng(data);
    if (bitmap) return LoadedImage{.bitmap = *bitmap, .scale = pngScale(data)};
    if (bitmap.error() != PngDecodeError::Unsupported) return failure(errorOf(bitmap.error()));
  }
  auto image = format == ImageFormat::Heif ? readHeif(data) : read(data, format);
  if (!image) return failure(image.error());
  LoadedImage loaded;
  loaded.bitmap = toBitmap(normalized(std::move(*image)));
  if (loaded.bitmap.isNull()) return failure(ImageLoadError::OutOfMemory);
  if (format == ImageFormat::Png) loaded.scale = pngScale(data);
  return loaded;
}

}  // namespace vellora
