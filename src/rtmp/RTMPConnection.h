#pragma once

#include <asio/any_io_executor.hpp>
#include <asio/awaitable.hpp>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/Result.h"
#include "rtmp/RTMPSocket.h"
#include "rtmp/wire/AMFValue.h"
#include "rtmp/wire/RTMPChunk.h"
#include "rtmp/wire/RTMPHandshake.h"
#include "rtmp/wire/RTMPMessageType.h"

namespace vellora {

/// What a server says about a request or a stream.
struct RTMPStatus {
  std::string code;   ///< "NetConnection.Connect.Success"
  std::string level;  ///< "status", "warning" or "error"
  std::string description;
  AMFObject details;  ///< all of it, as received
};

/// The answer to a request.
struct RTMPResponse {
  std::optional<RTMPStatus> status;
  AMFValue commandObject;
  std::vector<AMFValue> arguments;
};

struct RTMPFailure;

/// The client side of one RTMP session. All work runs on a strand of the given executor; every method may be called
/// from any thread, and the coroutines resume on the executor of their caller. Cancelling a coroutine ends its
/// operation.
///
/// A connection is used once: after it has closed, make another one.
class RTMPConnection : public std::enable_shared_from_this<RTMPConnection> {
 public:
  static constexpr std::uint16_t defaultPort = 1935;
  static constexpr std::uint16_t defaultSecurePort = 443;
  static constexpr const char* defaultFlashVer = "FMLE/3.0 (compatible; FMSc/1.0)";
  static constexpr std::size_t defaultChunkSize = 8192;
  static constexpr std::int64_t defaultWindowSize = 250000;
  static constexpr int defaultCapabilities = 239;
  static constexpr RTMPObjectEncoding defaultObjectEncoding = RTMPObjectEncoding::amf0;
  static constexpr std::uint64_t defaultRequestTimeout = 3000;  ///< milliseconds
  static constexpr std::uint64_t defaultTimeout = 15000;        ///< milliseconds for socket, TLS and handshake
  static const std::vector<std::string>& supportedFourCcList();
  static const AMFObject& supportedVideoFourCcInfoMap();
  static const AMFObject& supportedAudioFourCcInfoMap();

  using ReadyState = RTMPReadyState;

  enum class Code {
    callBadVersion,
    callFailed,
    callProhibited,
    connectAppshutdown,
    connectClosed,
    connectFailed,
    connectIdleTimeOut,
    connectInvalidApp,
    connectNetworkChange,
    connectRejected,
    connectSuccess,
  };
  static std::string_view textOf(Code code);
  /// "status" for success, "error" otherwise.
  static std::string_view levelOf(Code code);

  enum class Error {
    unsupportedCommand,   ///< an address that is not RTMP, or a command the server does not know
    socketErrorOccurred,  ///< the transport failed, or the server broke the protocol
    requestFailed,        ///< the server said no
    invalidState,         ///< not now: not connected, connected twice, closed meanwhile
    connectionTimedOut,
    requestTimedOut,
  };

  struct Options {
    std::optional<std::string> swfUrl{};
    std::optional<std::string> pageUrl{};
    std::string flashVer = defaultFlashVer;
    std::vector<std::string> fourCcList{};
    std::optional<AMFObject> videoFourCcInfoMap{};
    std::optional<AMFObject> audioFourCcInfoMap{};
    std::optional<double> capsEx{};
    std::chrono::milliseconds timeout{defaultTimeout};
    std::chrono::milliseconds requestTimeout{defaultRequestTimeout};
    std::size_t chunkSize = defaultChunkSize;
    RTMPQualityOfService qualityOfService = RTMPQualityOfService::live;
    std::filesystem::path authorities{};  ///< own certificate authorities, PEM; empty for none
    std::string user{};                   ///< for servers that ask for it; those of the address come first
    std::string password{};
    std::size_t maximumQueue = 64U << 20;  ///< bytes waiting to leave; more are refused
  };

  static std::shared_ptr<RTMPConnection> create(asio::any_io_executor executor, Options options);
  ~RTMPConnection();
  RTMPConnection(const RTMPConnection&) = delete;
  RTMPConnection& operator=(const RTMPConnection&) = delete;

  /// Opens the socket, shakes hands and sends "connect" with `arguments` behind the command object. Logs in where the
  /// server asks for it ("adobe" scheme), which takes further connections to the same server.
  asio::awaitable<Result<RTMPResponse, RTMPFailure>> connect(std::string url, std::vector<AMFValue> arguments = {});
  /// A request with a fresh transaction id, and its answer.
  asio::awaitable<Result<RTMPResponse, RTMPFailure>> call(std::string commandName,
                                                          std::vector<AMFValue> arguments = {});
  /// Sends what streams queued for as long as that goes (below a second), and ends the session. Also from any other
  /// state; pending operations end with `invalidState`.
  asio::awaitable<void> close();
  /// The next status event: what the server says, and connection events, the last of which is
  /// "NetConnection.Connect.Closed"; nothing after that. At most 64 wait, the oldest go first.
  asio::awaitable<std::optional<RTMPStatus>> nextStatus();

  bool connected() const;
  ReadyState readyState() const;
  std::uint64_t sentBytes() const;
  std::uint64_t receivedBytes() const;
  /// What the server has acknowledged, in bytes of the whole connection (modulo 2^32, as it says it).
  std::uint32_t acknowledged() const;

 private:
  friend class RTMPStream;
  class Session;
  explicit RTMPConnection(std::shared_ptr<Session> session);
  std::shared_ptr<Session> session_;
};

/// Why an operation of a connection or a stream failed.
struct RTMPFailure {
  RTMPConnection::Error error = RTMPConnection::Error::requestFailed;
  std::string message;                        ///< one English sentence for people, without a full stop
  std::optional<RTMPStatus> status{};         ///< what the server said
  std::optional<RTMPSocketFailure> socket{};  ///< what the transport said
  std::optional<RTMPChunkError> protocol{};   ///< how the server broke the protocol
};

}  // namespace vellora
