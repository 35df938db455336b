#pragma once

#include "media/movies/LibavPointers.h"

namespace vellora {

/// Whether this program reads the format: files that hold video or audio themselves.
bool isAllowed(const AVInputFormat& format);
/// Playlists, session descriptions and picture series, which have media elsewhere.
bool refersToOtherFiles(const AVInputFormat& format);
/// Formats whose header describes every track wholly, with both times for each packet.
bool isSelfContained(const AVInputFormat& format);
/// Formats that say when, or in which order, to decode pictures, but not when to show them.
bool hasDecodeTimesOnly(const AVInputFormat& format);

}  // namespace vellora
