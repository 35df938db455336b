#include "media/codecs/PdfFile.h"

#include <algorithm>
#include <vector>

#include <QImage>

namespace vellora {
namespace {

// The largest side of a page many readers accept, in points.
constexpr double largestSide = 14400;
constexpr int predictorUp = 15;  // rows are filtered as in PNG
constexpr char filterUp = 2;
constexpr int compressionLevel = 6;

/// The pixels as three bytes each, every row the difference to the one above.
QByteArray filteredRows(const QImage& picture) {
  const qsizetype width = picture.width();
  const qsizetype rowBytes = 3 * width + 1;
  QByteArray rows(rowBytes * picture.height(), Qt::Uninitialized);
  std::vector<QRgb> above(static_cast<std::size_t>(width), qRgb(0, 0, 0));
  char* out = rows.data();
  for (int y = 0; y < picture.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
    *out++ = filterUp;
    for (qsizetype x = 0; x < width; ++x) {
      const QRgb now = line[x];
      const QRgb up = above[static_cast<std::size_t>(x)];
      *out++ = static_cast<char>(qRed(now) - qRed(up));
      *out++ = static_cast<char>(qGreen(now) - qGreen(up));
      *out++ = static_cast<char>(qBlue(now) - qBlue(up));
    }
    std::copy_n(line, width, above.begin());
  }
  return rows;
}

class Writer {
 public:
  Writer() { bytes_ = "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n"; }

  void object(const QByteArray& content) {
    offsets_.push_back(bytes_.size());
    bytes_ += QByteArray::number(offsets_.size()) + " 0 obj\n" + content + "\nendobj\n";
  }

  QByteArray finish() && {
    const qsizetype table = bytes_.size();
    const QByteArray count = QByteArray::number(offsets_.size() + 1);
    bytes_ += "xref\n0 " + count + "\n0000000000 65535 f \n";
    for (const qsizetype offset : offsets_) {
      bytes_ += QByteArray::number(offset).rightJustified(10, '0') + " 00000 n \n";
    }
    bytes_ += "trailer\n<< /Size " + count + " /Root 1 0 R >>\nstartxref\n" + QByteArray::number(table) + "\n%%EOF\n";
    return std::move(bytes_);
  }

 private:
  QByteArray bytes_;
  QList<qsizetype> offsets_;
};

}  // namespace

std::optional<QByteArray> pdfFile(const QImage& source, double scale) {
  const QImage picture =
      source.format() == QImage::Format_RGB32 ? source : source.convertToFormat(QImage::Format_RGB32);
  if (picture.isNull()) return std::nullopt;
  // qCompress puts the length in four bytes before the zlib stream.
  const QByteArray pixels = qCompress(filteredRows(picture), compressionLevel).mid(4);
  const double longer = std::max(picture.width(), picture.height()) / scale;
  const double shrink = longer > largestSide ? largestSide / longer : 1;
  const QByteArray width = QByteArray::number(picture.width() / scale * shrink, 'f', 2);
  const QByteArray height = QByteArray::number(picture.height() / scale * shrink, 'f', 2);
  const QByteArray columns = QByteArray::number(picture.width());
  const QByteArray drawing = "q " + width + " 0 0 " + height + " 0 0 cm /P Do Q";

  Writer writer;
  writer.object("<< /Type /Catalog /Pages 2 0 R >>");
  writer.object("<< /Type /Pages /Kids [3 0 R] /Count 1 >>");
  writer.object("<< /Type /Page /Parent 2 0 R /MediaBox [0 0 " + width + " " + height +
                "] /Resources << /XObject << /P 5 0 R >> >> /Contents 4 0 R >>");
  writer.object("<< /Length " + QByteArray::number(drawing.size()) + " >>\nstream\n" + drawing + "\nendstream");
  writer.object("<< /Type /XObject /Subtype /Image /Width " + columns + " /Height " +
                QByteArray::number(picture.height()) +
                " /ColorSpace /DeviceRGB /BitsPerComponent 8 /Filter /FlateDecode /DecodeParms << /Predictor " +
                QByteArray::number(predictorUp) + " /Colors 3 /BitsPerComponent 8 /Columns " + columns +
                " >> /Length " + QByteArray::number(pixels.size()) + " >>\nstream\n" + pixels + "\nendstream");
  return std::move(writer).finish();
}

}  // namespace vellora
