#pragma once

#include <openssl/ssl.h>

#include <filesystem>
#include <memory>
#include <string>

#include "base/Result.h"
#include "rtmp/RTMPSocketFailure.h"

namespace vellora {

/// Which servers are trusted: the system's certificate authorities and those of a file.
class RTMPTransportSecurity {
 public:
  using Context = std::unique_ptr<SSL_CTX, void (*)(SSL_CTX*)>;
  /// What a file of authorities may hold at most, in bytes.
  static constexpr std::size_t maximumAuthorities = 4U << 20;
  /// What a text of a refusal may hold at most, in bytes.
  static constexpr std::size_t maximumText = 300;

  /// For clients of TLS 1.2 and up that verify. `authorities`: PEM, every certificate in it is trusted, those of
  /// intermediate authorities and of servers too; empty for none. Reads the file.
  static Result<Context, RTMPSocketFailure> makeContext(const std::filesystem::path& authorities);

  /// Lets the handshake of `ssl` succeed only with a certificate for `host`, a name or an address. Names are told to
  /// the server. False when that is impossible.
  static bool expectHost(SSL* ssl, const std::string& host);

  /// Why verification stopped where `store` stands.
  static RTMPCertificateRefusal refusal(X509_STORE_CTX* store, const std::string& host);
};

}  // namespace vellora
