#include "editor/ui/canvas/CanvasOverlay.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <QPainter>

#include "kit/Theme.h"

namespace vellora {
namespace {

using Role = Handle::Role;

// All in points of the view.
constexpr double dotDiameter = 10;
constexpr double dotRing = 1.75;
constexpr double dotReach = 9;     // from its middle to the end of its shadow
constexpr double gripLength = 20;  // of a crop's corner along each side
constexpr double gripWidth = 3;
constexpr double lineReach = 3;  // from the middle of a line to the last pixel it colours
constexpr double cursorWidth = 1.5;
constexpr float cropDim = 0.55F;

int rounded(double value) {
  constexpr double farthest = 1 << 28;
  return static_cast<int>(std::lround(std::clamp(value, -farthest, farthest)));
}

QColor accent() {
  return Theme::shared().palette().accent;
}

QColor withAlpha(QColor color, float alpha) {
  color.setAlphaF(alpha);
  return color;
}

/// The pixels around a line; of a slanted one in short pieces, so that the middle of a long one is left alone.
void addLine(QRegion& region, const QLineF& line, double reach) {
  constexpr double longest = 128;
  const bool slanted = std::abs(line.dx()) > 2 && std::abs(line.dy()) > 2;
  const int pieces = slanted ? std::clamp(rounded(line.length() / longest), 1, 64) : 1;
  for (int i = 0; i < pieces; ++i) {
    const QRectF piece = QRectF(line.pointAt(double(i) / pieces), line.pointAt(double(i + 1) / pieces)).normalized();
    region += piece.adjusted(-reach, -reach, reach, reach).toAlignedRect();
  }
}

void addPolygon(QRegion& region, const QPolygonF& polygon, double reach) {
  for (qsizetype i = 0; i < polygon.size(); ++i) {
    addLine(region, {polygon[i], polygon[(i + 1) % polygon.size()]}, reach);
  }
}

void addPolyline(QRegion& region, const QPolygonF& line, double reach) {
  for (qsizetype i = 1; i < line.size(); ++i) addLine(region, {line[i - 1], line[i]}, reach);
}

QRegion dimmed(const OverlayContent& content) {
  return content.crop ? QRegion(content.crop->sheet).subtracted(content.crop->frame) : QRegion();
}

/// Moves an upright rectangle's corners into the middle of pixels, so that a line of odd width along it is sharp.
QPolygonF sharpened(QPolygonF polygon, int lineWidth) {
  const double middle = lineWidth % 2 == 1 ? 0.5 : 0;
  for (QPointF& corner : polygon) corner = {std::floor(corner.x()) + middle, std::floor(corner.y()) + middle};
  return polygon;
}

bool isUpright(const QPolygonF& polygon) {
  for (qsizetype i = 0; i < polygon.size(); ++i) {
    const QPointF side = polygon[(i + 1) % polygon.size()] - polygon[i];
    if (std::min(std::abs(side.x()), std::abs(side.y())) > 0.01) return false;
  }
  return true;
}

/// A line that is seen on every ground: the colour between two pale rims.
void paintOutline(QPainter& painter, const QPolygonF& polygon, double width, const QColor& color, double ratio) {
  const int line = std::max(1, rounded(width * ratio));
  const int rim = std::max(1, rounded(0.75 * ratio));
  const bool upright = isUpright(polygon);
  const QPolygonF sharp = upright ? sharpened(polygon, line) : polygon;
  painter.setRenderHint(QPainter::Antialiasing, !upright);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(255, 255, 255, 130), line + 2 * rim, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.drawPolygon(sharp);
  painter.setPen(QPen(color, line, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.drawPolygon(sharp);
  painter.setRenderHint(QPainter::Antialiasing);
}

/// The same along an arrow or line.
void paintShaft(QPainter& painter, const QPolygonF& shaft, double width, double ratio) {
  painter.setBrush(Qt::NoBrush);
  for (const auto& [across, ink] : {std::pair{width + 1.5, QColor(255, 255, 255, 130)}, std::pair{width, accent()}}) {
    painter.setPen(QPen(ink, across * ratio, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    painter.drawPolyline(shaft);
  }
}

void paintDot(QPainter& painter, const OverlayContent::Mark& mark, double ratio) {
  const int diameter = rounded(dotDiameter * ratio);
  const QRectF box(rounded(mark.position.x() - diameter / 2.0), rounded(mark.position.y() - diameter / 2.0), diameter,
                   diameter);
  painter.setPen(Qt::NoPen);
  constexpr std::array shadow{std::pair{2.5, 16}, std::pair{1.5, 28}, std::pair{0.75, 50}};
  for (const auto& [reach, alpha] : shadow) {
    const double r = reach * ratio;
    painter.setBrush(QColor(0, 0, 0, alpha));
    painter.drawEllipse(box.adjusted(-r, -r, r, r).translated(0, ratio));
  }
  const bool bends = mark.role == Role::Bend || mark.role == Role::Tail || mark.role == Role::Source;
  const double ring = std::max(1.0, dotRing * ratio);
  painter.setBrush(bends ? QColor(Qt::white) : accent());
  painter.drawEllipse(box);
  painter.setBrush(bends ? accent() : QColor(Qt::white));
  painter.drawEllipse(box.adjusted(ring, ring, -ring, -ring));
}

/// The two bars of a corner, the one of an edge.
void paintCropGrip(QPainter& painter, const OverlayContent::Mark& mark, const QRect& frame, double ratio) {
  const int width = rounded(gripWidth * ratio);
  const int length =
      std::min({rounded(gripLength * ratio), std::max(frame.width() / 3, width), std::max(frame.height() / 3, width)});
  const int left = frame.left() - width;
  const int top = frame.top() - width;
  const int right = frame.right() + 1;
  const int bottom = frame.bottom() + 1;
  const int middleX = frame.center().x() - length / 2;
  const int middleY = frame.center().y() - length / 2;
  const auto horizontal = [&](int x, int y) { return QRect(x, y, length + width, width); };
  const auto vertical = [&](int x, int y) { return QRect(x, y, width, length + width); };
  std::vector<QRect> bars;
  switch (mark.role) {
    case Role::TopLeft:
      bars = {horizontal(left, top), vertical(left, top)};
      break;
    case Role::Top:
      bars = {horizontal(middleX, top)};
      break;
    case Role::TopRight:
      bars = {horizontal(right - length, top), vertical(right, top)};
      break;
    case Role::Right:
      bars = {vertical(right, middleY)};
      break;
    case Role::BottomRight:
      bars = {horizontal(right - length, bottom), vertical(right, bottom - length)};
      break;
    case Role::Bottom:
      bars = {horizontal(middleX, bottom)};
      break;
    case Role::BottomLeft:
      bars = {horizontal(left, bottom), vertical(left, bottom - length)};
      break;
    case Role::Left:
      bars = {vertical(left, middleY)};
      break;
    default:
      return;
  }
  const int rim = std::max(1, rounded(0.5 * ratio));
  for (const QRect& bar : bars) painter.fillRect(bar.adjusted(-rim, -rim, rim, rim), QColor(0, 0, 0, 90));
  for (const QRect& bar : bars) painter.fillRect(bar, Qt::white);
}

void paintCrop(QPainter& painter, const OverlayContent& content, double ratio) {
  const OverlayContent::Crop& crop = *content.crop;
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (const QRect& rect : dimmed(content)) painter.fillRect(rect, withAlpha(Qt::black, cropDim));
  const int line = std::max(1, rounded(ratio));
  const auto strip = [&](int x, int y, int width, int height) {
    painter.fillRect(x, y, width, height, QColor(255, 255, 255, 110));
  };
  if (crop.showsThirds) {
    for (int i = 1; i <= 2; ++i) {
      strip(crop.frame.left() + crop.frame.width() * i / 3, crop.frame.top(), line, crop.frame.height());
      strip(crop.frame.left(), crop.frame.top() + crop.frame.height() * i / 3, crop.frame.width(), line);
    }
  }
  painter.setBrush(Qt::NoBrush);
  const QRect outer = crop.frame.adjusted(-line, -line, line, line);
  for (const QRect& rect : QRegion(outer).subtracted(crop.frame)) painter.fillRect(rect, Qt::white);
  for (const OverlayContent::Mark& mark : content.marks) paintCropGrip(painter, mark, crop.frame, ratio);
  painter.setRenderHint(QPainter::Antialiasing);
}

void paintLens(QPainter& painter, const OverlayContent& content, double ratio) {
  painter.setBrush(Qt::NoBrush);
  for (const double width : {3.0, 1.5}) {
    painter.setPen(QPen(width > 2 ? QColor(255, 255, 255, 150) : accent(), width * ratio));
    for (const QPainterPath& path : content.lensSources) painter.drawPath(path);
  }
}

void paintText(QPainter& painter, const OverlayContent& content, double ratio) {
  if (content.textFrame) paintOutline(painter, *content.textFrame, 1, withAlpha(accent(), 0.6F), ratio);
  painter.setPen(Qt::NoPen);
  painter.setBrush(withAlpha(accent(), 0.35F));
  for (const QPolygonF& polygon : content.textSelection) painter.drawPolygon(polygon);
  painter.setPen(QPen(accent(), std::max(1.0, ratio)));
  for (const QLineF& line : content.composing) painter.drawLine(line);
  if (!content.cursor) return;
  QLineF cursor = *content.cursor;
  const int width = std::max(1, rounded(cursorWidth * ratio));
  if (std::abs(cursor.dx()) < 0.01) {
    const double x = std::floor(cursor.x1()) + (width % 2 == 1 ? 0.5 : 0);
    cursor = {x, cursor.y1(), x, cursor.y2()};
  }
  painter.setPen(QPen(QColor(255, 255, 255, 160), width + 2, Qt::SolidLine, Qt::FlatCap));
  painter.drawLine(cursor);
  painter.setPen(QPen(accent(), width, Qt::SolidLine, Qt::FlatCap));
  painter.drawLine(cursor);
}

}  // namespace

QRegion overlayRegion(const OverlayContent& content, double ratio) {
  QRegion region = dimmed(content);
  const double line = lineReach * ratio;
  for (const QPolygonF& outline : content.outlines) addPolygon(region, outline, line);
  if (content.hovered) addPolygon(region, *content.hovered, line);
  addPolyline(region, content.hoveredShaft, line);
  for (const QPolygonF& shaft : content.shafts) addPolyline(region, shaft, line);
  if (content.marquee) region += content.marquee->boundingRect().adjusted(-line, -line, line, line).toAlignedRect();
  for (const QLineF& guide : content.guides) addLine(region, guide, line);
  for (const QPainterPath& path : content.lensSources) {
    region += path.boundingRect().adjusted(-line, -line, line, line).toAlignedRect();
  }
  const double dot = (content.crop ? gripLength + gripWidth + 2 : dotReach) * ratio;
  for (const OverlayContent::Mark& mark : content.marks) {
    region += QRectF(mark.position, mark.position).adjusted(-dot, -dot, dot, dot).toAlignedRect();
  }
  if (content.crop) {
    addPolygon(region, QPolygonF(QRectF(content.crop->frame)), line + 1);
    if (content.crop->showsThirds) region += content.crop->frame;
  }
  if (content.textFrame) addPolygon(region, *content.textFrame, line);
  for (const QPolygonF& polygon : content.textSelection) {
    region += polygon.boundingRect().adjusted(-1, -1, 1, 1).toAlignedRect();
  }
  for (const QLineF& composing : content.composing) addLine(region, composing, line);
  if (content.cursor) addLine(region, *content.cursor, line);
  return region;
}

QRegion overlayDifference(const OverlayContent& before, const OverlayContent& after, double ratio) {
  if (before == after) return {};
  OverlayContent plainBefore = before;
  OverlayContent plainAfter = after;
  // What is dimmed in both stays as it is: a crop's drag repaints what it passes over, not everything outside.
  const QRegion dimmedInBoth = before.crop && after.crop ? dimmed(before) & dimmed(after) : QRegion();
  if (!dimmedInBoth.isEmpty()) {
    const QRegion difference = dimmed(before) ^ dimmed(after);
    plainBefore.crop->sheet = plainBefore.crop->frame;
    plainAfter.crop->sheet = plainAfter.crop->frame;
    return difference | overlayRegion(plainBefore, ratio) | overlayRegion(plainAfter, ratio);
  }
  return overlayRegion(before, ratio) | overlayRegion(after, ratio);
}

void paintOverlay(QPainter& painter, const OverlayContent& content, double ratio) {
  painter.setRenderHint(QPainter::Antialiasing);
  if (content.hovered) paintOutline(painter, *content.hovered, 1.5, withAlpha(accent(), 0.7F), ratio);
  if (!content.hoveredShaft.isEmpty()) paintShaft(painter, content.hoveredShaft, 1.5, ratio);
  for (const QPolygonF& shaft : content.shafts) paintShaft(painter, shaft, 1, ratio);
  for (const QPolygonF& outline : content.outlines) paintOutline(painter, outline, 1, accent(), ratio);
  for (const QLineF& guide : content.guides) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(Theme::shared().palette().record, std::max(1, rounded(ratio))));
    painter.drawLine(guide);
    painter.setRenderHint(QPainter::Antialiasing);
  }
  paintLens(painter, content, ratio);
  if (content.crop) {
    paintCrop(painter, content, ratio);
  } else {
    for (const OverlayContent::Mark& mark : content.marks) paintDot(painter, mark, ratio);
  }
  paintText(painter, content, ratio);
  if (content.marquee) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(withAlpha(accent(), 0.12F));
    painter.drawPolygon(*content.marquee);
    paintOutline(painter, *content.marquee, 1, accent(), ratio);
  }
}

}  // namespace vellora
