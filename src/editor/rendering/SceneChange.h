#pragma once

#include "editor/rendering/Scene.h"

namespace vellora {

/// What of the document (in document points) looks different in `after`, before edges are blurred; a null rectangle:
/// nothing.
Rect changedSharpRect(const Scene& before, const Scene& after);

}  // namespace vellora
