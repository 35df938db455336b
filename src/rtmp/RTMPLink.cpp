#include "rtmp/RTMPLink.h"

#include <algorithm>
#include <asio/co_spawn.hpp>
#include <asio/detached.hpp>
#include <asio/post.hpp>
#include <utility>

namespace vellora {
namespace {

double secondsSince1970() {
  return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

RTMPFailure socketFailure(RTMPSocketFailure failure) {
  RTMPFailure result{RTMPConnection::Error::socketErrorOccurred, failure.message};
  result.socket = std::move(failure);
  return result;
}

/// Calls `action` once the time is over, unless it goes before.
class Deadline {
 public:
  template <class Action>
  Deadline(const asio::any_io_executor& executor, std::chrono::milliseconds time, Action action)
      : timer_(std::make_shared<asio::steady_timer>(executor, time)) {
    timer_->async_wait([timer = timer_, action = std::move(action)](asio::error_code error) {
      if (!error && timer->expiry() != asio::steady_timer::time_point::min()) action();
    });
  }
  ~Deadline() { timer_->expires_at(asio::steady_timer::time_point::min()); }
  Deadline(const Deadline&) = delete;
  Deadline& operator=(const Deadline&) = delete;

 private:
  std::shared_ptr<asio::steady_timer> timer_;
};

}  // namespace

RTMPLink::RTMPLink(asio::any_io_executor strand, std::weak_ptr<Owner> owner, RTMPSocket::Options socketOptions,
                   std::shared_ptr<RTMPSendQueue> queue, std::size_t chunkSize)
    : strand_(std::move(strand)),
      owner_(std::move(owner)),
      socket_(strand_, std::move(socketOptions)),
      queue_(std::move(queue)),
      chunkSizeC_(chunkSize),
      wakeWriter_(strand_),
      progress_(strand_),
      handshakeMoved_(strand_),
      receiveEnded_(strand_) {}

RTMPLink::~RTMPLink() = default;

asio::awaitable<Result<void, RTMPFailure>> RTMPLink::open(std::string host, std::uint16_t port,
                                                          std::chrono::milliseconds timeout) {
  bool timedOut = false;
  const Deadline deadline(strand_, timeout, [self = shared_from_this(), &timedOut] {
    timedOut = true;
    self->socket_.close();
    self->handshakeMoved_.notify();
  });
  const auto outcome = [&](RTMPFailure failure) -> Result<void, RTMPFailure> {
    close();
    if (timedOut) failure = {RTMPConnection::Error::connectionTimedOut, "the server did not answer in time"};
    return vellora::failure(std::move(failure));
  };

  auto connected = co_await socket_.connect(std::move(host), port);
  if (!connected) co_return outcome(socketFailure(std::move(connected.error())));
  if (!isOpen_) co_return outcome({RTMPConnection::Error::invalidState, "the connection was closed"});
  handshake_.timestamp = secondsSince1970();
  block_ = handshake_.c0c1packet();
  readyState_ = RTMPReadyState::versionSent;
  auto sent = co_await socket_.send(block_);
  if (!sent) co_return outcome(socketFailure(std::move(sent.error())));
  block_.clear();
  isReceiving_ = true;
  asio::co_spawn(strand_, receiveLoop(shared_from_this()), asio::detached);
  const asio::cancellation_state cancellation = co_await asio::this_coro::cancellation_state;
  while (isOpen_ && !timedOut && readyState_ != RTMPReadyState::handshakeDone) {
    if (cancellation.cancelled() != asio::cancellation_type::none)
      co_return outcome({RTMPConnection::Error::invalidState, "connecting was cancelled"});
    co_await handshakeMoved_.wait();
  }
  if (failure_) co_return outcome(*failure_);
  if (!isOpen_ || timedOut) co_return outcome({RTMPConnection::Error::invalidState, "the connection was closed"});
  co_return Result<void, RTMPFailure>{};
}

asio::awaitable<void> RTMPLink::flush(std::chrono::milliseconds atMost) {
  bool isOver = false;
  const Deadline deadline(strand_, atMost, [self = shared_from_this(), &isOver] {
    isOver = true;
    self->progress_.notify();
  });
  while (isOpen_ && !failure_ && !isOver && !queue_->isEmpty()) co_await progress_.wait();
}

asio::awaitable<void> RTMPLink::finish(std::chrono::milliseconds atMost) {
  if (!isOpen_ || failure_) co_return;
  bool isOver = false;
  const Deadline deadline(strand_, atMost, [self = shared_from_this(), &isOver] {
    isOver = true;
    self->receiveEnded_.notify();
  });
  isFinishing_ = true;
  socket_.finish();
  while (isOpen_ && isReceiving_ && !isOver) co_await receiveEnded_.wait();
}

void RTMPLink::close() {
  if (!std::exchange(isOpen_, false)) return;
  socket_.close();
  wakeWriter_.notify();
  progress_.notify();
  handshakeMoved_.notify();
  receiveEnded_.notify();
}

void RTMPLink::fail(RTMPFailure failure) {
  if (!isOpen_ || failure_) return;
  failure_ = failure;
  const bool wasFinishing = isFinishing_;
  close();
  if (wasFinishing || readyState_ != RTMPReadyState::handshakeDone) return;
  if (const auto owner = owner_.lock()) owner->linkFailed(std::move(failure));
}

void RTMPLink::failWithProtocol(RTMPChunkError error, std::string message) {
  RTMPFailure failure{RTMPConnection::Error::socketErrorOccurred, std::move(message)};
  failure.protocol = error;
  fail(std::move(failure));
}

asio::awaitable<void> RTMPLink::receiveLoop(std::shared_ptr<RTMPLink> self) {
  while (self->isOpen_) {
    auto block = co_await self->socket_.recv();
    if (!block) {
      self->fail(socketFailure(std::move(block.error())));
      break;
    }
    if (!self->process(*block)) break;
  }
  self->isReceiving_ = false;
  self->receiveEnded_.notify();
}

bool RTMPLink::process(ByteView block) {
  if (readyState_ != RTMPReadyState::handshakeDone) return processHandshake(block);
  sequence_ += block.size();
  const auto read = reader_.read(block, [this](RTMPMessage message, RTMPChunkType) {
    if (isOpen_) dispatch(std::move(message));
  });
  if (!read) {
    failWithProtocol(read.error(), read.error() == RTMPChunkError::limitExceeded
                                       ? "the server sent more than any server should"
                                       : "the server sent what is not RTMP");
    return false;
  }
  acknowledge();
  return isOpen_;
}

bool RTMPLink::processHandshake(ByteView block) {
  handshake_.inputBuffer.insert(handshake_.inputBuffer.end(), block.begin(), block.end());
  if (readyState_ == RTMPReadyState::versionSent) {
    if (handshake_.inputBuffer.size() < 1 + RTMPHandshake::packetSize + 1) return true;
    if (handshake_.inputBuffer.front() != RTMPHandshake::protocolVersion) {
      failWithProtocol(RTMPChunkError::unknowChunkType, "the server speaks no RTMP, or none of version 3");
      return false;
    }
    block_ = handshake_.c2packet(secondsSince1970());
    readyState_ = RTMPReadyState::ackSent;
  }
  if (handshake_.inputBuffer.size() > RTMPHandshake::packetSize) {
    failWithProtocol(RTMPChunkError::limitExceeded, "the server sent more than the handshake before it was over");
    return false;
  }
  if (handshake_.inputBuffer.size() < RTMPHandshake::packetSize) {
    startWriting();
    return true;
  }
  handshake_.inputBuffer = {};
  readyState_ = RTMPReadyState::handshakeDone;
  sendControl(RTMPSetChunkSizeMessage(static_cast<std::uint32_t>(chunkSizeC_)));
  startWriting();
  wakeWriter_.notify();
  handshakeMoved_.notify();
  return true;
}

void RTMPLink::startWriting() {
  if (std::exchange(isWriting_, true)) return;
  queue_->setWaker([weak = weak_from_this(), strand = strand_] {
    asio::post(strand, [weak] {
      if (const auto self = weak.lock()) self->wakeWriter_.notify();
    });
  });
  asio::co_spawn(strand_, writeLoop(shared_from_this()), asio::detached);
}

asio::awaitable<void> RTMPLink::writeLoop(std::shared_ptr<RTMPLink> self) {
  while (self->isOpen_) {
    self->fillBlock();
    if (self->block_.empty()) {
      co_await self->wakeWriter_.wait();
      continue;
    }
    const auto sent = co_await self->socket_.send(self->block_);
    if (!sent) {
      self->fail(socketFailure(sent.error()));
      break;
    }
    self->block_.clear();
    self->queue_->release(std::exchange(self->finishedBytes_, 0));
    self->progress_.notify();
  }
}

void RTMPLink::fillBlock() {
  while (block_.size() < blockSize) {
    if (!chunks_) {
      // Until the handshake is over only its own bytes leave.
      if (readyState_ != RTMPReadyState::handshakeDone) return;
      std::optional<RTMPOutgoing> message = queue_->pop();
      if (!message) return;
      begin(std::move(*message));
    }
    const ByteView chunk = chunks_->next();
    if (chunk.empty())
      finishMessage();
    else
      block_.insert(block_.end(), chunk.begin(), chunk.end());
  }
}

void RTMPLink::begin(RTMPOutgoing message) {
  current_ = std::move(message);
  RTMPChunkType chunkType = RTMPChunkType::zero;
  std::uint32_t timestamp = 0;
  if (current_.clock) {
    RTMPMediaClock& clock = *current_.clock;
    // Picture and sound both count from the start of the stream, whichever of their messages is the first to leave.
    if (!clock.hasStarted) clock.timestamp.update(std::chrono::microseconds::zero());
    const std::uint32_t delta = current_.time ? clock.timestamp.update(*current_.time) : 0;
    const auto last = lastStreamIds_.find(current_.chunkStream);
    const bool continues = last != lastStreamIds_.end() && last->second == current_.streamId && clock.hasStarted;
    chunkType = continues ? RTMPChunkType::one : RTMPChunkType::zero;
    // All bits set would announce an extended timestamp, which never leaves.
    timestamp = continues ? delta : std::min<std::uint32_t>(clock.timestamp.value() & 0xFFFFFF, 0xFFFFFE);
    clock.hasStarted = true;
    lastStreamIds_[current_.chunkStream] = current_.streamId;
  }
  chunks_.emplace(outputBuffer_.putMessage(chunkType, static_cast<std::uint16_t>(current_.chunkStream),
                                           {current_.type, current_.streamId, timestamp, current_.payload}));
}

void RTMPLink::finishMessage() {
  chunks_.reset();
  finishedBytes_ += current_.payload.size();
  if (current_.type == RTMPMessageType::chunkSize) outputBuffer_.setChunkSize(chunkSizeC_);
  current_ = {};
}

void RTMPLink::dispatch(RTMPMessage message) {
  if (const auto* window = std::get_if<RTMPWindowAcknowledgementSizeMessage>(&message)) {
    if (window->size != 0) windowSizeS_ = window->size;
  } else if (const auto* bandwidth = std::get_if<RTMPSetPeerBandwidthMessage>(&message)) {
    bandWidth_ = bandwidth->size;
    if (bandwidth->size != 0 && windowSizeC_ != bandwidth->size) {
      windowSizeC_ = bandwidth->size;
      sendControl(RTMPWindowAcknowledgementSizeMessage(bandwidth->size));
    }
  } else if (const auto* acknowledgement = std::get_if<RTMPAcknowledgementMessage>(&message)) {
    acknowledged_ = acknowledgement->sequence;
  } else if (const auto* control = std::get_if<RTMPUserControlMessage>(&message)) {
    if (control->event == RTMPUserControlMessage::Event::ping)
      sendControl(RTMPUserControlMessage(RTMPUserControlMessage::Event::pong, control->value));
  } else if (const auto owner = owner_.lock()) {
    owner->linkReceived(std::move(message));
  }
}

void RTMPLink::acknowledge() {
  if (static_cast<std::int64_t>(sequence_ - acknowledgedByUs_) < windowSizeS_) return;
  acknowledgedByUs_ = sequence_;
  sendControl(RTMPAcknowledgementMessage(static_cast<std::uint32_t>(sequence_)));
}

}  // namespace vellora
