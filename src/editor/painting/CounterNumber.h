#pragma once

#include "base/Color.h"
#include "base/Geometry.h"

class QColor;
class QPainter;

namespace vellora {

/// A counter's number in the middle of its badge, smaller from three digits on so that it stays inside.
void drawCounterNumber(QPainter& painter, int number, Point center, double radius, const QColor& color);

/// White; black on badges so bright that white would not be seen.
ColorComponents numberColor(const ColorComponents& badge);

}  // namespace vellora
