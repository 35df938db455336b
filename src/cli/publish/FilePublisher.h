#pragma once

#include <asio/awaitable.hpp>
#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>
#include <asio/thread_pool.hpp>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "cli/publish/LoopTimeline.h"
#include "cli/publish/PacingClock.h"
#include "cli/publish/PublishFailure.h"
#include "media/movies/MediaReader.h"
#include "rtmp/AsyncSignal.h"
#include "rtmp/RTMPConnection.h"
#include "rtmp/RTMPStream.h"
#include "rtmp/RTMPURL.h"

namespace vellora {

struct PublishRequest {
  RTMPURL server;
  std::string streamName;
  std::string user;
  std::string password;
  std::filesystem::path authorities;  ///< own certificate authorities, empty for none
  bool loop = false;                  ///< from the start again at the end, until stopped
  bool asFastAsPossible = false;      ///< as the server takes it, not as it plays
  /// Media that may wait to leave; when more does, all video that waits is dropped up to the next key frame.
  std::chrono::milliseconds longestQueue{5000};
  /// For how long the network may take nothing, before the stream counts as lost.
  std::chrono::seconds longestStall{30};
};

/// How far a stream has come.
struct PublishProgress {
  std::chrono::microseconds time{};  ///< of the media, of all rounds
  std::uint64_t bytes = 0;           ///< sent, with all that RTMP adds
  std::chrono::milliseconds queued{};
  std::uint64_t videoFrames = 0;  ///< handed to the connection
  std::uint64_t audioFrames = 0;
  std::uint64_t droppedFrames = 0;
};

struct PublishOutcome {
  enum class State { done, interrupted, failed };
  State state = State::done;
  std::optional<PublishFailure> failure{};
};

/// Publishes one open media file as one stream. Everything runs on the thread of `context`, but the reading of media
/// that has to be encoded again: that has a thread of its own, so that the network is never kept waiting for a codec.
class FilePublisher {
 public:
  /// `reader` is used by this alone until it goes.
  FilePublisher(asio::io_context& context, MediaReader& reader, PublishRequest request);
  ~FilePublisher();
  FilePublisher(const FilePublisher&) = delete;
  FilePublisher& operator=(const FilePublisher&) = delete;

  /// Connects, streams to the end and closes; once. What waits at the end is still sent.
  asio::awaitable<PublishOutcome> run();
  /// Ends the stream properly within about a second, in whatever state it is.
  void stop();
  PublishProgress progress() const;

 private:
  using ReadPacket = Result<const MediaPacket*, MediaFailure>;

  asio::awaitable<void> establish();
  void announceTracks();
  asio::awaitable<void> sendFrames();
  ReadPacket readNext();
  asio::awaitable<ReadPacket> readElsewhere();
  asio::awaitable<void> waitForTurn(std::chrono::microseconds mediaTime);
  void append(const MediaPacket& packet);
  void keepQueueShort();
  asio::awaitable<void> watchServer();
  asio::awaitable<void> watchFlow();
  asio::awaitable<void> close();
  asio::awaitable<void> closeAll();
  void fail(PublishFailure failure);
  bool isOver() const { return stopped_ || failure_ || lost_; }

  asio::io_context& context_;
  MediaReader& reader_;
  const PublishRequest request_;
  std::optional<asio::thread_pool> readerThread_;
  std::shared_ptr<RTMPConnection> connection_;
  std::unique_ptr<RTMPStream> stream_;
  asio::steady_timer turn_;
  asio::steady_timer flowTick_;
  asio::steady_timer closing_;
  AsyncSignal changed_;  ///< `isWatching_`
  LoopTimeline timeline_;
  PacingClock clock_;
  std::size_t appendedInARow_ = 0;  ///< bytes since the network had its turn
  PublishProgress progress_;

  std::optional<RTMPStatus> complaint_;
  std::optional<PublishFailure> failure_;
  bool stopped_ = false;
  bool lost_ = false;  ///< the connection has gone; `failure_` follows
  bool isStreaming_ = false;
  bool isWatching_ = false;
  bool isClosing_ = false;
  bool isClosed_ = false;
};

}  // namespace vellora
