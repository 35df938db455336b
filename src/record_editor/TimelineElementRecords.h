#pragma once

#include <optional>

#include "base/Json.h"
#include "record_editor/TimelineElements.h"

namespace vellora {

// The stored forms of a project's elements: one key a field, in their order, optional ones left out where they are
// absent; identifiers as UUID strings. Readers give nothing when a key is missing, holds another type, or the range is
// none; a missing or unreadable identifier is replaced by a new one, and numbers outside their limits are brought
// inside.
Json encodeElement(const TrimElement& trim);
Json encodeElement(const ZoomElement& zoom);
Json encodeElement(const SpeedElement& speed);
Json encodeElement(const MaskElement& mask);
Json encodeElement(const LayoutElement& layout);
Json encodeElement(const CaptionElement& caption);
Json encodeElement(const TextCard& card);
Json encodeElement(const WordStamp& word);

template <class Element>
std::optional<Element> decodeElement(const Json& record);

}  // namespace vellora
