#include "media/codecs/PictureFormat.h"

#include <cmath>
#include <cstddef>
#include <span>

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QPainter>

#include "base/Log.h"
#include "media/PngEncoder.h"
#include "media/codecs/ImageConversion.h"
#include "media/codecs/PdfFile.h"

namespace vellora {
namespace {

constexpr int jpegQuality = 92;
constexpr int webpLossless = 100;
constexpr int tiffLzw = 1;
constexpr double inchesPerMeter = 1 / 0.0254;

/// The picture over white, without alpha.
QImage onWhite(const QImage& picture) {
  if (!picture.hasAlphaChannel()) return picture;
  QImage ground(picture.size(), QImage::Format_RGB32);
  if (ground.isNull()) return {};
  ground.fill(Qt::white);
  QPainter painter(&ground);
  painter.drawImage(0, 0, picture);
  return ground;
}

std::optional<QByteArray> write(QImage picture, double scale, const char* format, int quality, int compression = -1) {
  if (picture.isNull()) return std::nullopt;
  const int dotsPerMeter = static_cast<int>(std::lround(pointsPerInch * scale * inchesPerMeter));
  picture.setDotsPerMeterX(dotsPerMeter);
  picture.setDotsPerMeterY(dotsPerMeter);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  if (quality >= 0) writer.setQuality(quality);
  if (compression >= 0) writer.setCompression(compression);
  if (!writer.write(picture)) {
    log::warning(QStringLiteral("cannot make a %1 picture: %2").arg(QLatin1StringView(format), writer.errorString()));
    return std::nullopt;
  }
  return bytes;
}

std::optional<QByteArray> png(const Bitmap& picture, double scale) {
  const auto encoded = encodePng(picture, {.scale = scale});
  if (!encoded) return std::nullopt;
  return QByteArray(reinterpret_cast<const char*>(encoded->data()), static_cast<qsizetype>(encoded->size()));
}

}  // namespace

QString fileExtension(PictureFormat format) {
  switch (format) {
    case PictureFormat::Png:
      return QStringLiteral("png");
    case PictureFormat::Jpeg:
      return QStringLiteral("jpg");
    case PictureFormat::WebP:
      return QStringLiteral("webp");
    case PictureFormat::Tiff:
      return QStringLiteral("tiff");
    case PictureFormat::Pdf:
      return QStringLiteral("pdf");
  }
  return {};
}

std::optional<PictureFormat> pictureFormatOf(const QString& fileName) {
  const QString ending = QFileInfo(fileName).suffix().toLower();
  if (ending == QLatin1StringView("jpeg")) return PictureFormat::Jpeg;
  if (ending == QLatin1StringView("tif")) return PictureFormat::Tiff;
  for (const PictureFormat format : allPictureFormats) {
    if (ending == fileExtension(format)) return format;
  }
  return std::nullopt;
}

QString fileFilter(PictureFormat format) {
  switch (format) {
    case PictureFormat::Png:
      //% "PNG picture (*.png)"
      return qtTrId("editor.format.png");
    case PictureFormat::Jpeg:
      //% "JPEG picture (*.jpg *.jpeg)"
      return qtTrId("editor.format.jpeg");
    case PictureFormat::WebP:
      //% "WebP picture (*.webp)"
      return qtTrId("editor.format.webp");
    case PictureFormat::Tiff:
      //% "TIFF picture (*.tiff *.tif)"
      return qtTrId("editor.format.tiff");
    case PictureFormat::Pdf:
      //% "PDF document (*.pdf)"
      return qtTrId("editor.format.pdf");
  }
  return {};
}

std::optional<QByteArray> encodePicture(const Bitmap& picture, double scale, PictureFormat format) {
  if (picture.isNull()) return std::nullopt;
  switch (format) {
    case PictureFormat::Png:
      return png(picture, scale);
    case PictureFormat::Jpeg:
      return write(onWhite(toImage(picture)), scale, "jpeg", jpegQuality);
    case PictureFormat::WebP:
      return write(toImage(picture), scale, "webp", webpLossless);
    case PictureFormat::Tiff:
      return write(toImage(picture), scale, "tiff", -1, tiffLzw);
    case PictureFormat::Pdf:
      return pdfFile(onWhite(toImage(picture)), scale);
  }
  return std::nullopt;
}

}  // namespace vellora
