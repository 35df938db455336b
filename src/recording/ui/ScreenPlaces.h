#pragma once

#include <QRectF>

#include "base/Geometry.h"
#include "platform/ScreenCaptureService.h"

class QScreen;

namespace vellora {

/// The toolkit's screen for a display; the primary one when it has none, null when there is no screen at all.
QScreen* screenOf(const DisplayInfo& display);

/// The toolkit's screen at a place of the desktop, else the primary one; null when there is no screen at all.
QScreen* screenAt(PixelPoint place);

/// A screen's frame on the desktop in device pixels.
PixelRect pixelFrame(const QScreen& screen);

/// A rectangle of device pixels in the toolkit's points, by the scale of `screen`.
QRectF toPoints(const PixelRect& rect, const QScreen& screen);

/// The smallest rectangle of whole points whose window covers `pixels` on `screen`, and where that window then lies.
struct CoveringPlace {
  QRect points;
  PixelRect window;  ///< in device pixels
};
CoveringPlace covering(const PixelRect& pixels, const QScreen& screen);

}  // namespace vellora
