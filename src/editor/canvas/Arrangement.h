#pragma once

#include <set>
#include <span>
#include <vector>

#include "editor/canvas/AnnotationOutlines.h"

namespace vellora {

/// Where several selected things are lined up; one alone lines up with the content.
enum class Alignment { Left, CenterX, Right, Top, CenterY, Bottom };

/// Along which way the gaps between selected things become equal.
enum class Distribution { Horizontal, Vertical };

enum class StackMove { Forward, Backward, ToFront, ToBack };

/// The annotations with the given ids, in z-order.
std::vector<AnnotationPtr> annotationsOf(const ImageDocument& document, const std::set<AnnotationId>& ids);

/// Around all outlines that are finite; empty without any.
Rect unitedOutline(std::span<const AnnotationPtr> annotations, AnnotationOutlines& outlines);

ImageDocument aligned(const ImageDocument& document, const std::set<AnnotationId>& ids, Alignment alignment,
                      AnnotationOutlines& outlines);

/// Unchanged for fewer than three: the outermost stay where they are.
ImageDocument distributed(const ImageDocument& document, const std::set<AnnotationId>& ids, Distribution way,
                          AnnotationOutlines& outlines);

/// The selected things keep their order among themselves.
ImageDocument restacked(const ImageDocument& document, const std::set<AnnotationId>& ids, StackMove move);

/// The number of the next counter: one more than the highest.
int nextCounterNumber(const ImageDocument& document);

/// Copies shifted by `by`, with `ids` in their order. A counter whose number is taken in
/// `document` gets the next.
std::vector<AnnotationPtr> copiesOf(const ImageDocument& document, std::span<const AnnotationPtr> originals, Point by,
                                    std::span<const AnnotationId> ids);

}  // namespace vellora
