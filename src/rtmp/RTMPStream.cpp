#include "rtmp/RTMPStream.h"

#include <algorithm>
#include <utility>

#include "rtmp/OnStrand.h"
#include "rtmp/RTMPStreamState.h"

namespace vellora {

std::string_view RTMPStream::textOf(HowToPublish type) {
  switch (type) {
    case HowToPublish::live:
      return "live";
    case HowToPublish::record:
      return "record";
    case HowToPublish::append:
      return "append";
    case HowToPublish::appendWithGap:
      return "appendWithGap";
  }
  return "live";
}

RTMPStream::RTMPStream(std::shared_ptr<RTMPConnection> connection)
    : state_(std::make_shared<State>(connection->session_)), connection_(std::move(connection)) {}

RTMPStream::~RTMPStream() = default;

asio::awaitable<Result<void, RTMPFailure>> RTMPStream::createStream() {
  const std::shared_ptr<State> state = state_;
  co_return co_await onStrand(state->strand(), state->createStream());
}

asio::awaitable<Result<RTMPResponse, RTMPFailure>> RTMPStream::publish(std::string name, HowToPublish type) {
  const std::shared_ptr<State> state = state_;
  co_return co_await onStrand(state->strand(), state->publish(std::move(name), type));
}

asio::awaitable<void> RTMPStream::close() {
  const std::shared_ptr<State> state = state_;
  co_await onStrand(state->strand(), state->close());
}

void RTMPStream::setVideoSettings(RTMPVideoSettings settings) {
  state_->setVideoSettings(std::move(settings));
}

void RTMPStream::setAudioSettings(RTMPAudioSettings settings) {
  state_->setAudioSettings(std::move(settings));
}

void RTMPStream::setVideoInputBufferCounts(std::size_t count) {
  state_->setVideoInputBufferCounts(count);
}

AMFArray RTMPStream::metadata() const {
  return state_->metadata();
}

RTMPAppendResult RTMPStream::append(const RTMPVideoFrame& frame) {
  return state_->append(frame);
}

RTMPAppendResult RTMPStream::append(const RTMPAudioFrame& frame) {
  return state_->append(frame);
}

RTMPQueueState RTMPStream::queued() const {
  return state_->queued();
}

asio::awaitable<void> RTMPStream::waitUntilQueuedBelow(std::size_t bytes) {
  const std::shared_ptr<State> state = state_;
  co_await onStrand(state->strand(), state->waitUntilQueuedBelow(bytes));
}

std::size_t RTMPStream::dropQueuedVideo() {
  return state_->dropQueuedVideo();
}

}  // namespace vellora
