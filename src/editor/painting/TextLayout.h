#pragma once

#include <memory>

#include "editor/TextMeasurer.h"

namespace vellora {

/// Answers with the same layout the painter draws, laid out in document points and without hinting, so that text stands
/// in the same place at every scale.
std::unique_ptr<TextMeasurer> makeTextMeasurer();

}  // namespace vellora
