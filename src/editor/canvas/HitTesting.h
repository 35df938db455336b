#pragma once

#include <optional>
#include <set>

#include "editor/canvas/AnnotationOutlines.h"

namespace vellora {

/// How far from a line, in screen points, the pointer still takes it.
inline constexpr double hitTolerance = 6;

/// Whether the pointer at `place` takes the annotation: lines and outlines within the tolerance, filled shapes, texts,
/// counters, lenses and blurs by their area. `tolerance` is in document points; `outline` as AnnotationOutlines gives
/// it.
bool hits(const Annotation& annotation, const Rect& outline, Point place, double tolerance);

/// Whether a marquee takes the annotation: when it meets what is drawn, not the empty inside of an outline.
bool touches(const Annotation& annotation, const Rect& outline, const Rect& marquee);

/// The annotation under the pointer; the topmost, but one of `preferred` wins over those above it, unless the topmost
/// lies wholly within it: a number on a selected area can still be dragged.
std::optional<AnnotationId> annotationAt(const ImageDocument& document, AnnotationOutlines& outlines, Point place,
                                         double tolerance, const std::set<AnnotationId>& preferred = {});

/// The topmost piece at a place.
std::optional<std::uint64_t> pieceAt(const ImageDocument& document, Point place);

/// The annotations whose middle lies on what is seen of a piece: they belong to it when it moves or goes.
std::set<AnnotationId> annotationsOn(const ImageDocument& document, AnnotationOutlines& outlines, std::uint64_t piece);

}  // namespace vellora
