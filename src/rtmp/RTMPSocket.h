#pragma once

#include <asio/any_io_executor.hpp>
#include <asio/awaitable.hpp>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "base/Result.h"
#include "rtmp/RTMPSocketFailure.h"
#include "rtmp/wire/Bytes.h"

namespace vellora {

/// What the bytes are worth to the network: live media before bulk.
enum class RTMPQualityOfService { background, standard, live };
enum class RTMPSecurityLevel { none, tls };

/// The byte transport: TCP, or TLS 1.2 and up over it with the system's trust store, the host name (or address) checked
/// and named to the server. There is no way to leave the verification out; `authorities` adds a file of own ones (PEM).
///
/// Used from one executor, which should be a strand: one `send` and one `recv` at a time, `close` at any time. Every
/// operation ends with `cancelled` soon after `close`, and can be cancelled through its coroutine.
class RTMPSocket {
 public:
  struct Options {
    RTMPQualityOfService qualityOfService = RTMPQualityOfService::live;
    RTMPSecurityLevel securityLevel = RTMPSecurityLevel::none;
    std::filesystem::path authorities{};
  };
  /// One received block at most, in bytes.
  static constexpr std::size_t maximumBlock = 64U << 10;
  /// What the kernel may hold back before `send` waits, so that what is queued is known here and not hidden there.
  static constexpr int unsentInKernel = 128 << 10;

  RTMPSocket(asio::any_io_executor executor, Options options);
  ~RTMPSocket();
  RTMPSocket(const RTMPSocket&) = delete;
  RTMPSocket& operator=(const RTMPSocket&) = delete;

  /// Tries every address of the host, IPv6 and IPv4, and ends with the TLS handshake. `host` without brackets.
  asio::awaitable<Result<void, RTMPSocketFailure>> connect(std::string host, std::uint16_t port);
  /// All of `data`, which has to stay until the end. Cancelled on the way, it closes the socket: nobody knows what has
  /// left.
  asio::awaitable<Result<void, RTMPSocketFailure>> send(ByteView data);
  /// The next block, as it comes; valid until the next call.
  asio::awaitable<Result<ByteView, RTMPSocketFailure>> recv();
  /// Says that nothing more will be sent (close_notify, FIN), after a `send` that has ended; receiving goes on.
  void finish();
  /// Says the end to the other side as far as that goes without waiting (FIN; close_notify when nothing is under way),
  /// and ends all operations.
  void close();

  std::uint64_t sentBytes() const;  ///< handed to the kernel
  std::uint64_t receivedBytes() const;

 private:
  class Transport;
  std::shared_ptr<Transport> transport_;
};

}  // namespace vellora
