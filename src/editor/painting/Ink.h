#pragma once

#include <QPainterPath>

#include "editor/painting/InkPath.h"
#include "editor/painting/Measures.h"

namespace vellora {

/// The filled paths of a pen's stroke or of a hand-drawn shape.
struct Ink {
  InkPath lines;
  QPainterPath ground;  ///< what a filled shape fills; empty otherwise
};

/// For pens, and for arrows, boxes and ellipses drawn by hand; of other kinds nothing.
Ink inkOf(const Annotation& annotation, const Measures& measures);

}  // namespace vellora
