#include "rtmp/RTMPSocket.h"

#include <asio/buffer.hpp>
#include <asio/co_spawn.hpp>
#include <asio/detached.hpp>
#include <asio/error.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/redirect_error.hpp>
#include <asio/this_coro.hpp>
#include <asio/use_awaitable.hpp>
#include <atomic>
#include <cerrno>
#include <optional>
#include <utility>

#include "rtmp/AsyncSignal.h"
#include "rtmp/RTMPDialer.h"
#include "rtmp/RTMPResolver.h"
#include "rtmp/RTMPTLSSession.h"

namespace vellora {
namespace {

using asio::ip::tcp;

RTMPSocketFailure cancelled() {
  return {RTMPSocketError::cancelled, "the connection was closed from this side"};
}

RTMPSocketFailure notConnected() {
  return {RTMPSocketError::other, "there is no connection"};
}

RTMPSocketFailure networkFailure(const asio::error_code& error, const std::string& host) {
  if (error == asio::error::operation_aborted) return cancelled();
  switch (error.value()) {
    case ECONNREFUSED:
      return {RTMPSocketError::connectionRefused, host + " refused the connection"};
    case ETIMEDOUT:
      return {RTMPSocketError::timedOut, host + " did not answer in time"};
    case ECONNRESET:
    case ECONNABORTED:
    case EPIPE:
      return {RTMPSocketError::connectionReset, host + " broke the connection"};
    case EHOSTUNREACH:
    case ENETUNREACH:
    case ENETDOWN:
    case EADDRNOTAVAIL:
    case EAFNOSUPPORT:
    case EACCES:
    case EPERM:
      return {RTMPSocketError::unreachable, "there is no way to " + host + ": " + error.message()};
    default:
      return {RTMPSocketError::other, "the connection to " + host + " failed: " + error.message()};
  }
}

bool isCancelled(const asio::cancellation_state& state) {
  return state.cancelled() != asio::cancellation_type::none;
}

}  // namespace

/// Every coroutine holds what it works on, so that the socket may go while one is still on its way to its end. An
/// operation that starts in a cancelled coroutine could not be cancelled any more: each one asks before it starts.
class RTMPSocket::Transport : public std::enable_shared_from_this<Transport> {
 public:
  using Self = std::shared_ptr<Transport>;
  using Outcome = Result<void, RTMPSocketFailure>;

  Transport(const asio::any_io_executor& executor, Options options)
      : options_(std::move(options)),
        resolver_(executor),
        dialer_(executor, options_.qualityOfService),
        socket_(executor),
        flushed_(executor) {}

  static asio::awaitable<Outcome> connect(Self self, std::string host, std::uint16_t port);
  static asio::awaitable<Outcome> send(Self self, ByteView data);
  static asio::awaitable<Result<ByteView, RTMPSocketFailure>> recv(Self self);
  void finish();
  void close();

  std::atomic<std::uint64_t> sentBytes = 0;
  std::atomic<std::uint64_t> receivedBytes = 0;

 private:
  using Status = RTMPTLSSession::Status;

  static asio::awaitable<Outcome> open(Self self, std::uint16_t port);
  static asio::awaitable<Outcome> shakeHands(Self self);
  static asio::awaitable<Outcome> sendPlain(Self self, ByteView data);
  static asio::awaitable<Outcome> sendSecure(Self self, ByteView data);
  static asio::awaitable<Result<ByteView, RTMPSocketFailure>> recvPlain(Self self);
  static asio::awaitable<Result<ByteView, RTMPSocketFailure>> recvSecure(Self self);
  static asio::awaitable<asio::error_code> fillSession(Self self);
  static asio::awaitable<asio::error_code> flushSession(Self self);
  static asio::awaitable<void> finishSession(Self self);
  void flushAtOnce();
  /// `error` as it looks from outside.
  RTMPSocketFailure failureOf(const asio::error_code& error) const;

