#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/Result.h"

namespace vellora {

/// An address of an RTMP server: "rtmp://host[:port]/app[/instance…][?query]", also "rtmps" and IPv6 in brackets.
struct RTMPURL {
  bool isSecure = false;
  std::string host;  ///< without brackets
  std::uint16_t port = 0;
  std::string path;   ///< without the leading "/"
  std::string query;  ///< without "?"
  std::string user;   ///< decoded; never part of `text`
  std::string password;
  std::string text;  ///< as to be told to the server: as given, without user and password

  /// The path and, when there is one, "?" and the query.
  std::string app() const;
  /// Nothing but a reason in plain English when `text` is no such address.
  static Result<RTMPURL, std::string> parse(std::string_view text);
};

/// The server's address and the stream name of a whole publish address: what follows the last "/" of the path is the
/// name, the query goes with it ("rtmp://host/live/key?token=1" publishes "key?token=1" to "rtmp://host/live").
struct RTMPPublishAddress {
  RTMPURL server;
  std::string streamName;
  static Result<RTMPPublishAddress, std::string> parse(std::string_view text);
};

}  // namespace vellora
