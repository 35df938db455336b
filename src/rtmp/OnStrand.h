#pragma once

#include <asio/awaitable.hpp>
#include <asio/co_spawn.hpp>
#include <asio/this_coro.hpp>
#include <asio/use_awaitable.hpp>
#include <type_traits>
#include <utility>

namespace vellora {
namespace detail {

template <class T>
asio::awaitable<T> withoutThrowing(asio::awaitable<T> work) {
  // Cancellation is seen in error codes; the work has things to put in order after it.
  co_await asio::this_coro::throw_if_cancelled(false);
  if constexpr (std::is_void_v<T>)
    co_await std::move(work);
  else
    co_return co_await std::move(work);
}

}  // namespace detail

/// Runs `work` on `strand` and comes back to the caller's executor. Cancelling the caller cancels the work, which still
/// comes to its own end.
template <class Strand, class T>
asio::awaitable<T> onStrand(const Strand& strand, asio::awaitable<T> work) {
  if constexpr (std::is_void_v<T>)
    co_await asio::co_spawn(strand, detail::withoutThrowing(std::move(work)), asio::use_awaitable);
  else
    co_return co_await asio::co_spawn(strand, detail::withoutThrowing(std::move(work)), asio::use_awaitable);
}

}  // namespace vellora
