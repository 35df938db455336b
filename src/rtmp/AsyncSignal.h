#pragma once

#include <asio/any_io_executor.hpp>
#include <asio/awaitable.hpp>
#include <asio/redirect_error.hpp>
#include <asio/steady_timer.hpp>
#include <asio/use_awaitable.hpp>

namespace vellora {

/// Lets coroutines of one strand wait until something has changed. A waiter looks at what it waits for, waits, and
/// looks again.
class AsyncSignal {
 public:
  explicit AsyncSignal(const asio::any_io_executor& executor)
      : timer_(executor, asio::steady_timer::time_point::max()) {}

  void notify() { timer_.cancel(); }
  /// Ends at the next `notify`, or when the coroutine is cancelled.
  asio::awaitable<void> wait() {
    asio::error_code ignored;
    co_await timer_.async_wait(asio::redirect_error(asio::use_awaitable, ignored));
  }

 private:
  asio::steady_timer timer_;
};

}  // namespace vellora
