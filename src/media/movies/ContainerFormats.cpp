#include "media/movies/ContainerFormats.h"

#include <algorithm>
#include <string_view>

namespace vellora {
namespace {

/// Both lists have names between commas.
bool sharesName(std::string_view names, std::string_view list) {
  while (!names.empty()) {
    const std::size_t comma = std::min(names.find(','), names.size());
    const std::string_view name = names.substr(0, comma);
    names.remove_prefix(std::min(comma + 1, names.size()));
    std::size_t at = list.find(name);
    for (; at != std::string_view::npos; at = list.find(name, at + 1)) {
      const std::size_t end = at + name.size();
      if ((at == 0 || list[at - 1] == ',') && (end == list.size() || list[end] == ',')) return true;
    }
  }
  return false;
}

}  // namespace

bool isAllowed(const AVInputFormat& format) {
  return sharesName(format.name,
                    "mov,mp4,m4a,3gp,matroska,webm,flv,avi,mpegts,mpeg,mpegvideo,ogg,mp3,aac,wav,w64,aiff,"
                    "au,caf,flac,ac3,eac3,dts,amr,wv,ape,tta,h264,hevc,av1,obu,ivf,m4v,mjpeg,dv,asf,rm,mxf,"
                    "mxf_opatom,nut,gif,apng,yuv4mpegpipe,vc1");
}

bool refersToOtherFiles(const AVInputFormat& format) {
  return sharesName(format.name, "hls,applehttp,dash,concat,concatf,sdp,rtsp,image2,imf,webm_dash_manifest");
}

bool isSelfContained(const AVInputFormat& format) {
  return sharesName(format.name, "mov");
}

bool hasDecodeTimesOnly(const AVInputFormat& format) {
  return sharesName(format.name, "avi,h264,hevc");
}

}  // namespace vellora
