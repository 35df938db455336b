#include "editor/rendering/Lens.h"

namespace vellora {
namespace {

constexpr double greatestMagnification = 32;

constexpr double shadowFalloff = 18;
constexpr double shadowReach = 15;  ///< beyond it the shadow is below one level of 255
constexpr double shadowDrop = 4;
constexpr double shadowOpacity = 0.34;

constexpr double rimWidth = 3;
constexpr double markWidth = 1.5;
/// How far the dark glow beside each light line reaches, which makes it show on any ground.
constexpr double glowWidth = 2;
constexpr double glowOpacity = 0.32;

/// Quicker than std::hypot, which guards against numbers that do not occur here.
double length(double x, double y) {
  return std::sqrt(x * x + y * y);
}

double dot(Point a, Point b) {
  return a.x * b.x + a.y * b.y;
}

/// One pixel of a line whose middle is `away` from the pixel's centre.
void coatPixel(std::uint32_t& pixel, double away, double width, LensCoat coat, double pixelsPerPoint) {
  const double outside = away - width / 2;
  if (coat == LensCoat::Light) {
    const double covered = std::clamp(0.5 - outside * pixelsPerPoint, 0.0, 1.0);
    pixel = mixPixels(pixel, 0xFFFFFFFFU, static_cast<std::uint32_t>(covered * 256 + 0.5));
  } else if (outside < glowWidth) {
    const double share = 1 - std::max(outside, 0.0) / glowWidth;
    pixel = blendPixel(static_cast<std::uint32_t>(glowOpacity * 255 * share * share + 0.5) << 24, pixel);
  }
}

double meanScale(const DeviceMap& map) {
  return (map.scaleX + map.scaleY) / 2;
}

/// How far from its middle a line of `width` colours anything.
double reachOf(double width, const DeviceMap& map) {
  return width / 2 + std::max(glowWidth, 1 / meanScale(map));
}

void drawSegment(const PixelTarget& target, const QRect& clip, const DeviceMap& map, Point from, Point to,
                 LensCoat coat) {
  const Point along{to.x - from.x, to.y - from.y};
  const double extent = length(along.x, along.y);
  if (!(extent > 0)) return;
  const double reach = reachOf(markWidth, map);
  const double scale = meanScale(map);
  const Rect box{{std::min(from.x, to.x), std::min(from.y, to.y)}, {std::abs(along.x), std::abs(along.y)}};
  const QRect area = touchedPixels(grown(box, reach), map) & clip & target.area;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    const double down = (y + 0.5 - map.dy) / map.scaleY - from.y;
    int begin = area.left();
    int end = area.right();
    if (std::abs(along.y) > 1e-6) {
      const double middle = from.x + down * along.x / along.y;
      const double aside = reach * extent / std::abs(along.y);
      begin = std::max(begin, toPixel(std::floor(map.x(middle - aside))));
      end = std::min(end, toPixel(std::ceil(map.x(middle + aside))));
    }
    std::uint32_t* row = target.row(y);
    for (int x = begin; x <= end; ++x) {
      const double across = (x + 0.5 - map.dx) / map.scaleX - from.x;
      const double share = std::clamp((across * along.x + down * along.y) / (extent * extent), 0.0, 1.0);
      coatPixel(row[x], length(across - share * along.x, down - share * along.y), markWidth, coat, scale);
    }
  }
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

Rect Lens::body() const {
  return grown(rect_, shadowReach + shadowDrop);
}

Rect Lens::bounds() const {
  return isApart() ? body().united(grown(source(), markWidth / 2 + glowWidth + 1)) : body();
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

bool Lens::isApart() const {
  const Point middle = center();
  return std::hypot(middle.x - sourceCenter_.x, middle.y - sourceCenter_.y) > 0.5;
}

double Lens::distance(double x, double y) const {
  const double halfWidth = rect_.size.width / 2;
  const double halfHeight = rect_.size.height / 2;
  if (shape_ == MagnifierShape::Circle) {
    // First-order distance to an ellipse; exact for a circle.
    const double right = x * partX_;
    const double below = y * partY_;
    const double place = length(right, below);
    const double slope = length(right * partX_, below * partY_);
    return slope > 0 ? place * (place - 1) / slope : -std::min(halfWidth, halfHeight);
  }
  const double radius = cornerRadius_;
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
  const double radius = cornerRadius_;
  return {std::copysign(halfWidth - radius, direction.x) + radius * direction.x,
          std::copysign(halfHeight - radius, direction.y) + radius * direction.y};
}

std::vector<Lens::Segment> Lens::connectors() const {
  // The outer tangents of the lens and its source: lines whose normal sees both equally far. The source is the lens
  // made smaller, so its support is the lens's divided by the magnification.
  std::vector<Segment> segments;
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
    segments.push_back({{sourceCenter_.x + place.x / magnification_, sourceCenter_.y + place.y / magnification_},
                        {middle.x + place.x, middle.y + place.y}});
  }
  return segments;
}

double Lens::innerHalfWidth(double down, double depth) const {
  const double halfWidth = rect_.size.width / 2 - depth;
  const double halfHeight = rect_.size.height / 2 - depth;
  if (!(halfWidth > 0 && std::abs(down) < halfHeight)) return 0;
  // A smaller ellipse lies at least as deep as its half axes are smaller.
  const double share = down / halfHeight;
  if (shape_ == MagnifierShape::Circle) return halfWidth * std::sqrt(1 - share * share);
  return std::abs(down) < halfHeight + depth - cornerRadius_ ? halfWidth : 0;
}

double Lens::outerHalfWidth(double down, double reach) const {
  const double halfWidth = rect_.size.width / 2;
  const double halfHeight = rect_.size.height / 2;
  if (shape_ != MagnifierShape::Circle) return std::abs(down) <= halfHeight + reach ? halfWidth + reach : -1;
  // distance() is at least the shorter half axis times what a place lies beyond the ellipse in parts of it.
  const double larger = 1 + reach / std::min(halfWidth, halfHeight);
  const double share = down / (halfHeight * larger);
  return share * share < 1 ? halfWidth * larger * std::sqrt(1 - share * share) : -1;
}

template <typename Action>
void Lens::forPixelsIn(const Band& band, const QRect& area, const DeviceMap& map, Action&& action) const {
  const auto& [center, scale] = band.outline;
  const double step = scale / map.scaleX;
  const double first = (0.5 - map.dx) * step - center.x * scale;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    const double down = ((y + 0.5 - map.dy) / map.scaleY - center.y) * scale;
    const double outer = outerHalfWidth(down - band.drop * scale, band.reach * scale) / scale;
    if (outer < 0) continue;
    const double inner = innerHalfWidth(down, band.depth * scale) / scale;
    const int begin = std::max(area.left(), toPixel(std::floor(map.x(center.x - outer))) - 1);
    const int end = std::min(area.right() + 1, toPixel(std::ceil(map.x(center.x + outer))) + 1);
    const int skipBegin = toPixel(std::ceil(map.x(center.x - inner)));
    const int skipEnd = inner > 0 ? toPixel(std::floor(map.x(center.x + inner))) : skipBegin;
    for (int x = begin; x < end; ++x) {
      if (x >= skipBegin && x < skipEnd) x = skipEnd;
      if (x >= end) break;
      action(x, y, x * step + first, down);
    }
  }
}

void Lens::drawShadow(const PixelTarget& target, const QRect& clip, const DeviceMap& map) const {
  const QRect area = touchedPixels(body(), map) & clip & target.area;
  forPixelsIn({{center(), 1}, rimWidth, shadowReach, shadowDrop}, area, map,
              [&](int x, int y, double across, double down) {
                const double away = distance(across, down - shadowDrop);
                if (away >= shadowReach) return;
                const double share = 1 - std::max(away, 0.0) / shadowFalloff;
                const auto alpha = static_cast<std::uint32_t>(shadowOpacity * 255 * share * share * share + 0.5);
                std::uint32_t& pixel = target.row(y)[x];
                pixel = blendPixel(alpha << 24, pixel);
              });
}

void Lens::drawOutline(const PixelTarget& target, const QRect& clip, const DeviceMap& map, const Outline& outline,
                       double width, LensCoat coat) const {
  const Size size{rect_.size.width / outline.scale, rect_.size.height / outline.scale};
  const Rect box{{outline.center.x - size.width / 2, outline.center.y - size.height / 2}, size};
  const double reach = reachOf(width, map);
  const double scale = meanScale(map);
  const QRect area = touchedPixels(grown(box, reach), map) & clip & target.area;
  forPixelsIn({outline, reach, reach}, area, map, [&](int x, int y, double across, double down) {
    const double away = std::abs(distance(across, down)) / outline.scale;
    coatPixel(target.row(y)[x], away, width, coat, scale);
  });
}

void Lens::drawMark(const PixelTarget& target, const QRect& clip, const DeviceMap& map) const {
  if (!isApart()) return;
  for (const LensCoat coat : {LensCoat::Glow, LensCoat::Light}) {
    for (const Segment& line : connectors_) drawSegment(target, clip, map, line.from, line.to, coat);
    drawOutline(target, clip, map, {sourceCenter_, magnification_}, markWidth, coat);
  }
}

void Lens::drawGlass(const PixelTarget& target, const QRect& clip, const DeviceMap& map, const QImage& shown,
                     QPoint corner) const {
  const QRect area = touchedPixels(rect_, map) & clip & target.area & QRect(corner, shown.size());
  const Point middle = center();
  const double scale = meanScale(map);
  const auto pictureRow = [&](int y) {
    return reinterpret_cast<const std::uint32_t*>(shown.constScanLine(y - corner.y())) - corner.x();
  };
  for (int y = area.top(); y <= area.bottom(); ++y) {
    const double whole = innerHalfWidth((y + 0.5 - map.dy) / map.scaleY - middle.y, 1 / scale);
    const int begin = std::max(toPixel(std::ceil(map.x(middle.x - whole))), area.left());
    const int end = std::min(toPixel(std::floor(map.x(middle.x + whole))), area.right() + 1);
    if (whole > 0 && begin < end) std::copy(pictureRow(y) + begin, pictureRow(y) + end, target.row(y) + begin);
  }
  forPixelsIn({{middle, 1}, 1 / scale, 1 / scale}, area, map, [&](int x, int y, double across, double down) {
    const double covered = std::clamp(0.5 - distance(across, down) * scale, 0.0, 1.0);
    std::uint32_t& pixel = target.row(y)[x];
    pixel = mixPixels(pixel, pictureRow(y)[x], static_cast<std::uint32_t>(covered * 256 + 0.5));
  });
}

void Lens::drawRim(const PixelTarget& target, const QRect& clip, const DeviceMap& map) const {
  for (const LensCoat coat : {LensCoat::Glow, LensCoat::Light}) {
    drawOutline(target, clip, map, {center(), 1}, rimWidth, coat);
  }
}

}  // namespace vellora
