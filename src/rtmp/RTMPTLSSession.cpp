#include "rtmp/RTMPTLSSession.h"

#include <openssl/bio.h>
#include <openssl/err.h>

#include <algorithm>
#include <utility>

#include "rtmp/RTMPTransportSecurity.h"

namespace vellora {
namespace {

RTMPSocketFailure notSetUp(const std::string& host) {
  return {RTMPSocketError::tlsFailed, "TLS to " + host + " could not be set up"};
}

std::string reasonText(unsigned long error) {
  const char* const text = ERR_reason_error_string(error);
  return text ? text : "no reason given";
}

RTMPSocketFailure handshakeFailure(unsigned long error, const std::string& host) {
  std::string message = "the TLS handshake with " + host + " failed: " + reasonText(error);
  if (ERR_GET_LIB(error) == ERR_LIB_SSL) {
    switch (ERR_GET_REASON(error)) {
      case SSL_R_UNSUPPORTED_PROTOCOL:
      case SSL_R_TLSV1_ALERT_PROTOCOL_VERSION:
        message = host + " offers no TLS of version 1.2 or newer";
        break;
      case SSL_R_WRONG_VERSION_NUMBER:
      case SSL_R_HTTP_REQUEST:
      case SSL_R_UNEXPECTED_MESSAGE:
      case SSL_R_PACKET_LENGTH_TOO_LONG:
      case SSL_R_BAD_RECORD_TYPE:
        message = host + " does not speak TLS on this port";
        break;
      default:
        break;
    }
  }
  return {RTMPSocketError::tlsFailed, std::move(message)};
}

}  // namespace

RTMPTLSSession::RTMPTLSSession(std::string host, SslPointer ssl, BioPointer network)
    : host_(std::move(host)), ssl_(std::move(ssl)), network_(std::move(network)) {
  SSL_set_app_data(ssl_.get(), this);
  SSL_set_verify(ssl_.get(), SSL_VERIFY_PEER, verified);
}

Result<std::unique_ptr<RTMPTLSSession>, RTMPSocketFailure> RTMPTLSSession::create(
    const std::string& host, const std::filesystem::path& authorities) {
  auto context = RTMPTransportSecurity::makeContext(authorities);
  if (!context) return failure(std::move(context.error()));
  SslPointer ssl(SSL_new(context->get()), SSL_free);
  BIO* inner = nullptr;
  BIO* network = nullptr;
  if (!ssl || BIO_new_bio_pair(&inner, ringSize, &network, ringSize) != 1) return failure(notSetUp(host));
  SSL_set_bio(ssl.get(), inner, inner);
  BioPointer owned(network, BIO_free);
  if (!RTMPTransportSecurity::expectHost(ssl.get(), host)) return failure(notSetUp(host));
  SSL_set_connect_state(ssl.get());
  return std::unique_ptr<RTMPTLSSession>(new RTMPTLSSession(host, std::move(ssl), std::move(owned)));
}

int RTMPTLSSession::verified(int isFine, X509_STORE_CTX* store) {
  if (isFine == 1) return 1;
  const auto* const ssl = static_cast<SSL*>(X509_STORE_CTX_get_ex_data(store, SSL_get_ex_data_X509_STORE_CTX_idx()));
  auto* const self = static_cast<RTMPTLSSession*>(SSL_get_app_data(ssl));
  if (!self->refusal_) self->refusal_ = RTMPTransportSecurity::refusal(store, self->host_);
  return 0;
}

RTMPTLSSession::Status RTMPTLSSession::statusOf(int result) {
  switch (SSL_get_error(ssl_.get(), result)) {
    case SSL_ERROR_NONE:
      return Status::done;
    case SSL_ERROR_WANT_READ:
      return Status::needsInput;
    case SSL_ERROR_WANT_WRITE:
      return Status::needsOutput;
    case SSL_ERROR_ZERO_RETURN:
      return Status::closed;
    default:
      fail();
      return Status::failed;
  }
}

void RTMPTLSSession::fail() {
  const unsigned long error = ERR_get_error();
  ERR_clear_error();
  if (refusal_) {
    std::string message = "the certificate of " + host_ + " was refused: " + refusal_->reason;
    if (!refusal_->issuer.empty()) message += " (issued by " + refusal_->issuer + ")";
    failure_ = {RTMPSocketError::certificateRefused, std::move(message), *refusal_};
  } else if (!isEstablished_) {
    failure_ = handshakeFailure(error, host_);
  } else {
    failure_ = {RTMPSocketError::connectionReset, "the TLS connection to " + host_ + " broke: " + reasonText(error)};
  }
}

RTMPTLSSession::Status RTMPTLSSession::handshake() {
  ERR_clear_error();
  const Status status = statusOf(SSL_do_handshake(ssl_.get()));
  isEstablished_ = status == Status::done;
  return status;
}

RTMPTLSSession::Status RTMPTLSSession::write(ByteView& data) {
  while (!data.empty()) {
    ERR_clear_error();
    const int result = SSL_write(ssl_.get(), data.data(), static_cast<int>(std::min(data.size(), recordSize)));
    if (result <= 0) return statusOf(result);
    data = data.subspan(static_cast<std::size_t>(result));
  }
  return Status::done;
}

RTMPTLSSession::Status RTMPTLSSession::read(std::span<std::uint8_t> block, std::size_t& size) {
  size = 0;
  if (end_) return *end_;
  while (size < block.size()) {
    ERR_clear_error();
    const int result = SSL_read(ssl_.get(), block.data() + size, static_cast<int>(block.size() - size));
    if (result > 0) {
      size += static_cast<std::size_t>(result);
      continue;
    }
    const Status status = statusOf(result);
    if (status == Status::closed || status == Status::failed) end_ = status;
    return size > 0 ? Status::done : status;
  }
  return Status::done;
}

void RTMPTLSSession::finish() {
  // A second call would read instead.
  const bool isFinished = (SSL_get_shutdown(ssl_.get()) & SSL_SENT_SHUTDOWN) != 0;
  if (isEstablished_ && !isFinished) SSL_shutdown(ssl_.get());
  ERR_clear_error();
}

ByteView RTMPTLSSession::output() const {
  char* data = nullptr;
  const int size = BIO_nread0(network_.get(), &data);
  if (size <= 0) return {};
  return {reinterpret_cast<const std::uint8_t*>(data), static_cast<std::size_t>(size)};
}

void RTMPTLSSession::sent(std::size_t bytes) {
  char* data = nullptr;
  BIO_nread(network_.get(), &data, static_cast<int>(bytes));
}

std::span<std::uint8_t> RTMPTLSSession::inputSpace() const {
  char* data = nullptr;
  const int size = BIO_nwrite0(network_.get(), &data);
  if (size <= 0) return {};
  return {reinterpret_cast<std::uint8_t*>(data), static_cast<std::size_t>(size)};
}

void RTMPTLSSession::received(std::size_t bytes) {
  char* data = nullptr;
  BIO_nwrite(network_.get(), &data, static_cast<int>(bytes));
}

}  // namespace vellora
