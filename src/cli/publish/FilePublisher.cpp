#include "cli/publish/FilePublisher.h"

#include <asio/co_spawn.hpp>
#include <asio/detached.hpp>
#include <asio/post.hpp>
#include <asio/redirect_error.hpp>
#include <asio/use_awaitable.hpp>
#include <utility>

namespace vellora {
namespace {

using namespace std::chrono_literals;

/// What is queued when the server, and not the clock, sets the pace: enough to keep the network busy while the file is
/// read, little enough to stay in the processor's cache.
constexpr std::size_t fullQueue = 1U << 20;
constexpr std::size_t refillQueue = 256U << 10;
/// The network gets its turn after this many bytes, also when the clock wants more at once.
constexpr std::size_t bytesInARow = 1U << 20;
constexpr std::chrono::milliseconds longestClose{1000};

std::optional<RTMPVideoCodec> videoCodecOf(const MediaTrack& track) {
  if (track.codec == "h264") return RTMPVideoCodec::h264;
  if (track.codec == "hevc") return RTMPVideoCodec::hevc;
  return std::nullopt;
}

std::optional<RTMPAudioCodec> audioCodecOf(const MediaTrack& track) {
  if (track.codec == "aac") return RTMPAudioCodec::aac;
  if (track.codec == "opus") return RTMPAudioCodec::opus;
  return std::nullopt;
}

bool isEncodedAgain(const std::optional<MediaTrack>& track) {
  return track && !track->encodedFrom.empty();
}

RTMPConnection::Options connectionOptions(const PublishRequest& request) {
  RTMPConnection::Options options;
  options.fourCcList = RTMPConnection::supportedFourCcList();
  options.videoFourCcInfoMap = RTMPConnection::supportedVideoFourCcInfoMap();
  options.audioFourCcInfoMap = RTMPConnection::supportedAudioFourCcInfoMap();
  options.authorities = request.authorities;
  options.user = request.user;
  options.password = request.password;
  return options;
}

}  // namespace

FilePublisher::FilePublisher(asio::io_context& context, MediaReader& reader, PublishRequest request)
    : context_(context),
      reader_(reader),
      request_(std::move(request)),
      turn_(context),
      flowTick_(context),
      closing_(context),
      changed_(context.get_executor()),
      timeline_(reader.video() ? reader.video()->frameRate : 0) {
  if (isEncodedAgain(reader.video()) || isEncodedAgain(reader.audio())) readerThread_.emplace(1U);
}

FilePublisher::~FilePublisher() = default;

asio::awaitable<PublishOutcome> FilePublisher::run() {
  if (!isOver()) co_await establish();
  if (!isOver()) {
    isStreaming_ = true;
    isWatching_ = true;
    asio::co_spawn(context_, watchServer(), asio::detached);
    asio::co_spawn(context_, watchFlow(), asio::detached);
    co_await sendFrames();
    if (!isOver()) co_await stream_->waitUntilQueuedBelow(1);
    if (!isOver() && !connection_->connected()) lost_ = true;
  }
  co_await close();
  flowTick_.cancel();
  if (lost_ && !failure_ && !stopped_) failure_ = connectionLost(complaint_, request_.server);

  PublishOutcome outcome;
  outcome.failure = failure_;
  if (failure_) {
    outcome.state = PublishOutcome::State::failed;
  } else if (stopped_) {
    outcome.state = PublishOutcome::State::interrupted;
  }
  co_return outcome;
}

void FilePublisher::stop() {
  if (isOver()) return;
  stopped_ = true;
  turn_.cancel();
  asio::co_spawn(context_, close(), asio::detached);
}

PublishProgress FilePublisher::progress() const {
  PublishProgress progress = progress_;
  if (connection_) progress.bytes = connection_->sentBytes();
  if (stream_) progress.queued = stream_->queued().duration;
  return progress;
}

/// Up to the point where frames may flow; `failure_` says why not.
asio::awaitable<void> FilePublisher::establish() {
  connection_ = RTMPConnection::create(context_.get_executor(), connectionOptions(request_));
  const auto connected = co_await connection_->connect(request_.server.text);
  if (isOver()) co_return;
  if (!connected) {
    const bool isShaken = connection_->readyState() == RTMPConnection::ReadyState::handshakeDone;
    fail(publishFailure(connected.error(), isShaken ? PublishStep::connecting : PublishStep::shakingHands,
                        request_.server));
    co_return;
  }
  stream_ = std::make_unique<RTMPStream>(connection_);
  const auto created = co_await stream_->createStream();
  if (isOver()) co_return;
  if (!created) {
    fail(publishFailure(created.error(), PublishStep::startingStream, request_.server));
    co_return;
  }
  announceTracks();
  if (isOver()) co_return;
  const auto published = co_await stream_->publish(request_.streamName);
  if (isOver() || published) co_return;
  fail(publishFailure(published.error(), PublishStep::startingStream, request_.server));
}

void FilePublisher::announceTracks() {
  if (const auto& track = reader_.video()) {
    const auto codec = videoCodecOf(*track);
    if (!codec) return fail({"unsupported", "video of the kind " + track->codec + " cannot be published"});
    stream_->setVideoSettings({*codec, track->width, track->height, track->frameRate,
                               static_cast<double>(track->bitRate), track->configuration});
  }
  if (const auto& track = reader_.audio()) {
    const auto codec = audioCodecOf(*track);
    if (!codec) return fail({"unsupported", "audio of the kind " + track->codec + " cannot be published"});
    stream_->setAudioSettings({*codec, static_cast<double>(track->sampleRate), track->channels,
                               static_cast<double>(track->bitRate), track->configuration});
  }
}

asio::awaitable<void> FilePublisher::sendFrames() {
  while (!isOver()) {
    ReadPacket packet = nullptr;
    if (readerThread_) {
      packet = co_await readElsewhere();
    } else {
      packet = readNext();
    }
    if (isOver()) co_return;
    if (!packet) {
      fail(publishFailure(packet.error()));
      co_return;
    }
    if (*packet == nullptr) co_return;
    const MediaPacket placed = timeline_.place(**packet);
    if (request_.asFastAsPossible) {
      if (stream_->queued().bytes > fullQueue) co_await stream_->waitUntilQueuedBelow(refillQueue);
    } else {
      co_await waitForTurn(placed.decodeTime);
    }
    if (isOver()) co_return;
    append(placed);
    if (!request_.asFastAsPossible) keepQueueShort();
  }
}

/// The next packet of this round or the next one; null at the end.
FilePublisher::ReadPacket FilePublisher::readNext() {
  ReadPacket packet = reader_.read();
  if (!packet || *packet != nullptr || !request_.loop) return packet;
  if (const auto rewound = reader_.rewind(); !rewound) return failure(rewound.error());
  timeline_.startAgain();
  return reader_.read();
}

asio::awaitable<FilePublisher::ReadPacket> FilePublisher::readElsewhere() {
  const auto read = [this]() -> asio::awaitable<ReadPacket> { co_return readNext(); };
  co_return co_await asio::co_spawn(readerThread_->get_executor(), read, asio::use_awaitable);
}

asio::awaitable<void> FilePublisher::waitForTurn(std::chrono::microseconds mediaTime) {
  if (const auto wake = clock_.wakeTime(mediaTime, PacingClock::Time::clock::now())) {
    asio::error_code ignored;
    turn_.expires_at(*wake);
    co_await turn_.async_wait(asio::redirect_error(asio::use_awaitable, ignored));
    appendedInARow_ = 0;
  } else if (appendedInARow_ > bytesInARow) {
    co_await asio::post(context_, asio::use_awaitable);
    appendedInARow_ = 0;
  }
}

void FilePublisher::append(const MediaPacket& packet) {
  const bool isVideo = packet.kind == MediaKind::video;
  const RTMPAppendResult result =
      isVideo
          ? stream_->append(RTMPVideoFrame{packet.decodeTime, packet.presentationTime, packet.isKeyFrame, packet.data})
          : stream_->append(RTMPAudioFrame{packet.presentationTime, packet.data});
  appendedInARow_ += packet.data.size();
  progress_.time = timeline_.end();
  switch (result) {
    case RTMPAppendResult::queued:
      ++(isVideo ? progress_.videoFrames : progress_.audioFrames);
      return;
    case RTMPAppendResult::waitsForKeyFrame:
    case RTMPAppendResult::queueFull:
      ++progress_.droppedFrames;
      return;
    case RTMPAppendResult::notPublishing:
      lost_ = true;
      return;
  }
}

/// A network that is too slow gets whole groups of frames less, never a part of one.
void FilePublisher::keepQueueShort() {
  const RTMPQueueState queue = stream_->queued();
  if (queue.duration <= request_.longestQueue || queue.videoFrames == 0) return;
  const std::size_t dropped = stream_->dropQueuedVideo();
  progress_.droppedFrames += dropped;
  progress_.videoFrames -= std::min<std::uint64_t>(dropped, progress_.videoFrames);
}

/// Notices that the server ends the stream, which may be long before anything more is to be sent.
asio::awaitable<void> FilePublisher::watchServer() {
  for (;;) {
    const std::optional<RTMPStatus> status = co_await connection_->nextStatus();
    if (!status) break;
    const bool isStreamError = status->level == "error" && status->code.starts_with("NetStream.");
    // What the server complained of last explains its end better than the end itself.
    const bool isEnd = status->code == RTMPConnection::textOf(RTMPConnection::Code::connectClosed);
    if (status->level == "error" && !(isEnd && complaint_)) complaint_ = status;
    if (isStreamError && !isClosing_) fail(connectionLost(status, request_.server));
  }
  if (!isClosing_ && !isOver()) {
    lost_ = true;
    turn_.cancel();
  }
  isWatching_ = false;
  changed_.notify();
}

asio::awaitable<void> FilePublisher::watchFlow() {
  using Clock = std::chrono::steady_clock;
  std::uint64_t sentBefore = 0;
  Clock::time_point lastMove = Clock::now();
  while (!isClosing_) {
    asio::error_code ignored;
    flowTick_.expires_after(500ms);
    co_await flowTick_.async_wait(asio::redirect_error(asio::use_awaitable, ignored));
    const std::uint64_t sent = connection_->sentBytes();
    if (sent != sentBefore || stream_->queued().bytes == 0) lastMove = Clock::now();
    sentBefore = sent;
    if (!isOver() && Clock::now() - lastMove >= request_.longestStall) {
      fail(serverStalled(request_.longestStall, request_.server));
    }
  }
}

/// Ends the stream and the connection. They have done their own part to be quick; `longestClose` is for all together.
asio::awaitable<void> FilePublisher::close() {
  if (!isClosing_) {
    isClosing_ = true;
    closing_.expires_after(longestClose);
    asio::co_spawn(context_, closeAll(), asio::detached);
  }
  asio::error_code ignored;
  if (!isClosed_) co_await closing_.async_wait(asio::redirect_error(asio::use_awaitable, ignored));
  isClosed_ = true;
}

asio::awaitable<void> FilePublisher::closeAll() {
  if (isStreaming_) co_await stream_->close();
  if (connection_) co_await connection_->close();
  while (isWatching_) co_await changed_.wait();
  isClosed_ = true;
  closing_.cancel();
}

void FilePublisher::fail(PublishFailure failure) {
  if (isOver()) return;
  failure_ = std::move(failure);
  turn_.cancel();
  asio::co_spawn(context_, close(), asio::detached);
}

}  // namespace vellora
