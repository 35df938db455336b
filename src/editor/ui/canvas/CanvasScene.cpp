#include "editor/ui/canvas/CanvasScene.h"

#include <algorithm>
#include <cmath>

#include <QPainter>

#include "kit/Theme.h"

namespace vellora {
namespace {

constexpr double patternSquare = 8;  // points of the view
constexpr int shadowSteps = 10;      // points of the view the shadow reaches
constexpr double shadowDrop = 2;     // points it lies lower than the document
constexpr int farthest = 1 << 28;    // keeps rectangles in the range of int

int rounded(double value) {
  return static_cast<int>(std::lround(std::clamp(value, double(-farthest), double(farthest))));
}

/// A rectangle in document points on the pixels of the plane.
QRect onPlane(const Rect& rect, double scale) {
  const int left = rounded(rect.minX() * scale);
  const int top = rounded(rect.minY() * scale);
  return {left, top, rounded(rect.maxX() * scale) - left, rounded(rect.maxY() * scale) - top};
}

/// Everything, as far as views go.
QRect wholePlane() {
  return {-farthest, -farthest, 2 * farthest, 2 * farthest};
}

}  // namespace

QColor CanvasScene::ground() {
  return Theme::shared().palette().sunken;
}

QRegion CanvasScene::setDocument(const ImageDocument& document, double scale) {
  const std::vector<Rect> changed = renderer_.changedRects(document_, document);
  const BackdropLayout layout = backdropLayout(document);
  const bool moved = !(layout.document == layout_.document);
  document_ = document;
  layout_ = layout;
  if (moved) return wholePlane();
  return repaintRegion(changed, QTransform::fromScale(scale, scale));
}

void CanvasScene::paint(QImage& target, const QRect& clip, QPoint planeToTarget, double scale, double ratio) {
  paintPlain(target, clip, planeToTarget, scale, ratio);
  if (!showsPixelGrid(scale, ratio)) return;
  const QRect part = clip & onPlane(layout_.document, scale).translated(planeToTarget);
  if (part.isEmpty()) return;
  QPainter painter(&target);
  painter.setClipRect(part);
  paintPixelGrid(painter, part, planeToTarget, scale);
}

void CanvasScene::paintPlain(QImage& target, const QRect& clip, QPoint planeToTarget, double scale, double ratio) {
  const QRect sheet = onPlane(layout_.document, scale).translated(planeToTarget);
  {
    QPainter painter(&target);
    painter.setClipRect(clip);
    paintGround(painter, clip, planeToTarget, scale, ratio);
  }
  const QRect part = clip & sheet.adjusted(-1, -1, 1, 1);
  if (part.isEmpty()) return;
  renderer_.paint(target, part, document_, QTransform(scale, 0, 0, scale, planeToTarget.x(), planeToTarget.y()));
}

void CanvasScene::paintGround(QPainter& painter, const QRect& clip, QPoint planeToTarget, double scale,
                              double ratio) const {
  const QRect sheet = onPlane(layout_.document, scale).translated(planeToTarget);
  if (!sheet.contains(clip)) {
    painter.fillRect(clip, ground());
    if (sheet.isEmpty()) return;
    // Rings laid over each other: densest at the edge, gone after a few points.
    painter.save();
    painter.setClipRegion(QRegion(clip).subtracted(sheet));
    painter.setPen(Qt::NoPen);
    const bool dark = Theme::shared().appearance() == Appearance::Dark;
    const double step = std::max(1.0, ratio);
    for (int i = shadowSteps; i >= 1; --i) {
      const int reach = rounded(i * step);
      const QRect ring = sheet.adjusted(-reach, -reach, reach, reach).translated(0, rounded(shadowDrop * ratio));
      if (!ring.intersects(clip)) continue;
      const double strength = (dark ? 0.05 : 0.012) * (1 - double(i - 1) / shadowSteps);
      painter.setBrush(QColor::fromRgbF(0, 0, 0, static_cast<float>(strength)));
      painter.drawRoundedRect(ring, reach, reach);
    }
    const int line = std::max(1, rounded(ratio * 0.75));
    painter.fillRect(sheet.adjusted(-line, -line, line, line), dark ? QColor(255, 255, 255, 28) : QColor(0, 0, 0, 26));
    painter.restore();
  }
  QRegion open(sheet & clip);
  for (const CapturePiece& piece : document_.pieces) {
    if (piece.image.alpha() != PixelAlpha::Opaque || document_.backdrop.enabled) continue;
    open -= onPlane(piece.frame(), scale).translated(planeToTarget).adjusted(1, 1, -1, -1);
  }
  paintPattern(painter, open, planeToTarget, ratio);
}

/// Squares in two shades so close that they say "see-through" without drawing the eye.
void CanvasScene::paintPattern(QPainter& painter, const QRegion& region, QPoint planeToTarget, double ratio) const {
  if (region.isEmpty()) return;
  const bool dark = Theme::shared().appearance() == Appearance::Dark;
  const int square = std::max(2, rounded(patternSquare * ratio));
  QImage tile(2 * square, 2 * square, QImage::Format_RGB32);
  tile.fill(dark ? QColor(0x26, 0x28, 0x2C) : QColor(0xFF, 0xFF, 0xFF));
  QPainter tilePainter(&tile);
  const QColor second = dark ? QColor(0x2F, 0x31, 0x36) : QColor(0xEE, 0xEF, 0xF2);
  tilePainter.fillRect(0, 0, square, square, second);
  tilePainter.fillRect(square, square, square, square, second);
  tilePainter.end();
  QBrush brush(tile);
  brush.setTransform(QTransform::fromTranslate(planeToTarget.x(), planeToTarget.y()));
  for (const QRect& rect : region) painter.fillRect(rect, brush);
}

void CanvasScene::paintPixelGrid(QPainter& painter, const QRect& clip, QPoint planeToTarget, double scale) const {
  for (const CapturePiece& piece : document_.pieces) {
    const double cell = scale / piece.scale;
    if (!(cell >= 3)) continue;  // nothing but lines
    const QRect part = onPlane(piece.frame(), scale) & clip.translated(-planeToTarget);
    if (part.isEmpty()) continue;
    // The borders of the source's pixels, which a crop may have cut through; rounded on the plane, so that they stay
    // where they are while it moves.
    const QColor line(128, 128, 128, 72);
    const auto forEachBorder = [&](double origin, double skipped, int from, int to, const auto& draw) {
      const double start = origin * scale - std::fmod(skipped * piece.scale, 1.0) * cell;
      for (auto i = std::max(1.0, std::floor((from - start) / cell)); start + i * cell <= to + 1; ++i) {
        draw(rounded(start + i * cell));
      }
    };
    painter.save();
    painter.translate(planeToTarget);
    painter.setClipRect(part, Qt::IntersectClip);
    forEachBorder(piece.origin.x, piece.visibleRect.minX(), part.left(), part.right(),
                  [&](int x) { painter.fillRect(x, part.top(), 1, part.height(), line); });
    forEachBorder(piece.origin.y, piece.visibleRect.minY(), part.top(), part.bottom(),
                  [&](int y) { painter.fillRect(part.left(), y, part.width(), 1, line); });
    painter.restore();
  }
}

}  // namespace vellora
