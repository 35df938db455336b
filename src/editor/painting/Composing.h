#pragma once

#include <functional>

class QPainter;
class QRectF;

namespace vellora {

/// Draws several parts into a picture of their own and blends it onto `painter` at once. `bounds`, in the painter's
/// coordinates, holds them all.
void drawComposed(QPainter& painter, const QRectF& bounds, double opacity, const std::function<void(QPainter&)>& draw);

}  // namespace vellora
