#pragma once

#include <asio/awaitable.hpp>
#include <asio/io_context.hpp>
#include <asio/posix/stream_descriptor.hpp>

namespace vellora {

/// Ctrl-C and the other polite requests to end. The first one is told; from then on each ends the program at once, also
/// when it hangs. One at a time in a program.
class StopSignals {
 public:
  explicit StopSignals(asio::io_context& context);
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

  /// Ends with true once the first signal has come, with false when this machine leaves no way to wait for it.
  asio::awaitable<bool> first();

 private:
  asio::posix::stream_descriptor arrivals_;
};

}  // namespace vellora
