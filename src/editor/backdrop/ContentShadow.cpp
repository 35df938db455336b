#include "editor/backdrop/ContentShadow.h"

#include <QImage>
#include <QPainter>

namespace vellora {
namespace {

struct LayerShape {
  double blur;  ///< standard deviation as a part of the extent
  double drop;  ///< how far it falls below the content, likewise
  double opacity;
};

constexpr LayerShape shapes[] = {{0.040, 0.038, 0.62}, {0.012, 0.010, 0.40}, {0.0028, 0.002, 0.34}};

constexpr double nodesPerBlur = 4.0;
constexpr int mostNodes = 1000;  // along a side

/// A running mean over 2 × radius + 1 nodes of a row; beyond the edges it is 0.
void meanRow(float* row, int count, int radius, std::vector<float>& padded) {
  const auto length = static_cast<std::size_t>(count);
  const auto reach = static_cast<std::size_t>(radius);
  padded.assign(length + 2 * reach + 1, 0.0F);
  std::copy(row, row + length, padded.begin() + radius);
  const float share = 1.0F / static_cast<float>(2 * radius + 1);
  float sum = 0;
  for (std::size_t i = 0; i < 2 * reach + 1; ++i) sum += padded[i];
  for (std::size_t i = 0; i < length; ++i) {
    row[i] = std::max(sum, 0.0F) * share;
    sum += padded[i + 2 * reach + 1] - padded[i];
  }
}

/// The same along the columns, all of them at once.
void meanColumns(SmoothGrid<float>& field, int radius) {
  const SmoothGrid<float> source = field;
  const auto columns = static_cast<std::size_t>(field.columns());
  std::vector<float> sums(columns, 0.0F);
  const auto add = [&](int y, float sign) {
    if (y < 0 || y >= source.rows()) return;
    const float* row = source.row(y);
    for (std::size_t x = 0; x < columns; ++x) sums[x] += sign * row[x];
  };
  for (int y = 0; y < radius; ++y) add(y, 1);
  const float share = 1.0F / static_cast<float>(2 * radius + 1);
  for (int y = 0; y < field.rows(); ++y) {
    add(y + radius, 1);
    float* row = field.row(y);
    for (std::size_t x = 0; x < columns; ++x) row[x] = std::max(sums[x], 0.0F) * share;
    add(y - radius, -1);
  }
}

/// Variance of three running means of radius r: r (r + 1).
int radiusFor(double sigma) {
  return std::max(1, static_cast<int>(std::lround((std::sqrt(1 + 4 * sigma * sigma) - 1) / 2)));
}

/// Three running means after each other come close to a Gaussian of the standard deviation `sigma`, in nodes.
void blur(SmoothGrid<float>& field, double sigmaX, double sigmaY) {
  std::vector<float> padded;
  for (int pass = 0; pass < 3; ++pass) {
    for (int y = 0; y < field.rows(); ++y) meanRow(field.row(y), field.columns(), radiusFor(sigmaX), padded);
    meanColumns(field, radiusFor(sigmaY));
  }
}

ContentShadow::Layer makeLayer(const QPainterPath& silhouette, const QRectF& visible, double opacity, double sigma,
                               double drop) {
  const QPainterPath dropped = silhouette.translated(0, drop);
  const double reach = 3.2 * sigma;
  const QRectF area = dropped.boundingRect().adjusted(-reach, -reach, reach, reach) &
                      visible.adjusted(-2 * reach, -2 * reach, 2 * reach, 2 * reach);
  ContentShadow::Layer layer{area, {}};
  if (area.isEmpty()) return layer;
  const auto nodes = [&](double length) {
    return static_cast<int>(std::clamp(length / sigma * nodesPerBlur, 4.0, double{mostNodes}));
  };
  QImage mask(nodes(area.width()), nodes(area.height()), QImage::Format_Alpha8);
  if (mask.isNull()) return layer;
  mask.fill(0);
  // Nodes lie on the area's edges, pixels' centres half a pixel inside the mask's.
  const double stepX = area.width() / (mask.width() - 1);
  const double stepY = area.height() / (mask.height() - 1);
  {
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(0.5, 0.5);
    painter.scale(1 / stepX, 1 / stepY);
    painter.translate(-area.topLeft());
    painter.fillPath(dropped, Qt::black);
  }
  layer.field = SmoothGrid<float>(mask.width(), mask.height());
  for (int y = 0; y < mask.height(); ++y) {
    const uchar* from = mask.constScanLine(y);
    float* to = layer.field.row(y);
    for (int x = 0; x < mask.width(); ++x) to[x] = static_cast<float>(from[x] * opacity / 255);
  }
  blur(layer.field, sigma / stepX, sigma / stepY);
  return layer;
}

}  // namespace

ContentShadow::ContentShadow(const QPainterPath& silhouette, const QRectF& visible, double strength, double extent) {
  if (!(strength > 0) || silhouette.isEmpty()) return;
  // Stronger shadows are deeper, too.
  const double depth = extent * (0.55 + 0.75 * strength);
  for (const LayerShape& shape : shapes) {
    Layer layer = makeLayer(silhouette, visible, std::min(1.0, shape.opacity * strength * 1.25),
                            std::max(shape.blur * depth, 0.4), shape.drop * depth);
    if (!layer.field.isEmpty()) layers_.push_back(std::move(layer));
  }
}

}  // namespace vellora
