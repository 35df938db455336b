#pragma once

#include <functional>

#include <QImage>
#include <QTransform>

namespace vellora {

/// Draws something flat turned in space. `toFlat` maps the pixels of `target` to those of a flat picture, which `draw`
/// makes part by part: it draws the part whose corner lies at the given flat pixel into a transparent image. Only flat
/// pixels inside `flatBounds` are asked for. Edges are smoothed. Every pixel depends on the maps only, not on `clip`.
void drawWarped(QImage& target, const QRect& clip, const QTransform& toFlat, const QRect& flatBounds,
                const std::function<void(QImage& part, QPoint corner)>& draw);

}  // namespace vellora
