#pragma once

#include <string>

#include "base/Result.h"
#include "media/movies/LibavPointers.h"
#include "media/movies/MediaReader.h"

namespace vellora {

/// Opens a media file of a kind this program reads, by what is in it and not by its name, and lets libav open no other
/// file. `input` outlives the result; `name` names the file in messages.
Result<FormatPointer, MediaFailure> openContainer(AVIOContext& input, const std::string& name);

/// Covers and previews that stand in a file as a video track.
bool isPicture(const AVStream& stream);
/// A video or audio track of a known codec and size.
bool isUsable(const AVStream& stream);
/// 0/1 when it is not known.
AVRational frameRateOf(const AVStream& stream);

}  // namespace vellora
