#pragma once

#include <string>

#include "media/movies/MediaReader.h"
#include "rtmp/RTMPConnection.h"
#include "rtmp/RTMPURL.h"

namespace vellora {

/// Why publishing ended early: a word for programs and a sentence for people.
struct PublishFailure {
  std::string code;          ///< "connectionRefused"
  std::string message;       ///< without a full stop
  bool isAboutFile = false;  ///< nothing in it comes from the server, which could repeat secrets
};

/// What a failure of the connection interrupted.
enum class PublishStep { shakingHands, connecting, startingStream, streaming };

PublishFailure publishFailure(const MediaFailure& failure);
PublishFailure publishFailure(const RTMPFailure& failure, PublishStep step, const RTMPURL& server);
/// The connection closed in mid-stream; `status` says why, as far as that is known.
PublishFailure connectionLost(const std::optional<RTMPStatus>& status, const RTMPURL& server);
/// Nothing left for `seconds`, though there was something to send.
PublishFailure serverStalled(std::chrono::seconds time, const RTMPURL& server);

/// "rtmp://host:1935/app/…": the address without what may be secret in it, the stream name, the query and the login.
std::string printableAddress(const RTMPURL& server);

}  // namespace vellora
