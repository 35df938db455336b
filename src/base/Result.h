#pragma once

#include <tl/expected.hpp>

namespace vellora {

/// The outcome of an operation whose failure the caller has to look at: a value or a typed error.
template <class T, class E>
using Result = tl::expected<T, E>;

/// Makes the failed half of a Result: `return failure(CaptureError::NoDisplay);`
template <class E>
[[nodiscard]] auto failure(E&& error) {
  return tl::make_unexpected(std::forward<E>(error));
}

}  // namespace vellora
