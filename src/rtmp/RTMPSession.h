#pragma once

#include <asio/any_io_executor.hpp>
#include <asio/awaitable.hpp>
#include <asio/steady_timer.hpp>
#include <asio/strand.hpp>
#include <atomic>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "rtmp/AsyncSignal.h"
#include "rtmp/RTMPAuthenticator.h"
#include "rtmp/RTMPConnection.h"
#include "rtmp/RTMPLink.h"
#include "rtmp/RTMPURL.h"

namespace vellora {

/// What a connection is made of: the link of the moment, requests that wait for their answers, streams and status
/// events. All of it lives on `strand()`.
class RTMPConnection::Session : public RTMPLink::Owner, public std::enable_shared_from_this<Session> {
 public:
  /// A stream of the connection, told about the status events of its message stream.
  class StreamListener {
   public:
    virtual ~StreamListener() = default;
    virtual void streamStatus(const RTMPStatus& status) = 0;
    /// The server answered a command that was sent without waiting for its answer with an error.
    virtual void commandRefused(std::int64_t transactionId, const RTMPFailure& why) = 0;
    virtual void connectionClosed(const RTMPFailure& why) = 0;
  };

  static constexpr std::size_t maximumStatuses = 64;
  static constexpr std::size_t maximumRequests = 256;
  /// How long `close` waits for what is queued, and then for the server to end too.
  static constexpr std::chrono::milliseconds flushTime{600};
  static constexpr std::chrono::milliseconds finishTime{300};

  Session(asio::any_io_executor executor, Options options);

  const asio::strand<asio::any_io_executor>& strand() const { return strand_; }
  const Options& options() const { return options_; }

  asio::awaitable<Result<RTMPResponse, RTMPFailure>> connect(std::string url, std::vector<AMFValue> arguments);
  asio::awaitable<Result<RTMPResponse, RTMPFailure>> call(std::string commandName, std::vector<AMFValue> arguments);
  asio::awaitable<void> close();
  /// Ends everything at once.
  void abandon();
  asio::awaitable<std::optional<RTMPStatus>> nextStatus();

  /// A command without an answer, on the message stream given. Returns its transaction id.
  std::int64_t send(std::uint32_t streamId, std::string commandName, std::vector<AMFValue> arguments);
  void attach(std::uint32_t streamId, std::weak_ptr<StreamListener> stream);
  void detach(std::uint32_t streamId);
  /// Null before the connection is open.
  const std::shared_ptr<RTMPLink>& link() const { return link_; }
  const std::shared_ptr<RTMPSendQueue>& queue() const { return queue_; }
  bool isConnected() const { return phase_ == Phase::connected; }
  /// Why nothing can be asked for now.
  RTMPFailure notConnected() const;
  /// For any thread.
  RTMPReadyState readyState() const { return static_cast<RTMPReadyState>(countOf(&RTMPLink::readyState)); }
  std::uint64_t sentBytes() const { return countOf(&RTMPLink::sentBytes); }
  std::uint64_t receivedBytes() const { return countOf(&RTMPLink::receivedBytes); }
  std::uint32_t acknowledged() const { return static_cast<std::uint32_t>(countOf(&RTMPLink::acknowledged)); }

 private:
  enum class Phase { fresh, connecting, connected, closed };
  struct Operation {
    explicit Operation(const asio::any_io_executor& executor) : timer(executor) {}
    asio::steady_timer timer;
    std::optional<Result<RTMPResponse, RTMPFailure>> outcome;
  };

  void linkReceived(RTMPMessage message) override;
  void linkFailed(RTMPFailure failure) override;

  asio::awaitable<Result<RTMPResponse, RTMPFailure>> attempt(const RTMPURL& url,
                                                             const std::vector<AMFValue>& arguments);
  AMFObject commandObject(const RTMPURL& url) const;
  /// Sends a command that is answered, and waits for that.
  asio::awaitable<Result<RTMPResponse, RTMPFailure>> request(std::string commandName, std::optional<AMFObject> object,
                                                             std::vector<AMFValue> arguments);
  void sendCommand(std::uint32_t streamId, std::int64_t transactionId, std::string commandName,
                   std::optional<AMFObject> object, std::vector<AMFValue> arguments);
  void commandReceived(RTMPCommandMessage command);
  void statusReceived(std::uint32_t streamId, const RTMPStatus& status);
  void complete(std::int64_t transactionId, Result<RTMPResponse, RTMPFailure> outcome);
  void report(RTMPStatus status);
  /// Ends the link, all requests and streams, and says so.
  void end(const RTMPFailure& why);
  template <class Count>
  std::uint64_t countOf(Count count) const {
    const std::lock_guard lock(linkMutex_);
    return link_ ? static_cast<std::uint64_t>((link_.get()->*count)()) : 0;
  }
  void setLink(std::shared_ptr<RTMPLink> link);

  asio::strand<asio::any_io_executor> strand_;
  const Options options_;
  std::atomic<Phase> phase_ = Phase::fresh;
  std::shared_ptr<RTMPSendQueue> queue_;
  mutable std::mutex linkMutex_;
  std::shared_ptr<RTMPLink> link_;
  std::optional<RTMPFailure> closedBecause_;

  std::int64_t currentTransactionId_ = 0;
  std::map<std::int64_t, std::shared_ptr<Operation>> operations_;
  std::map<std::uint32_t, std::weak_ptr<StreamListener>> streams_;

  std::deque<RTMPStatus> statuses_;
  AsyncSignal statusChanged_;
};

/// The status that is among the values of an answer, if there is one.
std::optional<RTMPStatus> statusAmong(const std::vector<AMFValue>& values);

}  // namespace vellora
