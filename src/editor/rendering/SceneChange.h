#pragma once

#include "editor/rendering/Scene.h"

namespace vellora {

/// The places of the document (in document points) that look different in `after`, before edges are blurred. None is
/// empty, few of them overlap.
std::vector<Rect> changedSharpRects(const Scene& before, const Scene& after);

}  // namespace vellora
