#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <asio/awaitable.hpp>
#include <asio/bind_cancellation_slot.hpp>
#include <asio/cancellation_signal.hpp>
#include <asio/co_spawn.hpp>
#include <asio/post.hpp>
#include <asio/strand.hpp>
#include <asio/thread_pool.hpp>
#include <chrono>
#include <exception>
#include <future>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "rtmp/RTMPConnection.h"
#include "rtmp/RTMPStream.h"
#include "support/ScriptedIngest.h"

namespace vellora::test {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Error = RTMPConnection::Error;

/// A coroutine that runs by itself on a strand of its own.
template <class T>
class Started {
 public:
  Started(asio::thread_pool& pool, asio::awaitable<T> work) : strand_(asio::make_strand(pool.get_executor())) {
    // Lives as long as the coroutine, also when the test has given up waiting.
    const auto done = [signal = signal_, promise = promise_](std::exception_ptr error, auto... result) {
      if (error)
        promise->set_exception(error);
      else
        promise->set_value(std::move(result)...);
    };
    asio::co_spawn(strand_, std::move(work), asio::bind_cancellation_slot(signal_->slot(), done));
  }
  void cancel() {
    asio::post(strand_, [signal = signal_] { signal->emit(asio::cancellation_type::all); });
  }
  bool isReady(std::chrono::milliseconds wait = {}) { return result_.wait_for(wait) == std::future_status::ready; }
  /// Its result; an exception when it does not end within five seconds.
  T get() {
    if (!isReady(5s)) throw std::runtime_error("a coroutine did not end");
    return result_.get();
  }

 private:
  asio::strand<asio::thread_pool::executor_type> strand_;
  std::shared_ptr<asio::cancellation_signal> signal_ = std::make_shared<asio::cancellation_signal>();
  std::shared_ptr<std::promise<T>> promise_ = std::make_shared<std::promise<T>>();
  std::future<T> result_ = promise_->get_future();
};

/// Two threads that run the coroutines of a test.
class RTMPTest : public ::testing::Test {
 protected:
  ~RTMPTest() override {
    pool_.stop();
    pool_.join();
  }

  std::shared_ptr<RTMPConnection> make(RTMPConnection::Options options = {}) {
    return RTMPConnection::create(pool_.get_executor(), std::move(options));
  }
  /// Options for tests of what happens when the time is over.
  static RTMPConnection::Options impatient() {
    RTMPConnection::Options options;
    options.timeout = 150ms;
    options.requestTimeout = 150ms;
    return options;
  }

  template <class T>
  Started<T> start(asio::awaitable<T> work) {
    return Started<T>(pool_, std::move(work));
  }
  template <class T>
  T run(asio::awaitable<T> work) {
    return start(std::move(work)).get();
  }

  std::shared_ptr<RTMPConnection> connected(const ScriptedIngest& ingest, RTMPConnection::Options options = {}) {
    auto connection = make(std::move(options));
    const auto response = run(connection->connect(ingest.url()));
    EXPECT_TRUE(response) << response.error().message;
    return connection;
  }

  /// A stream that publishes H.264 and AAC.
  std::unique_ptr<RTMPStream> publishing(const std::shared_ptr<RTMPConnection>& connection,
                                         const std::string& name = "key") {
    auto stream = std::make_unique<RTMPStream>(connection);
    stream->setVideoSettings({RTMPVideoCodec::h264, 1280, 720, 25, 2'000'000, {1, 2, 3, 4}});
    stream->setAudioSettings({RTMPAudioCodec::aac, 48000, 2, 128'000, {0x11, 0x90}});
    const auto created = run(stream->createStream());
    EXPECT_TRUE(created) << created.error().message;
    const auto published = run(stream->publish(name));
    EXPECT_TRUE(published) << published.error().message;
    return stream;
  }

  /// Closes the stream, the last of `streams`, and waits until the server has read all of it.
  void finish(const ScriptedIngest& ingest, RTMPStream& stream, int streams = 1) {
    run(stream.close());
    const auto isOver = [&] {
      const auto names = ingest.names();
      return std::count(names.begin(), names.end(), "deleteStream") == streams;
    };
    EXPECT_TRUE(ingest.waitUntil(isOver)) << "the stream was not deleted";
  }

  asio::thread_pool pool_{2};
};

/// The codes of all status events that are still to come, up to the end of the connection.
inline asio::awaitable<std::vector<std::string>> remainingStatuses(std::shared_ptr<RTMPConnection> connection) {
  std::vector<std::string> codes;
  while (auto status = co_await connection->nextStatus()) codes.push_back(status->code);
  co_return codes;
}

}  // namespace vellora::test
