#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <QRectF>
#include <QRegion>

#include "editor/BackdropSettings.h"
#include "editor/backdrop/GroundSource.h"

class QPainter;

namespace vellora {

class ContentShadow;
class Grain;

/// Paints what lies behind a content: background, glow, grain and shadow, put together pixel by pixel in fine steps and
/// dithered once at the end, so that nothing soft shows bands. Pixels depend on their place in the document only; any
/// part painted alone is the same as in the whole. One thread at a time.
class GroundPainter {
 public:
  GroundPainter();
  ~GroundPainter();

  /// Paints the ground of `document` (in the painter's coordinates) where the painter's clip shows it. `settings` are
  /// inside their limits; `shadow` may be null. `hidden`, likewise in the painter's coordinates, is covered later and
  /// left out.
  void paint(QPainter& painter, const QRectF& document, const BackdropSettings& settings, const ContentShadow* shadow,
             const std::vector<QRectF>& hidden = {});

 private:
  struct Job;
  void paintPart(QPainter& painter, const QRect& part, Job& job);
  void composeRow(int x, int y, int count, Job& job);

  GroundSources sources_;
  std::unique_ptr<Grain> grain_;
};

}  // namespace vellora
