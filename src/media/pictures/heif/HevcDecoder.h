#pragma once

namespace vellora::heif {

/// Makes libheif decode HEVC by a decoder of ours from here on. libheif's own takes whatever libde265 makes of damaged
/// data for a picture, with what happened to be in memory where nothing was decoded; ours refuses every picture about
/// which libde265 complains. Damage that looks like the regular end of the data is not noticed by libde265 either.
/// Once is enough; any thread.
void useStrictHevcDecoder();

}  // namespace vellora::heif
