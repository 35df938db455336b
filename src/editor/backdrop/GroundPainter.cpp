#include "editor/backdrop/GroundPainter.h"

#include <array>
#include <cmath>

#include <QImage>
#include <QPaintDevice>
#include <QPainter>

#include "editor/backdrop/ContentShadow.h"
#include "editor/backdrop/Grain.h"

namespace vellora {
namespace {

constexpr int stripHeight = 64;
constexpr float grainStrength = 30;  // of 255, at full intensity
constexpr float glowGain = 0.7F;     // how much stronger colours get in the glow
constexpr float glowVeil = 0.55F;    // how much of them turns white
constexpr float glowShade = 0.26F;   // how much darker it gets far from the glow

/// The 8 × 8 matrix of ordered dithering, as thresholds between 0 and 1.
const std::array<std::array<float, 8>, 8>& ditherThresholds() {
  static const auto matrix = [] {
    std::array<std::array<float, 8>, 8> values{};
    for (unsigned y = 0; y < 8; ++y) {
      for (unsigned x = 0; x < 8; ++x) {
        unsigned rank = 0;
        for (unsigned bit = 0; bit < 3; ++bit) {
          const unsigned a = (x >> bit) & 1;
          const unsigned b = (y >> bit) & 1;
          rank |= ((a ^ b) << (2 * (2 - bit) + 1)) | (b << (2 * (2 - bit)));
        }
        values[y][x] = (static_cast<float>(rank) + 0.5F) / 64;
      }
    }
    return values;
  }();
  return matrix;
}

/// Light that falls off from a centre: a bright core in a wide halo. Each is a product of a part along x and one
/// along y.
class Glow {
 public:
  Glow(Point center, double intensity, PixelSize size) : intensity_(static_cast<float>(intensity)) {
    const double extent = std::max(size.width, size.height);
    const auto fill = [&](std::vector<std::array<float, 2>>& line, int length, double middle) {
      line.resize(static_cast<std::size_t>(length));
      for (int i = 0; i < length; ++i) {
        const double distance = (i + 0.5 - middle) / extent;
        const auto bell = [&](double reach) { return static_cast<float>(std::exp(-std::pow(distance / reach, 2))); };
        line[static_cast<std::size_t>(i)] = {bell(0.24), bell(0.58)};
      }
    };
    fill(columns_, size.width, center.x * size.width);
    fill(rows_, size.height, center.y * size.height);
  }

  void apply(int x, int y, int count, Rgba* row) const {
    const auto [core, halo] = rows_[static_cast<std::size_t>(y)];
    for (int i = 0; i < count; ++i) {
      const auto& column = columns_[static_cast<std::size_t>(x + i)];
      const float light = 0.55F * core * column[0] + 0.45F * halo * column[1];
      const float alpha = row[i].alpha();
      // Lit colours first grow stronger, as if light fell on them, and then fade into white.
      const float lit = (1 - glowShade * intensity_ * (1 - light)) * (1 + glowGain * intensity_ * light);
      const float veil = glowVeil * intensity_ * light;
      const Rgba bright = smaller(row[i] * lit, {alpha, alpha, alpha, alpha});
      row[i] = bright * (1 - veil) + Rgba(alpha, alpha, alpha * 0.97F, 0) * veil;
      row[i].setAlpha(alpha);
    }
  }

