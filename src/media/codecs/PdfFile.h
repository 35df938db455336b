#pragma once

#include <optional>

#include <QByteArray>

class QImage;

namespace vellora {

/// How many points make an inch in the files written here: a picture of scale 1 has 72 pixels to the inch.
inline constexpr double pointsPerInch = 72;

/// A PDF (ISO 32000-1) of one page that holds an opaque picture without loss and nothing else: no dates, no names. The
/// page is as large as the picture in points. Nothing when memory is short. Any thread.
std::optional<QByteArray> pdfFile(const QImage& picture, double scale);

}  // namespace vellora
