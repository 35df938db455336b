#include "media/codecs/ImageFormat.h"

#include <QtEndian>
#include <cmath>
#include <cstdint>

namespace vellora {
namespace {

bool hasAt(const QByteArray& data, qsizetype position, QByteArrayView bytes) {
  return data.size() >= position + bytes.size() && QByteArrayView(data).sliced(position, bytes.size()) == bytes;
}

std::uint32_t bigEndianAt(const QByteArray& data, qsizetype position) {
  return qFromBigEndian<std::uint32_t>(data.constData() + position);
}

/// The file type box of ISO/IEC 14496-12 naming a brand of ISO/IEC 23008-12 or of AVIF, as major or as compatible one.
bool isHeif(const QByteArray& data) {
  if (!hasAt(data, 4, "ftyp")) return false;
  constexpr qsizetype mostBrandBytes = 256;
  const auto end = std::min<qsizetype>({static_cast<qsizetype>(bigEndianAt(data, 0)), data.size(), mostBrandBytes});
  for (qsizetype position = 8; position + 4 <= end; position += 4) {
    if (position == 12) continue;  // the minor version
    for (const char* brand : {"heic", "heix", "hevc", "heim", "heis", "mif1", "msf1", "avif", "avis"}) {
      if (hasAt(data, position, QByteArrayView(brand, 4))) return true;
    }
  }
  return false;
}

}  // namespace

ImageFormat imageFormatOf(const QByteArray& data) {
  if (hasAt(data, 0, "\x89PNG\r\n\x1A\n")) return ImageFormat::Png;
  if (hasAt(data, 0, "\xFF\xD8\xFF")) return ImageFormat::Jpeg;
  if (hasAt(data, 0, "RIFF") && hasAt(data, 8, "WEBP")) return ImageFormat::WebP;
  if (hasAt(data, 0, QByteArrayView("II*\0", 4)) || hasAt(data, 0, QByteArrayView("MM\0*", 4)) ||
      hasAt(data, 0, QByteArrayView("II+\0", 4)) || hasAt(data, 0, QByteArrayView("MM\0+", 4))) {
    return ImageFormat::Tiff;
  }
  if (hasAt(data, 0, "GIF87a") || hasAt(data, 0, "GIF89a")) return ImageFormat::Gif;
  if (hasAt(data, 0, "BM")) return ImageFormat::Bmp;
  if (isHeif(data)) return ImageFormat::Heif;
  return ImageFormat::Unknown;
}

bool isCompleteJpeg(const QByteArray& data) {
  // Marker segments up to the start of the scan, then anywhere behind it the end of the image.
  qsizetype position = 2;
  while (position + 4 <= data.size()) {
    if (static_cast<std::uint8_t>(data[position]) != 0xFF) return false;
    const auto marker = static_cast<std::uint8_t>(data[position + 1]);
    if (marker == 0xFF) {
      ++position;
      continue;
    }
    if (marker == 0xDA) return data.indexOf(QByteArrayView("\xFF\xD9"), position) >= 0;
    const bool standsAlone = marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
    position += 2;
    if (!standsAlone) position += qFromBigEndian<std::uint16_t>(data.constData() + position);
  }
  return false;
}

bool isCompleteBmp(const QByteArray& data) {
  constexpr qsizetype throughCompression = 34;
  if (data.size() < throughCompression) return false;
  const auto valueAt = [&](qsizetype position) { return qFromLittleEndian<std::int32_t>(data.constData() + position); };
  constexpr int oldestHeader = 12, plain = 0, withMasks = 3;
  if (valueAt(14) == oldestHeader || (valueAt(30) != plain && valueAt(30) != withMasks)) return true;
  const qint64 width = valueAt(18), height = std::abs(qint64{valueAt(22)});
  const qint64 bits = qFromLittleEndian<std::uint16_t>(data.constData() + 28);
  const auto offset = static_cast<std::uint32_t>(valueAt(10));
  // No overflow: 2^31 × 2^16 bits a row, checked before it is multiplied by the rows.
  const qint64 rowBytes = (width * bits + 31) / 32 * 4;
  return width > 0 && height > 0 && rowBytes <= data.size() && rowBytes * height <= data.size() - qint64{offset};
}

double pngScale(const QByteArray& data) {
  constexpr qsizetype signature = 8, overhead = 12;
  for (qsizetype position = signature; position + overhead <= data.size();) {
    const qsizetype length = bigEndianAt(data, position);
    if (hasAt(data, position + 4, "IDAT") || length > data.size() - position - overhead) break;
    if (hasAt(data, position + 4, "pHYs") && length == 9) {
      if (data[position + 16] != 1) break;  // the unit is not the metre
      constexpr double perMeterAtScale1 = 72 / 0.0254;
      const double scale = bigEndianAt(data, position + 8) / perMeterAtScale1;
      const double quarters = std::round(scale * 4) / 4;
      return quarters >= 1 && quarters <= 4 && std::abs(scale - quarters) < 0.002 ? quarters : 1;
    }
    position += overhead + length;
  }
  return 1;
}

}  // namespace vellora
