#include "media/codecs/TiffEncoder.h"

#include <QtEndian>
#include <array>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>
#include <vector>

namespace vellora {
namespace {

constexpr std::uint16_t shortType = 3, longType = 4, rationalType = 5;

/// The one directory of the file: tags in ascending order, values that do not fit a field behind it.
class Directory {
 public:
  Directory(std::uint32_t offset, std::size_t tags) : after_(offset + 2 + static_cast<std::uint32_t>(tags) * 12 + 4) {
    put16(static_cast<std::uint16_t>(tags));
  }

  void shortValue(std::uint16_t tag, std::uint16_t value) {
    field(tag, shortType, 1);
    put16(value);
    put16(0);
  }
  void longValue(std::uint16_t tag, std::uint32_t value) {
    field(tag, longType, 1);
    put32(value);
  }
  void shorts(std::uint16_t tag, const std::vector<std::uint16_t>& values) {
    field(tag, shortType, static_cast<std::uint32_t>(values.size()));
    put32(nextPlace());
    for (const std::uint16_t value : values) append(extra_, value);
  }
  void rational(std::uint16_t tag, std::uint32_t numerator, std::uint32_t denominator) {
    field(tag, rationalType, 1);
    put32(nextPlace());
    append(extra_, numerator);
    append(extra_, denominator);
  }

  QByteArray finish() {
    put32(0);  // no further directory
    return fields_ + extra_;
  }

 private:
  template <class T>
  static void append(QByteArray& bytes, T value) {
    const T little = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&little), sizeof(little));
  }
  void put16(std::uint16_t value) { append(fields_, value); }
  void put32(std::uint32_t value) { append(fields_, value); }
  void field(std::uint16_t tag, std::uint16_t type, std::uint32_t count) {
    put16(tag);
    put16(type);
    put32(count);
  }
  std::uint32_t nextPlace() const { return after_ + static_cast<std::uint32_t>(extra_.size()); }

  const std::uint32_t after_;
  QByteArray fields_, extra_;
};

void writeOpaqueRow(const std::byte* source, int width, char* out) {
  for (int x = 0; x < width; ++x, source += 4, out += 3) {
    out[0] = static_cast<char>(source[2]);
    out[1] = static_cast<char>(source[1]);
    out[2] = static_cast<char>(source[0]);
  }
}

void writeAlphaRow(const std::byte* source, int width, char* out) {
  for (int x = 0; x < width; ++x, source += 4, out += 4) {
    std::uint32_t word;
    std::memcpy(&word, source, sizeof(word));
    word = (word & 0xFF00FF00U) | (word >> 16 & 0xFF) | (word & 0xFF) << 16;
    std::memcpy(out, &word, sizeof(word));
  }
}

}  // namespace

QByteArray encodeTiff(const Bitmap& bitmap) {
  if (bitmap.isNull() || bitmap.width() <= 0 || bitmap.height() <= 0) return {};
  const bool opaque = bitmap.alpha() == PixelAlpha::Opaque;
  const std::uint16_t samples = opaque ? 3 : 4;
  const qint64 rowBytes = qint64{bitmap.width()} * samples;
  const qint64 pixelBytes = rowBytes * bitmap.height();
  constexpr qint64 headerBytes = 8, mostDirectoryBytes = 512;
  const qint64 directoryOffset = headerBytes + pixelBytes + (pixelBytes & 1);
  if (directoryOffset + mostDirectoryBytes > std::numeric_limits<std::int32_t>::max()) return {};

  Directory directory(static_cast<std::uint32_t>(directoryOffset), opaque ? 13 : 14);
  directory.longValue(256, static_cast<std::uint32_t>(bitmap.width()));
  directory.longValue(257, static_cast<std::uint32_t>(bitmap.height()));
  directory.shorts(258, std::vector<std::uint16_t>(samples, 8));  // bits per sample
  directory.shortValue(259, 1);                                   // no compression
  directory.shortValue(262, 2);                                   // RGB
  directory.longValue(273, headerBytes);                          // one strip, right behind the header
  directory.shortValue(274, 1);                                   // upright
  directory.shortValue(277, samples);
  directory.longValue(278, static_cast<std::uint32_t>(bitmap.height()));
  directory.longValue(279, static_cast<std::uint32_t>(pixelBytes));
  directory.rational(282, 72, 1);
  directory.rational(283, 72, 1);
  directory.shortValue(296, 2);               // per inch
  if (!opaque) directory.shortValue(338, 1);  // the fourth sample is associated alpha
  const QByteArray tail = directory.finish();

  try {
    QByteArray file(directoryOffset + tail.size(), Qt::Uninitialized);
    char* out = file.data();
    const std::array<std::uint32_t, 2> header{qToLittleEndian<std::uint32_t>(0x002A4949),
                                              qToLittleEndian(static_cast<std::uint32_t>(directoryOffset))};
    std::memcpy(out, header.data(), headerBytes);
    out += headerBytes;
    for (int y = 0; y < bitmap.height(); ++y, out += rowBytes) {
      opaque ? writeOpaqueRow(bitmap.row(y), bitmap.width(), out) : writeAlphaRow(bitmap.row(y), bitmap.width(), out);
    }
    if ((pixelBytes & 1) != 0) *out++ = 0;
    std::memcpy(out, tail.constData(), static_cast<std::size_t>(tail.size()));
    return file;
  } catch (const std::bad_alloc&) {
    return {};
  }
}

}  // namespace vellora
