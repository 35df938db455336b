#pragma once

#include <memory>

#include "editor/painting/LaidOutText.h"
#include "editor/painting/Measures.h"

namespace vellora {

/// Where a text annotation's parts stand: the box from `p1`, the letters inside its padding.
struct TextBox {
  std::shared_ptr<const LaidOutText> text;
  Size padding;  ///< on either side; nothing without a filled ground
  Size size;     ///< of the whole box
  double cornerRadius = 0;
};

/// Laid out once and kept for the thread's texts drawn last.
TextBox textBoxOf(const Annotation& annotation, double lineWidth);

}  // namespace vellora
