#pragma once

#include <QFont>
#include <QImage>
#include <QRegion>

#include "base/Bitmap.h"
#include "capture/OverlayLayout.h"

class QPainter;

namespace vellora {

/// Draws one display's overlay in device pixels: the still picture, dimmed outside the clear part, and what lies over
/// it.
class OverlayPainter {
 public:
  explicit OverlayPainter(const DisplayInfo& display) : display_(display) {}

  /// The picture of the display that is dimmed; without one the ground is plain grey.
  void setStill(Bitmap still) { still_ = std::move(still); }
  bool hasStill() const { return !still_.isNull(); }

  /// The scene's texts with their sizes; `withHint`: the hint line is on screen.
  OverlayTexts texts(const OverlayScene& scene, bool withHint) const;

  /// Paints `region` of the display (relative to its corner) anew into `surface`, which holds the display from its
  /// corner on.
  void paint(QImage& surface, const QRegion& region, const OverlayParts& parts, double hintOpacity) const;

  /// How bright the part around the selection stays.
  static constexpr double dimmedTo = 0.4;

 private:
  void paintGround(QPainter& painter, const QRegion& region, const PixelRect& clear) const;
  void paintPill(QPainter& painter, const PixelRect& place, const QString& text, const QFont& font) const;
  void paintHandles(QPainter& painter, const OverlayParts& parts) const;
  void paintMarker(QPainter& painter, const OverlayParts& parts) const;
  void paintLoupe(QPainter& painter, const OverlayParts& parts) const;
  QRect local(const PixelRect& rect) const;
  QFont figures() const;
  QFont words() const;
  double pixels(double points) const { return points * display_.scale; }

  const DisplayInfo display_;
  Bitmap still_;
};

/// A QImage over the bitmap's pixels, sharing them.
QImage sharedImage(const Bitmap& bitmap);

}  // namespace vellora
