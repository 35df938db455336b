#pragma once

#include <optional>
#include <span>
#include <vector>

#include <QByteArray>

#include "editor/ImageDocument.h"

namespace vellora {

/// What is read of a clipboard's annotations; more is refused.
namespace clipLimits {
inline constexpr qsizetype bytes = 32 << 20;
inline constexpr std::size_t annotations = 2000;
}  // namespace clipLimits

/// The clipboard form: {"version": 1, "annotations": [record…]}, records as in a session. What is
/// read has new identities.
QByteArray encodeClip(std::span<const AnnotationPtr> annotations);

/// Nothing when the bytes are no such object, hold none, or hold anything that is no annotation.
std::optional<std::vector<AnnotationPtr>> decodeClip(const QByteArray& bytes);

/// Whether one of `annotations` would lie exactly on one of the document's of its kind.
bool coversLike(const ImageDocument& document, std::span<const AnnotationPtr> annotations);

}  // namespace vellora
