#pragma once

namespace vellora::heif {

/// Makes libheif decode HEVC by a decoder of ours from here on. libheif's own takes what libde265 makes of damaged
/// data for a picture, with whatever was in memory where nothing was decoded; ours has every picture refused that is
/// not decoded completely. Once is enough; any thread.
void useStrictHevcDecoder();

}  // namespace vellora::heif
