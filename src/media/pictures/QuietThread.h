#pragma once

#include <functional>
#include <optional>
#include <utility>

namespace vellora {

/// Runs `work`, which does not throw, on a thread of its own whose standard error leads nowhere, and waits for it: some
/// libraries write about every damaged file there and cannot be told not to. The program's other threads are not
/// touched. `work` has no open files but the standard ones.
void runQuietly(const std::function<void()>& work);

/// The same with a result.
template <class Work>
auto quietly(const Work& work) {
  std::optional<decltype(work())> result;
  runQuietly([&] { result.emplace(work()); });
  return std::move(*result);
}

}  // namespace vellora
