#pragma once

#include <asio/associated_cancellation_slot.hpp>
#include <asio/associated_executor.hpp>
#include <asio/async_result.hpp>
#include <asio/awaitable.hpp>
#include <asio/bind_cancellation_slot.hpp>
#include <asio/bind_executor.hpp>
#include <asio/cancellation_signal.hpp>
#include <asio/co_spawn.hpp>
#include <asio/post.hpp>
#include <asio/this_coro.hpp>
#include <asio/use_awaitable.hpp>
#include <exception>
#include <memory>
#include <type_traits>
#include <utility>

namespace vellora {
namespace detail {

template <class T>
struct Completion {
  using Signature = void(std::exception_ptr, T);
};
template <>
struct Completion<void> {
  using Signature = void(std::exception_ptr);
};

template <class T>
asio::awaitable<T> withoutThrowing(asio::awaitable<T> work) {
  // Cancellation is seen in error codes; the work has things to put in order after it.
  co_await asio::this_coro::throw_if_cancelled(false);
  if constexpr (std::is_void_v<T>)
    co_await std::move(work);
  else
    co_return co_await std::move(work);
}

/// Cancels work on its own strand: a slot belongs to one executor, and that of the caller runs beside the strand.
template <class Strand>
std::shared_ptr<asio::cancellation_signal> cancellationOn(const Strand& strand, asio::cancellation_slot callers) {
  auto signal = std::make_shared<asio::cancellation_signal>();
  if (!callers.is_connected()) return signal;
  callers.assign([strand, weak = std::weak_ptr(signal)](asio::cancellation_type type) {
    asio::post(strand, [weak, type] {
      if (const auto alive = weak.lock()) alive->emit(type);
    });
  });
  return signal;
}

}  // namespace detail

/// Runs `work` on `strand` and comes back to the caller's executor. Cancelling the caller cancels the work, which still
/// comes to its own end.
template <class Strand, class T>
asio::awaitable<T> onStrand(const Strand& strand, asio::awaitable<T> work) {
  const auto initiate = [](auto handler, const Strand& target, asio::awaitable<T> awaited) {
    const auto signal = detail::cancellationOn(target, asio::get_associated_cancellation_slot(handler));
    const auto executor = asio::get_associated_executor(handler, target);
    auto finish = [signal, handler = std::move(handler)](auto&&... results) mutable {
      std::move(handler)(std::forward<decltype(results)>(results)...);
    };
    asio::co_spawn(target, detail::withoutThrowing(std::move(awaited)),
                   asio::bind_cancellation_slot(signal->slot(), asio::bind_executor(executor, std::move(finish))));
  };
  co_return co_await asio::async_initiate<const asio::use_awaitable_t<>, typename detail::Completion<T>::Signature>(
      initiate, asio::use_awaitable, strand, std::move(work));
}

}  // namespace vellora
