#include "editor/rendering/Lens.h"

#include <QPainter>

namespace vellora {
namespace {

constexpr double greatestMagnification = 32;

constexpr double shadowReach = 18;
constexpr double shadowDrop = 4;
constexpr double shadowOpacity = 0.34;

constexpr double rimWidth = 3;
constexpr double markWidth = 1.5;
/// How far the dark glow beside each light line reaches, which makes it show on any ground.
constexpr double glowWidth = 1.6;
const QColor light(255, 255, 255);

void strokeOutlined(QPainter& painter, const QPainterPath& path, double width) {
  // Not with flat caps: Qt draws straight lines with those a little differently under every clip.
  const auto stroke = [&](const QColor& color, double lineWidth) {
    painter.strokePath(path, QPen(color, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  };
  stroke(QColor(0, 0, 0, 24), width + 2 * glowWidth);
  stroke(QColor(0, 0, 0, 62), width + 1.2);
  stroke(light, width);
}

/// Quicker than std::hypot, which guards against numbers that do not occur here.
double length(double x, double y) {
  return std::sqrt(x * x + y * y);
}

double dot(Point a, Point b) {
  return a.x * b.x + a.y * b.y;
}

}  // namespace

std::optional<Lens> Lens::of(const Annotation& annotation) {
  const Rect rect = spannedRect(annotation);
  if (!isPlausible(rect)) return std::nullopt;
  Point center{rect.minX() + rect.size.width / 2, rect.minY() + rect.size.height / 2};
  if (annotation.control) {
    if (!isPlausible({*annotation.control, {1, 1}})) return std::nullopt;
    center = *annotation.control;
  }
  const double wanted = annotation.magnification;
  const double magnification = wanted >= 1 ? std::min(wanted, greatestMagnification) : 1;  // 1 also for no number
  return Lens(rect, center, magnification, annotation.magnifierShape);
}

Rect Lens::source() const {
  const Size size{rect_.size.width / magnification_, rect_.size.height / magnification_};
  return {{sourceCenter_.x - size.width / 2, sourceCenter_.y - size.height / 2}, size};
}

Rect Lens::bounds() const {
  const Rect lens = grown(rect_, shadowReach + shadowDrop);
  return isApart() ? lens.united(grown(source(), markWidth + glowWidth)) : lens;
}

QTransform Lens::magnifying() const {
  const Point middle = center();
  return {magnification_,
          0,
          0,
          magnification_,
          middle.x - sourceCenter_.x * magnification_,
          middle.y - sourceCenter_.y * magnification_};
}

double Lens::cornerRadius() const {
  return std::min({14.0, rect_.size.width / 4, rect_.size.height / 4});
}

bool Lens::isApart() const {
  const Point middle = center();
  return std::hypot(middle.x - sourceCenter_.x, middle.y - sourceCenter_.y) > 0.5;
}

QPainterPath Lens::shapeIn(const Rect& rect, double radius) const {
  QPainterPath path;
  if (shape_ == MagnifierShape::Circle) {
    path.addEllipse(toQRectF(rect));
  } else {
    path.addRoundedRect(toQRectF(rect), radius, radius);
  }
  return path;
}

QPainterPath Lens::shape() const {
  return shapeIn(rect_, cornerRadius());
}

double Lens::distance(double x, double y) const {
  const double halfWidth = rect_.size.width / 2;
  const double halfHeight = rect_.size.height / 2;
  if (shape_ == MagnifierShape::Circle) {
    // First-order distance to an ellipse; exact for a circle.
    const double place = length(x / halfWidth, y / halfHeight);
    const double slope = length(x / (halfWidth * halfWidth), y / (halfHeight * halfHeight));
    return slope > 0 ? place * (place - 1) / slope : -std::min(halfWidth, halfHeight);
  }
  const double radius = cornerRadius();
  const double right = std::abs(x) - halfWidth + radius;
  const double below = std::abs(y) - halfHeight + radius;
  return length(std::max(right, 0.0), std::max(below, 0.0)) + std::min(std::max(right, below), 0.0) - radius;
}

double Lens::support(Point direction) const {
  return dot(supportPlace(direction), direction);
}

Point Lens::supportPlace(Point direction) const {
  const double halfWidth = rect_.size.width / 2;
  const double halfHeight = rect_.size.height / 2;
  if (shape_ == MagnifierShape::Circle) {
    const double length = std::hypot(halfWidth * direction.x, halfHeight * direction.y);
    return {halfWidth * halfWidth * direction.x / length, halfHeight * halfHeight * direction.y / length};
  }
  const double radius = cornerRadius();
  return {std::copysign(halfWidth - radius, direction.x) + radius * direction.x,
          std::copysign(halfHeight - radius, direction.y) + radius * direction.y};
}

QPainterPath Lens::connectors() const {
  // The outer tangents of the lens and its source: lines whose normal sees both equally far. The source is the lens
  // made smaller, so its support is the lens's divided by the magnification.
  QPainterPath path;
  const Point middle = center();
  const Point between{middle.x - sourceCenter_.x, middle.y - sourceCenter_.y};
  const auto unit = [](double angle) { return Point{std::cos(angle), std::sin(angle)}; };
  const auto excess = [&](double angle) {
    return dot(between, unit(angle)) + support(unit(angle)) * (1 - 1 / magnification_);
  };
  constexpr int steps = 180;
  const auto angleOf = [](int step) { return 2 * M_PI * step / steps; };
  for (int step = 0; step < steps; ++step) {
    double low = angleOf(step);
    double high = angleOf(step + 1);
    if ((excess(low) < 0) == (excess(high) < 0)) continue;
    for (int i = 0; i < 30; ++i) {
      const double half = (low + high) / 2;
      ((excess(low) < 0) == (excess(half) < 0) ? low : high) = half;
    }
    const Point place = supportPlace(unit(low));
    path.moveTo(sourceCenter_.x + place.x / magnification_, sourceCenter_.y + place.y / magnification_);
    path.lineTo(middle.x + place.x, middle.y + place.y);
  }
  return path;
}

void Lens::drawShadow(const PixelTarget& target, const QRect& clip, const DeviceMap& map) const {
  const QRect area = touchedPixels(grown(rect_, shadowReach + shadowDrop), map) & clip & target.area;
  const Point middle = center();
  for (int y = area.top(); y <= area.bottom(); ++y) {
    std::uint32_t* row = target.row(y);
    const double down = (y + 0.5 - map.dy) / map.scaleY - middle.y;
    const double covered = innerHalfWidth(down);
    const int glassBegin = toPixel(std::ceil(map.x(middle.x - covered)));
    const int glassEnd = toPixel(std::floor(map.x(middle.x + covered)));
    for (int x = area.left(); x <= area.right(); ++x) {
      if (covered > 0 && x == glassBegin) x = std::max(x, glassEnd);
      const double across = (x + 0.5 - map.dx) / map.scaleX - middle.x;
      const double away = distance(across, down - shadowDrop);
      if (away >= shadowReach) continue;
      const double share = 1 - std::max(away, 0.0) / shadowReach;
      const auto alpha = static_cast<std::uint32_t>(shadowOpacity * 255 * share * share * share + 0.5);
      row[x] = blendPixel(alpha << 24, row[x]);
    }
  }
}

double Lens::innerHalfWidth(double down) const {
  const double halfWidth = rect_.size.width / 2;
  const double halfHeight = rect_.size.height / 2;
  if (shape_ == MagnifierShape::Circle) {
    const double share = down / halfHeight;
    return share * share < 1 ? halfWidth * std::sqrt(1 - share * share) - rimWidth : 0;
  }
  return std::abs(down) < halfHeight - cornerRadius() ? halfWidth - rimWidth : 0;
}

void Lens::drawBelow(const PixelTarget& target, QPainter& painter, const QRect& clip, const DeviceMap& map) const {
  drawShadow(target, clip, map);
  if (!isApart()) return;
  strokeOutlined(painter, connectors(), markWidth);
  strokeOutlined(painter, shapeIn(source(), cornerRadius() / magnification_), markWidth);
}

void Lens::drawRim(QPainter& painter) const {
  strokeOutlined(painter, shape(), rimWidth);
}

}  // namespace vellora
