#pragma once

#include <optional>

#include "base/Json.h"
#include "editor/Annotation.h"

namespace vellora {

/// Upper bounds of what is read; an annotation beyond them is refused.
namespace annotationLimits {
inline constexpr std::size_t penPoints = 200'000;
inline constexpr qsizetype textLength = 100'000;  ///< UTF-16 units
inline constexpr double coordinate = 1e7;         ///< points, either way
inline constexpr double lineWidth = 1000;         ///< points
}  // namespace annotationLimits

/// The annotation as it is stored: an object with its keys in a fixed order, optional ones left out where they are
/// absent. Values beyond the limits are brought inside, so that what is written can always be read again: numbers are
/// clamped, texts cut, strokes thinned out.
Json encodeAnnotation(const Annotation& annotation);

/// Reads a stored annotation and gives it a new identity. Nothing when a required key is missing, a value has another
/// type, a number is not finite or beyond the limits, or the kind is unknown.
std::optional<Annotation> decodeAnnotation(const Json& record);

}  // namespace vellora
