#include "cli/publish/PublishFailure.h"

#include <utility>

namespace vellora {
namespace {

std::string quoted(const std::string& text) {
  return "'" + text + "'";
}

std::string hostAndPort(const RTMPURL& server) {
  const bool isIPv6 = server.host.find(':') != std::string::npos;
  return (isIPv6 ? "[" + server.host + "]" : server.host) + ":" + std::to_string(server.port);
}

/// What the server said about it, to be put behind a sentence.
std::string saidBy(const std::optional<RTMPStatus>& status) {
  if (!status) return {};
  const std::string& words = status->description.empty() ? status->code : status->description;
  return words.empty() ? std::string() : ": " + words;
}

bool mentions(const std::optional<RTMPStatus>& status, const char* word) {
  return status && status->description.find(word) != std::string::npos;
}

/// What helps where the authority is not known here; nothing helps where the certificate itself is wrong.
std::string certificateAdvice(const std::string& reason) {
  const bool isUnknownIssuer = reason.find("issuer") != std::string::npos || reason.find("self") != std::string::npos;
  return isUnknownIssuer ? "; --ca-file names an authority to trust" : "";
}

bool isEndByServer(RTMPSocketError error) {
  return error == RTMPSocketError::closedByPeer || error == RTMPSocketError::connectionReset;
}

/// Servers that do not know an application or a stream name often say so by closing the connection.
PublishFailure closedBeforeStreaming(PublishStep step, const RTMPURL& server) {
  if (step == PublishStep::shakingHands) {
    return {"protocolBroken", hostAndPort(server) + " closed the connection: it may not speak RTMP" +
                                  (server.isSecure ? "" : ", or only rtmps://")};
  }
  if (step == PublishStep::connecting) {
    return {"applicationRefused",
            hostAndPort(server) + " closed the connection: it may not know " + quoted(server.path)};
  }
  return {"streamRefused", hostAndPort(server) + " closed the connection instead of accepting the stream name"};
}

PublishFailure transportFailure(const RTMPSocketFailure& failure, const RTMPURL& server) {
  const std::string place = hostAndPort(server);
  switch (failure.error) {
    case RTMPSocketError::resolveFailed:
      return {"hostUnknown", failure.message};
    case RTMPSocketError::connectionRefused:
      return {"connectionRefused", "nobody listens on " + place};
    case RTMPSocketError::unreachable:
      return {"unreachable", "there is no way to " + place};
    case RTMPSocketError::timedOut:
      return {"timedOut", place + " does not answer"};
    case RTMPSocketError::certificateRefused: {
      const RTMPCertificateRefusal& certificate = failure.certificate;
      const std::string issuer = certificate.issuer.empty() ? "an unnamed authority" : quoted(certificate.issuer);
      return {"certificateRefused", "the certificate of " + quoted(certificate.host) + ", issued by " + issuer +
                                        ", is not accepted: " + certificate.reason +
                                        certificateAdvice(certificate.reason)};
    }
    case RTMPSocketError::tlsFailed:
      return {"tlsFailed", "no secure connection to " + place + " can be made: " + failure.message};
    case RTMPSocketError::trustFileUnreadable:
      return {"trustFileUnreadable", failure.message};
    case RTMPSocketError::closedByPeer:
    case RTMPSocketError::connectionReset:
      return {"connectionLost", place + " closed the connection"};
    case RTMPSocketError::cancelled:
    case RTMPSocketError::other:
      break;
  }
  return {"connectionFailed", "the connection to " + place + " failed: " + failure.message};
}

PublishFailure refusal(const RTMPFailure& failure, PublishStep step, const RTMPURL& server) {
  if (step == PublishStep::startingStream || step == PublishStep::streaming) {
    return {"streamRefused", hostAndPort(server) + " refused the stream" + saidBy(failure.status)};
  }
  // The words of the "adobe" scheme of logging in.
  if (mentions(failure.status, "authfailed") || mentions(failure.status, "nosuchuser")) {
    return {"loginRefused", hostAndPort(server) + " does not accept this user name and password"};
  }
  if (mentions(failure.status, "authmod=") || mentions(failure.status, "needauth")) {
    return {"loginNeeded", hostAndPort(server) + " wants a user name and a password: name the user with --user"};
  }
  return {"applicationRefused", hostAndPort(server) + " refused " + quoted(server.path) + saidBy(failure.status)};
}

}  // namespace

PublishFailure publishFailure(const MediaFailure& failure) {
  switch (failure.error) {
    case MediaError::unreadable:
      return {"fileUnreadable", failure.message, true};
    case MediaError::notMedia:
      return {"notMedia", failure.message, true};
    case MediaError::noStreams:
      return {"noStreams", failure.message, true};
    case MediaError::damaged:
      return {"fileDamaged", failure.message, true};
    case MediaError::unsupported:
      return {"unsupported", failure.message, true};
  }
  return {"failed", failure.message, true};
}

PublishFailure publishFailure(const RTMPFailure& failure, PublishStep step, const RTMPURL& server) {
  if (failure.socket) {
    if (step != PublishStep::streaming && isEndByServer(failure.socket->error) && !failure.status) {
      return closedBeforeStreaming(step, server);
    }
    return transportFailure(*failure.socket, server);
  }
  if (failure.protocol) return {"protocolBroken", hostAndPort(server) + ": " + failure.message};
  switch (failure.error) {
    case RTMPConnection::Error::requestFailed:
      return refusal(failure, step, server);
    case RTMPConnection::Error::connectionTimedOut:
    case RTMPConnection::Error::requestTimedOut:
      return {"timedOut", hostAndPort(server) + " does not answer"};
    case RTMPConnection::Error::unsupportedCommand:
    case RTMPConnection::Error::socketErrorOccurred:
    case RTMPConnection::Error::invalidState:
      break;
  }
  return {"connectionFailed", "the connection to " + hostAndPort(server) + " failed: " + failure.message};
}

PublishFailure connectionLost(const std::optional<RTMPStatus>& status, const RTMPURL& server) {
  return {"connectionLost", "the stream to " + hostAndPort(server) + " was cut off" + saidBy(status)};
}

PublishFailure serverStalled(std::chrono::seconds time, const RTMPURL& server) {
  return {"stalled", hostAndPort(server) + " has taken nothing for " + std::to_string(time.count()) + " seconds"};
}

std::string printableAddress(const RTMPURL& server) {
  return (server.isSecure ? "rtmps://" : "rtmp://") + hostAndPort(server) + "/" + server.path + "/…";
}

}  // namespace vellora
