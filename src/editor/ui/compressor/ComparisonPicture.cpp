#include "editor/ui/compressor/ComparisonPicture.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <QPainter>
#include <QPromise>
#include <QThreadPool>

#include "media/pictures/LinearLight.h"

namespace vellora {
namespace {

/// The smallest version is about this large; drawing from it at a smaller zoom still looks at every pixel.
constexpr int smallestEdge = 64;
/// Pictures up to this many pixels are made ready within a few milliseconds.
constexpr qint64 atOncePixels = 1'000'000;

constexpr int lightBits = 14;

/// Samples as light of 16 bits, and light of 14 bits as samples.
struct LightTables {
  std::array<std::uint32_t, 256> light;
  std::array<std::uint8_t, 1 << lightBits> sample;

  LightTables() {
    for (std::size_t i = 0; i < light.size(); ++i) {
      light[i] = static_cast<std::uint32_t>(std::lround(linearOf8Bits()[i] * 65535));
    }
    for (std::size_t i = 0; i < sample.size(); ++i) {
      sample[i] = sampleOf8Bits((static_cast<float>(i) + 0.5F) / static_cast<float>(sample.size()));
    }
  }
};

QRgb average(const LightTables& tables, QRgb a, QRgb b, QRgb c, QRgb d) {
  if (a == b && b == c && c == d) return a;
  if ((a & b & c & d) >> 24 != 0xFF) {
    // Colors of transparent pixels are multiplied by alpha and cannot be looked up; edges of shapes may do without.
    const auto mean = [&](int shift) {
      return ((a >> shift & 0xFF) + (b >> shift & 0xFF) + (c >> shift & 0xFF) + (d >> shift & 0xFF) + 2) / 4 << shift;
    };
    return mean(0) | mean(8) | mean(16) | mean(24);
  }
  const auto mean = [&](int shift) {
    const std::uint32_t sum = tables.light[a >> shift & 0xFF] + tables.light[b >> shift & 0xFF] +
                              tables.light[c >> shift & 0xFF] + tables.light[d >> shift & 0xFF];
    return static_cast<QRgb>(tables.sample[sum >> (18 - lightBits)]) << shift;
  };
  return 0xFF000000 | mean(0) | mean(8) | mean(16);
}

QImage halved(const QImage& picture) {
  static const LightTables tables;
  // The fourth byte of opaque pixels may be anything.
  const QRgb opaque = picture.hasAlphaChannel() ? 0 : 0xFF000000;
  const auto mean = [opaque](QRgb a, QRgb b, QRgb c, QRgb d) {
    return average(tables, a | opaque, b | opaque, c | opaque, d | opaque);
  };
  QImage half((picture.width() + 1) / 2, (picture.height() + 1) / 2, picture.format());
  for (int y = 0; y < half.height(); ++y) {
    const auto* upper = reinterpret_cast<const QRgb*>(picture.constScanLine(2 * y));
    const auto* lower = reinterpret_cast<const QRgb*>(picture.constScanLine(std::min(2 * y + 1, picture.height() - 1)));
    auto* row = reinterpret_cast<QRgb*>(half.scanLine(y));
    for (int x = 0; x < picture.width() / 2; ++x) {
      row[x] = mean(upper[2 * x], upper[2 * x + 1], lower[2 * x], lower[2 * x + 1]);
    }
    if (picture.width() % 2 != 0) {
      const int last = picture.width() - 1;
      row[half.width() - 1] = mean(upper[last], upper[last], lower[last], lower[last]);
    }
  }
  return half;
}

QImage drawable(const QImage& picture) {
  if (picture.hasAlphaChannel()) return picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  return picture.convertToFormat(QImage::Format_RGB32);
}

}  // namespace

ComparisonPicture::ComparisonPicture(const QImage& picture) : source_(picture.cacheKey()) {
  levels_.push_back(drawable(picture));
  while (std::max(levels_.back().width(), levels_.back().height()) > smallestEdge) {
    QImage half = halved(levels_.back());
    if (half.isNull()) break;
    levels_.push_back(std::move(half));
  }
}

void ComparisonPicture::paint(QPainter& painter, const QRect& clip, const Placement& placement) const {
  std::size_t level = 0;
  double unit = 1;  // pixels of the picture for one of the level
  constexpr double nearlyOne = 1 + 1e-6;
  while (level + 1 < levels_.size() && 2 * unit * std::max(placement.scaleX, placement.scaleY) <= nearlyOne) {
    ++level;
    unit *= 2;
  }
  const QImage& image = levels_[level];
  const double scaleX = placement.scaleX * unit;
  const double scaleY = placement.scaleY * unit;
  const QRectF whole(placement.origin, QSizeF(size().width() * placement.scaleX, size().height() * placement.scaleY));
  const QRect drawn = clip & whole.toRect();
  if (drawn.isEmpty()) return;

  // Only the part that shows is handed over, with the neighbors that smoothing looks at: numbers stay small.
  constexpr int neighbors = 2;
  const QRectF seen = QRectF(drawn).translated(-placement.origin);
  const QRect part = QRectF(seen.left() / scaleX, seen.top() / scaleY, seen.width() / scaleX, seen.height() / scaleY)
                         .toAlignedRect()
                         .adjusted(-neighbors, -neighbors, neighbors, neighbors) &
                     image.rect();
  const QImage shown(image.constScanLine(part.top()) + part.left() * 4, part.width(), part.height(),
                     image.bytesPerLine(), image.format());
  const QRectF target(placement.origin + QPointF(part.left() * scaleX, part.top() * scaleY),
                      QSizeF(part.width() * scaleX, part.height() * scaleY));
  const bool exact = std::abs(scaleX - 1) < 1e-6 && std::abs(scaleY - 1) < 1e-6;
  painter.save();
  painter.setClipRect(drawn, Qt::IntersectClip);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, !exact && !placement.hardEdges);
  if (exact) {
    painter.drawImage(target.topLeft().toPoint(), shown);
  } else {
    painter.drawImage(target, shown);
  }
  painter.restore();
}

QFuture<ComparisonPair> prepareComparison(const QImage& before, const QImage& after, const ComparisonPair& known) {
  const auto make = [](const QImage& picture, const std::shared_ptr<const ComparisonPicture>& ready) {
    if (picture.isNull()) return std::shared_ptr<const ComparisonPicture>();
    if (ready && ready->isOf(picture)) return ready;
    auto made = std::make_shared<const ComparisonPicture>(picture);
    return made->size().isEmpty() ? nullptr : made;  // no memory
  };
  const auto promise = std::make_shared<QPromise<ComparisonPair>>();
  promise->start();
  const auto work = [=] {
    ComparisonPair pair;
    if (!promise->isCanceled()) pair.before = make(before, known.before);
    if (!promise->isCanceled()) pair.after = make(after, known.after);
    promise->addResult(std::move(pair));
    promise->finish();
  };
  const auto pixels = [](const QImage& picture) { return qint64{picture.width()} * picture.height(); };
  if (std::max(pixels(before), pixels(after)) <= atOncePixels) {
    work();
  } else {
    QThreadPool::globalInstance()->start(work);
  }
  return promise->future();
}

}  // namespace vellora