  const Options options_;
  std::string host_;
  RTMPResolver resolver_;
  RTMPDialer dialer_;
  tcp::socket socket_;
  std::unique_ptr<RTMPTLSSession> session_;
  Bytes block_;
  bool isConnected_ = false;
  bool isClosed_ = false;
  bool isFlushing_ = false;
  AsyncSignal flushed_;
  // Once a direction has failed, the kernel tells nothing new, and an operation more would wait for ever.
  std::optional<RTMPSocketFailure> sendFailure_;
  std::optional<RTMPSocketFailure> recvFailure_;
};

RTMPSocketFailure RTMPSocket::Transport::failureOf(const asio::error_code& error) const {
  if (isClosed_) return cancelled();
  if (error == asio::error::eof) {
    // TLS says its own end; without it, anybody on the way may have cut the connection.
    if (session_) return {RTMPSocketError::connectionReset, host_ + " cut the connection off"};
    return {RTMPSocketError::closedByPeer, host_ + " ended the connection"};
  }
  return networkFailure(error, host_);
}

asio::awaitable<RTMPSocket::Transport::Outcome> RTMPSocket::Transport::connect(Self self, std::string host,
                                                                               std::uint16_t port) {
  const asio::cancellation_state cancellation = co_await asio::this_coro::cancellation_state;
  if (self->isClosed_ || isCancelled(cancellation)) co_return failure(cancelled());
  self->host_ = std::move(host);
  Outcome outcome = co_await open(self, port);
  if (self->isClosed_ || isCancelled(cancellation)) outcome = failure(cancelled());
  if (!outcome) {
    self->close();
    co_return outcome;
  }
  self->block_.resize(maximumBlock);
  self->isConnected_ = true;
  co_return outcome;
}

asio::awaitable<RTMPSocket::Transport::Outcome> RTMPSocket::Transport::open(Self self, std::uint16_t port) {
  const asio::cancellation_state cancellation = co_await asio::this_coro::cancellation_state;
  if (self->options_.securityLevel == RTMPSecurityLevel::tls) {
    auto session = RTMPTLSSession::create(self->host_, self->options_.authorities);
    if (!session) co_return failure(std::move(session.error()));
    self->session_ = std::move(*session);
  }
  auto endpoints = co_await self->resolver_.resolve(self->host_, port);
  if (!endpoints) co_return failure(std::move(endpoints.error()));
  if (self->isClosed_ || isCancelled(cancellation)) co_return failure(cancelled());
  auto socket = co_await self->dialer_.dial(std::move(*endpoints));
  if (!socket) co_return failure(self->failureOf(socket.error()));
  if (self->isClosed_ || isCancelled(cancellation)) co_return failure(cancelled());
  self->socket_ = std::move(*socket);
  if (!self->session_) co_return Outcome{};
  Outcome shaken = co_await shakeHands(self);
  co_return shaken;
}

asio::awaitable<RTMPSocket::Transport::Outcome> RTMPSocket::Transport::shakeHands(Self self) {
  const asio::cancellation_state cancellation = co_await asio::this_coro::cancellation_state;
  Status status = Status::needsInput;
  while (status != Status::done) {
    status = self->session_->handshake();
    if (status == Status::failed || status == Status::closed) {
      // The alert says to the other side what is wrong.
      self->flushAtOnce();
      if (status == Status::closed)
        co_return failure(RTMPSocketFailure{RTMPSocketError::tlsFailed, self->host_ + " ended the TLS handshake"});
      co_return failure(self->session_->takeFailure());
    }
    asio::error_code error = co_await flushSession(self);
    if (!error && self->isClosed_) error = asio::error::operation_aborted;
    if (!error && isCancelled(cancellation)) error = asio::error::operation_aborted;
    if (!error && status == Status::needsInput) error = co_await fillSession(self);
    if (error == asio::error::eof && !self->isClosed_) {
      co_return failure(RTMPSocketFailure{RTMPSocketError::tlsFailed,
                                          self->host_ + " ended the TLS handshake; it may speak no TLS on this port"});
    }
    if (error) co_return failure(self->failureOf(error));
    if (self->isClosed_ || isCancelled(cancellation)) co_return failure(cancelled());
  }
  co_return Outcome{};
}

asio::awaitable<RTMPSocket::Transport::Outcome> RTMPSocket::Transport::send(Self self, ByteView data) {
  const asio::cancellation_state cancellation = co_await asio::this_coro::cancellation_state;
  if (self->isClosed_ || isCancelled(cancellation)) co_return failure(cancelled());
  if (!self->isConnected_) co_return failure(notConnected());
  if (self->sendFailure_) co_return failure(*self->sendFailure_);
  Outcome outcome;
  if (self->session_)
    outcome = co_await sendSecure(self, data);
  else
    outcome = co_await sendPlain(self, data);
  if (!outcome && isCancelled(cancellation)) {
    self->close();
    outcome = failure(cancelled());
  }
  if (!outcome && !self->isClosed_) self->sendFailure_ = outcome.error();
  co_return outcome;
}

asio::awaitable<RTMPSocket::Transport::Outcome> RTMPSocket::Transport::sendPlain(Self self, ByteView data) {
  const asio::cancellation_state cancellation = co_await asio::this_coro::cancellation_state;
  while (!data.empty()) {
    asio::error_code error;
    const std::size_t sent = co_await self->socket_.async_write_some(asio::buffer(data.data(), data.size()),
                                                                     asio::redirect_error(asio::use_awaitable, error));
    self->sentBytes.fetch_add(sent, std::memory_order_relaxed);
    data = data.subspan(sent);
    if (!error && (self->isClosed_ || isCancelled(cancellation))) error = asio::error::operation_aborted;
    if (error && !data.empty()) co_return failure(self->failureOf(error));
  }
  co_return Outcome{};
}

asio::awaitable<RTMPSocket::Transport::Outcome> RTMPSocket::Transport::sendSecure(Self self, ByteView data) {
  const asio::cancellation_state cancellation = co_await asio::this_coro::cancellation_state;
  while (!data.empty()) {
    const std::size_t before = data.size();
    if (self->session_->write(data) == Status::failed) {
      self->flushAtOnce();
      co_return failure(self->session_->takeFailure());
    }
    const asio::error_code error = co_await flushSession(self);
    if (error) co_return failure(self->failureOf(error));
    self->sentBytes.fetch_add(before - data.size(), std::memory_order_relaxed);
    if (!data.empty() && (self->isClosed_ || isCancelled(cancellation))) co_return failure(cancelled());
  }
  co_return Outcome{};
}

asio::awaitable<Result<ByteView, RTMPSocketFailure>> RTMPSocket::Transport::recv(Self self) {
  const asio::cancellation_state cancellation = co_await asio::this_coro::cancellation_state;
  if (self->isClosed_ || isCancelled(cancellation)) co_return failure(cancelled());
  if (!self->isConnected_) co_return failure(notConnected());
  if (self->recvFailure_) co_return failure(*self->recvFailure_);
  Result<ByteView, RTMPSocketFailure> received;
  if (self->session_)
    received = co_await recvSecure(self);
  else
    received = co_await recvPlain(self);
  if (!received && isCancelled(cancellation)) received = failure(cancelled());
  if (received)
    self->receivedBytes.fetch_add(received->size(), std::memory_order_relaxed);
  else if (!self->isClosed_ && !isCancelled(cancellation))
    self->recvFailure_ = received.error();
  co_return received;
}

asio::awaitable<Result<ByteView, RTMPSocketFailure>> RTMPSocket::Transport::recvPlain(Self self) {
  asio::error_code error;
  const std::size_t size = co_await self->socket_.async_read_some(asio::buffer(self->block_),
                                                                  asio::redirect_error(asio::use_awaitable, error));
  if (error) co_return failure(self->failureOf(error));
  if (self->isClosed_) co_return failure(cancelled());
  co_return ByteView(self->block_.data(), size);
}

asio::awaitable<Result<ByteView, RTMPSocketFailure>> RTMPSocket::Transport::recvSecure(Self self) {
  const asio::cancellation_state cancellation = co_await asio::this_coro::cancellation_state;
  while (true) {
    std::size_t size = 0;
    const Status status = self->session_->read(self->block_, size);
    if (status == Status::done) co_return ByteView(self->block_.data(), size);
    if (status == Status::failed) {
      self->flushAtOnce();
      co_return failure(self->session_->takeFailure());
    }
    if (status == Status::closed)
      co_return failure(RTMPSocketFailure{RTMPSocketError::closedByPeer, self->host_ + " ended the connection"});
    // Reading may have left an answer to be sent (a new key, for instance); a `send` on its way takes it along.
    asio::error_code error;
    if (!self->isFlushing_) error = co_await flushSession(self);
    if (!error && (self->isClosed_ || isCancelled(cancellation))) error = asio::error::operation_aborted;
    if (!error) error = co_await fillSession(self);
    if (error) co_return failure(self->failureOf(error));
    if (self->isClosed_ || isCancelled(cancellation)) co_return failure(cancelled());
  }
}

asio::awaitable<asio::error_code> RTMPSocket::Transport::fillSession(Self self) {
  const std::span<std::uint8_t> space = self->session_->inputSpace();
  asio::error_code error;
  const std::size_t size = co_await self->socket_.async_read_some(asio::buffer(space.data(), space.size()),
                                                                  asio::redirect_error(asio::use_awaitable, error));
  self->session_->received(size);
  co_return error;
}

/// Sends all encrypted bytes that wait. One coroutine does it at a time, for all.
asio::awaitable<asio::error_code> RTMPSocket::Transport::flushSession(Self self) {
  const asio::cancellation_state cancellation = co_await asio::this_coro::cancellation_state;
  while (self->isFlushing_) {
    co_await self->flushed_.wait();
    if (isCancelled(cancellation)) co_return asio::error::operation_aborted;
  }
  self->isFlushing_ = true;
  asio::error_code error;
  while (!error) {
    const ByteView output = self->session_->output();
    if (output.empty()) break;
    const std::size_t sent = co_await self->socket_.async_write_some(asio::buffer(output.data(), output.size()),
                                                                     asio::redirect_error(asio::use_awaitable, error));
    self->session_->sent(sent);
    if (!error && isCancelled(cancellation)) error = asio::error::operation_aborted;
  }
  self->isFlushing_ = false;
  self->flushed_.notify();
  co_return error;
}

/// What fits into the kernel's buffer without waiting; nothing while a coroutine is sending.
void RTMPSocket::Transport::flushAtOnce() {
  asio::error_code error;
  while (!isFlushing_ && !error) {
    const ByteView output = session_->output();
    if (output.empty()) return;
    session_->sent(socket_.write_some(asio::buffer(output.data(), output.size()), error));
  }
}

asio::awaitable<void> RTMPSocket::Transport::finishSession(Self self) {
  const asio::error_code error = co_await flushSession(self);
  asio::error_code ignored;
  if (!error && !self->isClosed_) self->socket_.shutdown(tcp::socket::shutdown_send, ignored);
}

void RTMPSocket::Transport::finish() {
  if (isClosed_ || !isConnected_) return;
  asio::error_code ignored;
  if (!session_) {
    socket_.shutdown(tcp::socket::shutdown_send, ignored);
    return;
  }
  session_->finish();
  asio::co_spawn(socket_.get_executor(), finishSession(shared_from_this()), asio::detached);
}

void RTMPSocket::Transport::close() {
  if (std::exchange(isClosed_, true)) return;
  resolver_.cancel();
  dialer_.cancel();
  asio::error_code ignored;
  if (session_ && isConnected_ && !isFlushing_) {
    session_->finish();
    flushAtOnce();
  }
  socket_.shutdown(tcp::socket::shutdown_send, ignored);
  socket_.close(ignored);
  flushed_.notify();
}

RTMPSocket::RTMPSocket(asio::any_io_executor executor, Options options)
    : transport_(std::make_shared<Transport>(executor, std::move(options))) {}

RTMPSocket::~RTMPSocket() {
  transport_->close();
}

asio::awaitable<Result<void, RTMPSocketFailure>> RTMPSocket::connect(std::string host, std::uint16_t port) {
  return Transport::connect(transport_, std::move(host), port);
}

asio::awaitable<Result<void, RTMPSocketFailure>> RTMPSocket::send(ByteView data) {
  return Transport::send(transport_, data);
}

asio::awaitable<Result<ByteView, RTMPSocketFailure>> RTMPSocket::recv() {
  return Transport::recv(transport_);
}

void RTMPSocket::finish() {
  transport_->finish();
}

void RTMPSocket::close() {
  transport_->close();
}

std::uint64_t RTMPSocket::sentBytes() const {
  return transport_->sentBytes.load(std::memory_order_relaxed);
}

std::uint64_t RTMPSocket::receivedBytes() const {
  return transport_->receivedBytes.load(std::memory_order_relaxed);
}

}  // namespace vellora
