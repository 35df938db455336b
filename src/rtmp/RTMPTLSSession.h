#pragma once

#include <openssl/ssl.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "base/Result.h"
#include "rtmp/RTMPSocketFailure.h"
#include "rtmp/wire/Bytes.h"

namespace vellora {

/// The client's side of one TLS session, without a network: the encrypted bytes go in and out through two rings. One
/// thread at a time.
class RTMPTLSSession {
 public:
  /// Encrypted bytes that may wait in either direction; room for four full records.
  static constexpr std::size_t ringSize = 80U << 10;
  static constexpr std::size_t recordSize = 16U << 10;

  enum class Status {
    done,
    needsInput,   ///< go on when more has been received
    needsOutput,  ///< go on when some of `output` has been sent
    closed,       ///< the other side said the end
    failed,       ///< `takeFailure` says why
  };

  /// For a server that has to prove to be `host`; `authorities` as for the socket.
  static Result<std::unique_ptr<RTMPTLSSession>, RTMPSocketFailure> create(const std::string& host,
                                                                           const std::filesystem::path& authorities);
  RTMPTLSSession(const RTMPTLSSession&) = delete;
  RTMPTLSSession& operator=(const RTMPTLSSession&) = delete;

  Status handshake();
  /// Encrypts as much of the front of `data` as there is room for, in full records, and takes it away. `done` when
  /// nothing is left.
  Status write(ByteView& data);
  /// Fills `block` with what has been received; `size` is how much. `done` with at least one byte.
  Status read(std::span<std::uint8_t> block, std::size_t& size);
  /// Adds the end of our side to the output.
  void finish();

  /// What has to be sent, or the front of it.
  ByteView output() const;
  void sent(std::size_t bytes);
  /// Where received bytes go; stays until the next `read` or `handshake`.
  std::span<std::uint8_t> inputSpace() const;
  void received(std::size_t bytes);

  RTMPSocketFailure takeFailure() { return std::move(failure_); }

 private:
  using BioPointer = std::unique_ptr<BIO, decltype(&BIO_free)>;
  using SslPointer = std::unique_ptr<SSL, decltype(&SSL_free)>;

  RTMPTLSSession(std::string host, SslPointer ssl, BioPointer network);
  static int verified(int isFine, X509_STORE_CTX* store);
  Status statusOf(int result);
  void fail();

  std::string host_;
  SslPointer ssl_;
  BioPointer network_;
  std::optional<RTMPCertificateRefusal> refusal_;
  std::optional<Status> end_;  ///< of what is received
  RTMPSocketFailure failure_;
  bool isEstablished_ = false;
};

}  // namespace vellora
