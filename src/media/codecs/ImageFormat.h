#pragma once

#include <QByteArray>

namespace vellora {

/// The picture formats that can be read.
enum class ImageFormat { Unknown, Png, Jpeg, WebP, Tiff, Bmp, Gif, Heif };

/// Tells the format from the first bytes of a file; its name and what else claims to know do not matter.
ImageFormat imageFormatOf(const QByteArray& data);

/// Whether a JPEG (ITU-T T.81, annex B) runs to its end mark. Decoders fill the missing part of one that does not with
/// grey and say nothing.
bool isCompleteJpeg(const QByteArray& data);

/// Whether the rows that an uncompressed BMP announces are all there; true for the rare compressed ones. Decoders leave
/// missing rows black.
bool isCompleteBmp(const QByteArray& data);

/// The device pixels per point that a PNG's pHYs chunk states: 144 dots per inch are 2. 1 when there is none, and for
/// densities that are no common display scale, such as a scanner's.
double pngScale(const QByteArray& data);

}  // namespace vellora
