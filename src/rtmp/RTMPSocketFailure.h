#pragma once

#include <string>

namespace vellora {

enum class RTMPSocketError {
  resolveFailed,      ///< the host has no address
  connectionRefused,  ///< nobody listens
  unreachable,        ///< no way to the host
  timedOut,
  certificateRefused,   ///< `certificate` says why
  tlsFailed,            ///< the other side speaks no TLS, or none of version 1.2 and up
  trustFileUnreadable,  ///< the file of own authorities
  closedByPeer,         ///< an orderly end by the other side
  connectionReset,      ///< the connection broke
  cancelled,            ///< closed from our side
  other,
};

/// Why a server's certificate was not accepted. Texts come from the certificate and may hold anything printable.
struct RTMPCertificateRefusal {
  std::string host;    ///< whom we meant to reach
  std::string issuer;  ///< who signed what was shown
  std::string reason;  ///< "certificate has expired"
};

struct RTMPSocketFailure {
  RTMPSocketError error = RTMPSocketError::other;
  std::string message;  ///< one English sentence without a full stop
  RTMPCertificateRefusal certificate{};
};

}  // namespace vellora
