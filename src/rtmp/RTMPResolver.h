#pragma once

#include <asio/any_io_executor.hpp>
#include <asio/awaitable.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/posix/stream_descriptor.hpp>
#include <cstdint>
#include <string>
#include <vector>

#include "base/Result.h"
#include "rtmp/RTMPSocketFailure.h"

namespace vellora {

/// Finds the addresses of a host. Numbers are read at once; for names the system is asked on a thread of its own, which
/// is left behind when nobody waits for it any more, because the system's look-up cannot be cut short.
///
/// Used from one executor; has to stay until `resolve` has ended.
class RTMPResolver {
 public:
  using Endpoints = std::vector<asio::ip::tcp::endpoint>;
  static constexpr std::size_t maximumAddresses = 16;

  explicit RTMPResolver(const asio::any_io_executor& executor) : answered_(executor) {}

  /// In the system's order, but with the two families in turns (RFC 8305, 4). Never empty.
  asio::awaitable<Result<Endpoints, RTMPSocketFailure>> resolve(std::string host, std::uint16_t port);
  void cancel();

  static Endpoints inTurns(const Endpoints& endpoints);

 private:
  asio::posix::stream_descriptor answered_;
};

}  // namespace vellora
