#pragma once

#include <array>
#include <optional>

#include <QByteArray>
#include <QString>

#include "base/Bitmap.h"
#include "base/Result.h"

namespace vellora {

/// The formats a finished picture can be saved in.
enum class PictureFormat { Png, Jpeg, WebP, Tiff, Pdf };

inline constexpr std::array allPictureFormats{PictureFormat::Png, PictureFormat::Jpeg, PictureFormat::WebP,
                                              PictureFormat::Tiff, PictureFormat::Pdf};

/// "png", "jpg": what a file of the format ends in, without the dot.
QString fileExtension(PictureFormat format);
/// The format a file name's ending stands for (also "jpeg" and "tif", any case); nothing for others.
std::optional<PictureFormat> pictureFormatOf(const QString& fileName);
/// "JPEG picture (*.jpg *.jpeg)", as file dialogs list it.
QString fileFilter(PictureFormat format);

/// The picture as a file of the format; nothing when the format cannot hold it or memory is short. Carries no metadata
/// but the resolution (`scale`: device pixels per point, of 72 to the inch). Formats without transparency get a white
/// ground. Any thread; takes as long as it takes.
std::optional<QByteArray> encodePicture(const Bitmap& picture, double scale, PictureFormat format);

}  // namespace vellora
