#pragma once

#include <vector>

#include "editor/Annotation.h"
#include "editor/TextMeasurer.h"

namespace vellora {

/// The arrow's shaft (or the line) as a chain of short straight pieces from `p1` to `p2`.
std::vector<Point> shaftOf(const Annotation& annotation);
/// The middle of an arrow's curve, where its bend is taken hold of.
Point bendOf(const Annotation& arrow);
/// The control point of the curve from `p1` to `p2` whose middle lies at `bend`.
Point controlFor(Point p1, Point p2, Point bend);
/// Puts the ends of an arrow or line elsewhere; the bend turns and grows with them.
void moveEnds(Annotation& annotation, Point p1, Point p2);

double counterRadius(const Annotation& counter);
/// The tip of a counter's tail.
Point tailTip(const Annotation& counter);

/// The middle of what a lens shows.
Point lensSource(const Annotation& lens);

/// The padding left and right of the text on a filled ground; 0 without one.
double textPadding(const Annotation& text);

enum class LensSource { Stays, Moves };

/// The annotation shifted by `by`. A lens whose source was put somewhere moves alone where the source stays.
Annotation moved(const Annotation& annotation, Point by, LensSource source = LensSource::Moves);

/// The rectangle an annotation is selected, aligned and resized by: tight around shapes without the width of their
/// line, around a freehand stroke with it. Not finite where the annotation is not.
Rect outlineRect(const Annotation& annotation, TextMeasurer& measurer);

}  // namespace vellora
