#pragma once

#include <QString>

#include "capture/OverlayScene.h"
#include "platform/ScreenCaptureService.h"

namespace vellora {

/// The hint line for a dotted key; empty for an unknown one.
QString overlayHint(const QString& key);

/// The badge of a scene: the size in pixels, with the size in points on a scaled display, after the title if there is
/// one. Empty when the scene has none.
QString overlayBadge(const OverlayScene& scene, const DisplayInfo& display);

}  // namespace vellora
