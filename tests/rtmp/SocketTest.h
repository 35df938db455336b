#pragma once

#include <gtest/gtest.h>

#include <asio/awaitable.hpp>
#include <asio/bind_cancellation_slot.hpp>
#include <asio/cancellation_signal.hpp>
#include <asio/co_spawn.hpp>
#include <asio/io_context.hpp>
#include <asio/use_awaitable.hpp>
#include <chrono>
#include <exception>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "rtmp/RTMPSocket.h"
#include "support/ByteServer.h"

namespace vellora::test {

using namespace std::chrono_literals;
using Outcome = Result<void, RTMPSocketFailure>;
using Received = Result<std::string, RTMPSocketFailure>;

/// A coroutine on its way.
template <class T>
class Running {
 public:
  Running(asio::io_context& context, asio::awaitable<T> work) : state_(std::make_shared<State>()) {
    asio::co_spawn(
        context, std::move(work),
        asio::bind_cancellation_slot(state_->signal.slot(), [state = state_](std::exception_ptr exception, T value) {
          state->exception = exception;
          state->value = std::move(value);
        }));
  }
  bool isDone() const { return state_->value.has_value(); }
  void cancel() { state_->signal.emit(asio::cancellation_type::terminal); }
  T take() {
    if (state_->exception) std::rethrow_exception(state_->exception);
    return std::move(*state_->value);
  }

 private:
  struct State {
    asio::cancellation_signal signal;
    std::exception_ptr exception;
    std::optional<T> value;
  };
  std::shared_ptr<State> state_;
};

inline ByteView viewOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// Bytes that tell where each of them belongs.
inline std::string pattern(std::size_t size) {
  std::string bytes(size, '\0');
  std::uint32_t state = 1;
  for (char& byte : bytes) {
    state = state * 1664525U + 1013904223U;
    byte = static_cast<char>(state >> 24);
  }
  return bytes;
}

/// Reads until there are so many bytes.
inline asio::awaitable<Received> receive(RTMPSocket& socket, std::size_t size) {
  std::string bytes;
  while (bytes.size() < size) {
    auto block = co_await socket.recv();
    if (!block) co_return failure(std::move(block.error()));
    bytes.append(reinterpret_cast<const char*>(block->data()), block->size());
  }
  co_return bytes;
}

/// One thread, which is the test's own, runs the coroutines.
class SocketTest : public ::testing::Test {
 protected:
  template <class T>
  Running<T> start(asio::awaitable<T> work) {
    return Running<T>(context_, std::move(work));
  }
  /// The outcome; an exception when it does not come within ten seconds.
  template <class T>
  T finish(Running<T> running) {
    if (!endsWithin(running, 10s)) throw std::runtime_error("an operation did not end");
    return running.take();
  }
  template <class T>
  T run(asio::awaitable<T> work) {
    return finish(start(std::move(work)));
  }
  template <class T>
  bool endsWithin(const Running<T>& running, std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    context_.restart();
    while (!running.isDone() && std::chrono::steady_clock::now() < end) {
      context_.run_one_until(end);
      context_.restart();
    }
    return running.isDone();
  }

  std::unique_ptr<RTMPSocket> make(RTMPSocket::Options options = {}) {
    return std::make_unique<RTMPSocket>(context_.get_executor(), std::move(options));
  }
  std::unique_ptr<RTMPSocket> connected(const ByteServer& server, RTMPSocket::Options options = {}) {
    auto socket = make(std::move(options));
    const Outcome outcome = run(socket->connect("127.0.0.1", server.port()));
    EXPECT_TRUE(outcome) << outcome.error().message;
    return socket;
  }
  RTMPSocketError errorOf(const Received& received) {
    return received ? RTMPSocketError::other : received.error().error;
  }

  asio::io_context context_{1};
};

}  // namespace vellora::test
