#pragma once

#include <asio/awaitable.hpp>
#include <asio/steady_timer.hpp>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "rtmp/RTMPSendQueue.h"
#include "rtmp/RTMPSession.h"
#include "rtmp/RTMPStream.h"

namespace vellora {

/// What a stream is made of. The coroutines run on the strand of the connection; frames and settings come from any
/// thread and are guarded by a mutex.
class RTMPStream::State : public RTMPConnection::Session::StreamListener, public std::enable_shared_from_this<State> {
 public:
  /// How long `close` waits for queued frames, and then for the last commands.
  static constexpr std::chrono::milliseconds flushTime{700};
  static constexpr std::chrono::milliseconds commandTime{150};

  explicit State(std::shared_ptr<RTMPConnection::Session> session);

  const asio::strand<asio::any_io_executor>& strand() const { return session_->strand(); }

  asio::awaitable<Result<void, RTMPFailure>> createStream();
  asio::awaitable<Result<RTMPResponse, RTMPFailure>> publish(std::string name, HowToPublish type);
  asio::awaitable<void> close();
  asio::awaitable<void> waitUntilQueuedBelow(std::size_t bytes);

  void setVideoSettings(RTMPVideoSettings settings);
  void setAudioSettings(RTMPAudioSettings settings);
  void setVideoInputBufferCounts(std::size_t count);
  AMFArray metadata() const;
  RTMPAppendResult append(const RTMPVideoFrame& frame);
  RTMPAppendResult append(const RTMPAudioFrame& frame);
  RTMPQueueState queued() const;
  std::size_t dropQueuedVideo();

 private:
  void streamStatus(const RTMPStatus& status) override;
  void commandRefused(std::int64_t transactionId, const RTMPFailure& why) override;
  void connectionClosed(const RTMPFailure& why) override;
  void startPublishing();
  void stopPublishing();

  // With the mutex held:
  AMFArray makeMetadata() const;
  /// Puts metadata and decoder configurations in front of the next frame where they have changed.
  bool pushConfiguration();
  /// From the first frame of the stream on.
  std::chrono::microseconds streamTime(std::chrono::microseconds time);
  RTMPOutgoing media(RTMPMessageType type, RTMPOutgoing::Kind kind, Bytes payload) const;

  const std::shared_ptr<RTMPConnection::Session> session_;

  // On the strand:
  std::uint32_t streamId_ = 0;
  std::string name_;
  std::int64_t publishTransaction_ = 0;
  std::optional<asio::steady_timer> publishTimer_;
  std::optional<Result<RTMPResponse, RTMPFailure>> publishOutcome_;

  mutable std::mutex mutex_;
  std::shared_ptr<RTMPSendQueue> queue_;  ///< null unless publishing
  std::uint32_t publishedId_ = 0;
  std::optional<RTMPVideoSettings> video_;
  std::optional<RTMPAudioSettings> audio_;
  bool videoChanged_ = false;
  bool audioChanged_ = false;
  std::size_t videoInputBufferCounts_ = 0;
  bool waitsForKeyFrame_ = false;
  std::optional<std::chrono::microseconds> origin_;
  std::shared_ptr<RTMPMediaClock> videoClock_ = std::make_shared<RTMPMediaClock>();
  std::shared_ptr<RTMPMediaClock> audioClock_ = std::make_shared<RTMPMediaClock>();
};

}  // namespace vellora
