#include "support/ByteServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <openssl/err.h>
#include <openssl/ssl.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>
#include <utility>

namespace vellora::test {

std::string BytePeer::serverName() const {
  const char* const name = ssl_ ? SSL_get_servername(ssl_, TLSEXT_NAMETYPE_host_name) : nullptr;
  return name ? name : "";
}

std::string BytePeer::read(std::size_t size) {
  std::string bytes(size, '\0');
  std::size_t filled = 0;
  while (filled < size) {
    const auto count = ssl_ ? SSL_read(ssl_, bytes.data() + filled, static_cast<int>(size - filled))
                            : static_cast<int>(recv(socket_, bytes.data() + filled, size - filled, 0));
    if (count <= 0) break;
    filled += static_cast<std::size_t>(count);
  }
  bytes.resize(filled);
  return bytes;
}

std::string BytePeer::readAll(bool* wasOrderly) {
  std::string all;
  while (true) {
    const std::string some = read(64U << 10);
    all += some;
    if (some.size() == (64U << 10)) continue;
    if (wasOrderly) *wasOrderly = !ssl_ || (SSL_get_shutdown(ssl_) & SSL_RECEIVED_SHUTDOWN) != 0;
    return all;
  }
}

bool BytePeer::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto count = ssl_ ? SSL_write(ssl_, bytes.data(), static_cast<int>(bytes.size()))
                            : static_cast<int>(send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL));
    if (count <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

void BytePeer::writePlain(std::string_view bytes) {
  send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

void BytePeer::sayEnd() {
  SSL_shutdown(ssl_);
}

void BytePeer::shutDown() {
  shutdown(socket_, SHUT_WR);
}

void BytePeer::endWithReset() {
  const linger now{1, 0};
  setsockopt(socket_, SOL_SOCKET, SO_LINGER, &now, sizeof now);
}

void BytePeer::changeKeys() {
  SSL_key_update(ssl_, SSL_KEY_UPDATE_REQUESTED);
}

ByteServer::ByteServer(Options options, Script script) : options_(std::move(options)) {
  const bool isV6 = options_.address.find(':') != std::string::npos;
  listener_ = socket(isV6 ? AF_INET6 : AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (options_.receiveBuffer > 0)
    setsockopt(listener_, SOL_SOCKET, SO_RCVBUF, &options_.receiveBuffer, sizeof options_.receiveBuffer);
  sockaddr_in6 v6{};
  sockaddr_in v4{};
  v6.sin6_family = AF_INET6;
  v4.sin_family = AF_INET;
  inet_pton(AF_INET6, options_.address.c_str(), &v6.sin6_addr);
  inet_pton(AF_INET, options_.address.c_str(), &v4.sin_addr);
  auto* const address = isV6 ? reinterpret_cast<sockaddr*>(&v6) : reinterpret_cast<sockaddr*>(&v4);
  socklen_t size = isV6 ? sizeof v6 : sizeof v4;
  if (bind(listener_, address, size) != 0 || listen(listener_, 4) != 0 || getsockname(listener_, address, &size) != 0)
    throw std::runtime_error("the server of a test cannot listen");
  port_ = ntohs(isV6 ? v6.sin6_port : v4.sin_port);
  thread_ = std::thread([this, play = std::move(script)] { run(play); });
}

ByteServer::~ByteServer() {
  shutdown(listener_, SHUT_RDWR);
  {
    const std::lock_guard lock(mutex_);
    if (client_ >= 0) shutdown(client_, SHUT_RDWR);
  }
  if (thread_.joinable()) thread_.join();
  close(listener_);
}

bool ByteServer::wait() {
  thread_.join();
  return hasPlayed_;
}

void ByteServer::run(const Script& script) {
  // The signals of this side are its own affair; the client's have to be caught by nobody.
  sigset_t pipe;
  sigemptyset(&pipe);
  sigaddset(&pipe, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &pipe, nullptr);

  const int client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
  if (client < 0) return;
  {
    const std::lock_guard lock(mutex_);
    client_ = client;
  }
  if (!options_.identity) {
    BytePeer peer(client, nullptr);
    script(peer);
    hasPlayed_ = true;
  } else {
    const std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> context(SSL_CTX_new(TLS_server_method()), SSL_CTX_free);
    SSL_CTX_use_certificate_chain_file(context.get(), options_.identity->certificate.c_str());
    SSL_CTX_use_PrivateKey_file(context.get(), options_.identity->key.c_str(), SSL_FILETYPE_PEM);
    if (options_.newestVersion != 0) {
      SSL_CTX_set_min_proto_version(context.get(), TLS1_VERSION);
      SSL_CTX_set_max_proto_version(context.get(), options_.newestVersion);
      SSL_CTX_set_cipher_list(context.get(), "ALL:@SECLEVEL=0");
    }
    const std::unique_ptr<SSL, decltype(&SSL_free)> ssl(SSL_new(context.get()), SSL_free);
    SSL_set_fd(ssl.get(), client);
    if (SSL_accept(ssl.get()) == 1) {
      BytePeer peer(client, ssl.get());
      script(peer);
      hasPlayed_ = true;
    }
    ERR_clear_error();
  }
  const std::lock_guard lock(mutex_);
  client_ = -1;
  close(client);
}

}  // namespace vellora::test
