#pragma once

#include <asio/any_io_executor.hpp>
#include <asio/awaitable.hpp>
#include <asio/steady_timer.hpp>
#include <atomic>
#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "base/Result.h"
#include "rtmp/AsyncSignal.h"
#include "rtmp/RTMPConnection.h"
#include "rtmp/RTMPSendQueue.h"
#include "rtmp/RTMPSocket.h"
#include "rtmp/wire/RTMPChunkBuffer.h"
#include "rtmp/wire/RTMPChunkReader.h"
#include "rtmp/wire/RTMPHandshake.h"
#include "rtmp/wire/RTMPMessage.h"

namespace vellora {

/// One TCP connection that speaks RTMP: handshake, chunks in both directions, and the answers the protocol itself wants
/// (acknowledgements, window sizes, pongs). Lives on a strand; its loops keep it alive until it is closed.
class RTMPLink : public std::enable_shared_from_this<RTMPLink> {
 public:
  class Owner {
   public:
    virtual ~Owner() = default;
    virtual void linkReceived(RTMPMessage message) = 0;
    /// Once, unless `close` ended the link.
    virtual void linkFailed(RTMPFailure failure) = 0;
  };

  /// What is put together for one write, at least, when there is that much.
  static constexpr std::size_t blockSize = 64U << 10;

  RTMPLink(asio::any_io_executor strand, std::weak_ptr<Owner> owner, RTMPSocket::Options socketOptions,
           std::shared_ptr<RTMPSendQueue> queue, std::size_t chunkSize);
  ~RTMPLink();

  /// Connects, shakes hands and announces our chunk size. Fails with `connectionTimedOut` after `timeout`.
  asio::awaitable<Result<void, RTMPFailure>> open(std::string host, std::uint16_t port,
                                                  std::chrono::milliseconds timeout);
  /// Waits until all that is queued has been handed to the network, or the time is over.
  asio::awaitable<void> flush(std::chrono::milliseconds atMost);
  /// Says that nothing more will come, and waits until the other side has read everything and ended too, or the time is
  /// over.
  asio::awaitable<void> finish(std::chrono::milliseconds atMost);
  void close();
  bool isOpen() const { return isOpen_; }
  /// Why it ended by itself.
  const std::optional<RTMPFailure>& failure() const { return failure_; }

  void send(RTMPOutgoing message) { queue_->push(std::move(message)); }
  template <class Record>
  void sendControl(const Record& record) {
    send({Record::type(), RTMPChunkStreamId::control, 0, record.payload});
  }
  /// Ends at the next write, or when the link ends.
  asio::awaitable<void> nextProgress() { return progress_.wait(); }

  RTMPReadyState readyState() const { return readyState_; }
  std::uint64_t sentBytes() const { return socket_.sentBytes(); }
  std::uint64_t receivedBytes() const { return socket_.receivedBytes(); }
  std::uint32_t acknowledged() const { return acknowledged_; }

 private:
  static asio::awaitable<void> receiveLoop(std::shared_ptr<RTMPLink> self);
  static asio::awaitable<void> writeLoop(std::shared_ptr<RTMPLink> self);
  void startWriting();
  /// Puts the chunks of waiting messages into `block_`.
  void fillBlock();
  void begin(RTMPOutgoing message);
  void finishMessage();
  /// False when the link has failed and reading has to end.
  bool process(ByteView block);
  bool processHandshake(ByteView block);
  void dispatch(RTMPMessage message);
  void acknowledge();
  void fail(RTMPFailure failure);
  void failWithProtocol(RTMPChunkError error, std::string message);

  asio::any_io_executor strand_;
  std::weak_ptr<Owner> owner_;
  RTMPSocket socket_;
  std::shared_ptr<RTMPSendQueue> queue_;
  std::size_t chunkSizeC_;
  std::int64_t windowSizeC_ = RTMPConnection::defaultWindowSize;
  std::int64_t windowSizeS_ = RTMPConnection::defaultWindowSize;
  std::uint32_t bandWidth_ = 0;

  std::atomic<RTMPReadyState> readyState_ = RTMPReadyState::uninitialized;
  std::atomic<std::uint32_t> acknowledged_ = 0;
  bool isOpen_ = true;
  bool isReceiving_ = false;
  bool isFinishing_ = false;
  std::optional<RTMPFailure> failure_;

  RTMPHandshake handshake_;
  RTMPChunkReader reader_;
  std::uint64_t sequence_ = 0;  ///< bytes received since the handshake
  std::uint64_t acknowledgedByUs_ = 0;

  RTMPChunkBuffer outputBuffer_;
  std::optional<RTMPChunkSequence> chunks_;
  RTMPOutgoing current_;
  std::map<RTMPChunkStreamId, std::uint32_t> lastStreamIds_;
  Bytes block_;
  std::size_t finishedBytes_ = 0;  ///< payloads that end within `block_`
  bool isWriting_ = false;

  AsyncSignal wakeWriter_;
  AsyncSignal progress_;
  AsyncSignal handshakeMoved_;
  AsyncSignal receiveEnded_;
};

}  // namespace vellora
