#pragma once

#include <asio/any_io_executor.hpp>
#include <asio/awaitable.hpp>
#include <asio/error_code.hpp>
#include <asio/ip/tcp.hpp>
#include <chrono>
#include <memory>
#include <vector>

#include "base/Result.h"
#include "rtmp/RTMPSocket.h"

namespace vellora {

/// Connects to whichever of several addresses answers first (RFC 8305, 5): the next one is tried when the last one has
/// failed or has not answered for a moment, while the earlier ones stay in the race.
///
/// Used from one executor; has to stay until `dial` has ended.
class RTMPDialer {
 public:
  using Endpoints = std::vector<asio::ip::tcp::endpoint>;
  static constexpr std::chrono::milliseconds headStart{250};
  /// A connection whose other end acknowledges nothing, or takes nothing, for this long is broken.
  static constexpr std::chrono::milliseconds silenceLimit{30000};

  RTMPDialer(asio::any_io_executor executor, RTMPQualityOfService qualityOfService);
  ~RTMPDialer();
  RTMPDialer(const RTMPDialer&) = delete;
  RTMPDialer& operator=(const RTMPDialer&) = delete;

  /// A connected socket, not blocking, or the error that tells most: an address that refused before one without a
  /// route.
  asio::awaitable<Result<asio::ip::tcp::socket, asio::error_code>> dial(Endpoints endpoints);
  void cancel();

 private:
  struct Race;
  void start(const asio::ip::tcp::endpoint& endpoint);

  asio::any_io_executor executor_;
  RTMPQualityOfService qualityOfService_;
  std::shared_ptr<Race> race_;
};

}  // namespace vellora