 private:
  float intensity_;
  std::vector<std::array<float, 2>> columns_;
  std::vector<std::array<float, 2>> rows_;
};

/// The pixels a rectangle of a device touches, without slivers from rounding.
QRect coveredPixels(const QRectF& rect) {
  constexpr double sliver = 1e-3;
  const int left = static_cast<int>(std::floor(rect.left() + sliver));
  const int top = static_cast<int>(std::floor(rect.top() + sliver));
  return {left, top, std::max(1, static_cast<int>(std::ceil(rect.right() - sliver)) - left),
          std::max(1, static_cast<int>(std::ceil(rect.bottom() - sliver)) - top)};
}

QColor toColor(const ColorComponents& c) {
  return QColor::fromRgbF(static_cast<float>(c.red), static_cast<float>(c.green), static_cast<float>(c.blue),
                          static_cast<float>(c.alpha));
}

}  // namespace

/// One call of paint(): where things are on the device, and the room for a row.
struct GroundPainter::Job {
  QPoint origin;  ///< of the document, in device pixels
  PixelSize size;
  QTransform fromDevice;
  std::unique_ptr<GroundSource> source;
  bool opaque;
  std::optional<Glow> glow;
  const Grain* grain = nullptr;
  float grainStrength = 0;
  const ContentShadow* shadow = nullptr;
  std::vector<Rgba> row;
  std::vector<float> line;
};

GroundPainter::GroundPainter() = default;
GroundPainter::~GroundPainter() = default;

void GroundPainter::paint(QPainter& painter, const QRectF& document, const BackdropSettings& settings,
                          const ContentShadow* shadow, const std::vector<QRectF>& hidden) {
  const QTransform toDevice = painter.deviceTransform();
  if (document.isEmpty() || toDevice.type() > QTransform::TxScale || painter.device() == nullptr) return;
  const QRectF exact = toDevice.mapRect(document);
  constexpr double farthest = 1 << 24;
  if (!(exact.width() < farthest && exact.height() < farthest && std::abs(exact.left()) < farthest &&
        std::abs(exact.top()) < farthest)) {
    return;
  }
  const QRect whole = coveredPixels(exact);
  // From the painter's coordinates without its world transform: a widget's may lie anywhere in a larger surface.
  const QTransform window = painter.worldTransform().inverted() * toDevice;
  QRect shown = whole & coveredPixels(window.mapRect(QRectF(painter.viewport())));
  if (painter.hasClipping()) shown &= coveredPixels(toDevice.mapRect(painter.clipBoundingRect()));
  if (shown.isEmpty()) return;

  const auto* solid = std::get_if<BackdropBackground::Solid>(&settings.background.value);
  const bool shaded = shadow != nullptr && !shadow->layers().empty();
  painter.save();
  painter.setWorldTransform(window.inverted());  // device pixels from here on
  if (solid != nullptr && !shaded && settings.glowIntensity == 0 && settings.noiseIntensity == 0) {
    painter.fillRect(whole, toColor(solid->color));
    painter.restore();
    return;
  }

  Job job;
  job.origin = whole.topLeft();
  job.size = {whole.width(), whole.height()};
  job.fromDevice = toDevice.inverted();
  job.source = sources_.make(settings.background, job.size);
  job.opaque = job.source->isOpaque();
  if (settings.glowIntensity > 0) job.glow.emplace(settings.glowCenter, settings.glowIntensity, job.size);
  if (settings.noiseIntensity > 0) {
    if (!grain_ || grain_->scale() != toDevice.m11()) grain_ = std::make_unique<Grain>(toDevice.m11());
    job.grain = grain_.get();
    job.grainStrength = grainStrength * static_cast<float>(settings.noiseIntensity);
  }
  if (shaded) job.shadow = shadow;

  QRegion region(shown);
  for (const QRectF& rect : hidden) {
    const QRectF covered = toDevice.mapRect(rect);
    const QPoint topLeft(static_cast<int>(std::ceil(covered.left())), static_cast<int>(std::ceil(covered.top())));
    const QPoint end(static_cast<int>(std::floor(covered.right())), static_cast<int>(std::floor(covered.bottom())));
    region -= QRect(topLeft, end - QPoint(1, 1));
  }
  for (const QRect& part : region) paintPart(painter, part, job);
  painter.restore();
}

void GroundPainter::paintPart(QPainter& painter, const QRect& part, Job& job) {
  QImage strip(part.width(), std::min(part.height(), stripHeight),
               job.opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
  if (strip.isNull()) return;
  job.row.resize(static_cast<std::size_t>(part.width()));
  const int x = part.x() - job.origin.x();
  for (int top = part.top(); top <= part.bottom(); top += stripHeight) {
    const int rows = std::min(stripHeight, part.bottom() + 1 - top);
    for (int i = 0; i < rows; ++i) {
      const int y = top + i - job.origin.y();
      composeRow(x, y, part.width(), job);
      const auto& thresholds = ditherThresholds()[static_cast<std::size_t>(y & 7)];
      auto* pixels = reinterpret_cast<QRgb*>(strip.scanLine(i));
      for (int k = 0; k < part.width(); ++k) {
        pixels[k] = job.row[static_cast<std::size_t>(k)].toPixel(thresholds[static_cast<std::size_t>((x + k) & 7)]);
      }
    }
    painter.drawImage(QPoint(part.left(), top), strip, QRect(0, 0, part.width(), rows));
  }
}

void GroundPainter::composeRow(int x, int y, int count, Job& job) {
  Rgba* const row = job.row.data();
  job.source->row(x, y, count, row);
  if (job.glow) job.glow->apply(x, y, count, row);
  if (job.grain != nullptr) {
    for (int i = 0; i < count; ++i) {
      const float alpha = row[i].alpha();
      const float change = job.grain->at(x + i, y) * job.grainStrength * (alpha / 255);
      const Rgba moved = row[i] + Rgba(change, change, change, 0);
      row[i] = smaller(greater(moved, {}), {alpha, alpha, alpha, alpha});
    }
  }
  if (job.shadow == nullptr) return;
  const QPointF first = job.fromDevice.map(QPointF(job.origin.x() + x + 0.5, job.origin.y() + y + 0.5));
  const double pointsPerPixel = job.fromDevice.m11();
  for (const ContentShadow::Layer& layer : job.shadow->layers()) {
    if (first.y() < layer.area.top() || first.y() > layer.area.bottom()) continue;
    const double nodesX = (layer.field.columns() - 1) / layer.area.width();
    const double nodesY = (layer.field.rows() - 1) / layer.area.height();
    const int from = std::clamp(static_cast<int>((layer.area.left() - first.x()) / pointsPerPixel), 0, count);
    const int to = std::clamp(static_cast<int>((layer.area.right() - first.x()) / pointsPerPixel) + 1, from, count);
    layer.field.sampleRow(
        (first.x() + from * pointsPerPixel - layer.area.left()) * nodesX, (first.y() - layer.area.top()) * nodesY,
        pointsPerPixel * nodesX, to - from, job.line,
        [row = row + from](int i, float shade) { row[i] = row[i] * (1 - shade) + Rgba(0, 0, 0, 255 * shade); });
  }
  if (job.opaque) {
    for (int i = 0; i < count; ++i) row[i].setAlpha(255);
  }
}

}  // namespace vellora
