#include "rtmp/RTMPStreamState.h"

#include <algorithm>
#include <asio/redirect_error.hpp>
#include <asio/use_awaitable.hpp>
#include <cmath>
#include <utility>

namespace vellora {
namespace {

using Error = RTMPConnection::Error;

constexpr std::string_view publishStart = "NetStream.Publish.Start";
constexpr int avcCodecId = 7;
constexpr int aacCodecId = 10;

double kilobits(double bitsPerSecond) {
  return bitsPerSecond / 1000;
}

}  // namespace

RTMPStream::State::State(std::shared_ptr<RTMPConnection::Session> session) : session_(std::move(session)) {}

asio::awaitable<Result<void, RTMPFailure>> RTMPStream::State::createStream() {
  if (streamId_ != 0) co_return failure(RTMPFailure{Error::invalidState, "the stream has been created before"});
  auto response = co_await session_->call("createStream", {});
  if (!response) co_return failure(std::move(response.error()));
  const double* number = response->arguments.empty() ? nullptr : response->arguments.front().as<double>();
  if (!number || !(*number >= 1 && *number <= 0xFFFFFFFF) || std::floor(*number) != *number)
    co_return failure(RTMPFailure{Error::requestFailed, "the server made no stream"});
  streamId_ = static_cast<std::uint32_t>(*number);
  session_->attach(streamId_, weak_from_this());
  co_return Result<void, RTMPFailure>{};
}

asio::awaitable<Result<RTMPResponse, RTMPFailure>> RTMPStream::State::publish(std::string name, HowToPublish type) {
  if (!session_->isConnected()) co_return failure(session_->notConnected());
  if (streamId_ == 0 || publishTimer_)
    co_return failure(RTMPFailure{Error::invalidState, "only a stream that was just created can be published"});
  const RTMPFailure cancelled{Error::invalidState, "publishing was cancelled"};
  const asio::cancellation_state cancellation = co_await asio::this_coro::cancellation_state;
  if (cancellation.cancelled() != asio::cancellation_type::none) co_return failure(cancelled);
  name_ = std::move(name);
  // Some servers want these before a stream of that name may be published; the others ignore them.
  session_->send(0, "releaseStream", {name_});
  session_->send(0, "FCPublish", {name_});
  publishTransaction_ = session_->send(streamId_, "publish", {name_, textOf(type)});
  publishTimer_.emplace(strand());
  publishTimer_->expires_after(session_->options().requestTimeout);
  asio::error_code error;
  co_await publishTimer_->async_wait(asio::redirect_error(asio::use_awaitable, error));
  if (!publishOutcome_) {
    publishOutcome_ =
        failure(error ? cancelled : RTMPFailure{Error::requestTimedOut, "the server did not answer in time"});
  }
  if (*publishOutcome_) startPublishing();
  co_return *publishOutcome_;
}

void RTMPStream::State::streamStatus(const RTMPStatus& status) {
  if (!publishTimer_ || publishOutcome_) return;
  if (status.code == publishStart) {
    publishOutcome_ = RTMPResponse{status, {}, {}};
  } else if (status.level == "error" || status.code.starts_with("NetStream.Publish.")) {
    RTMPFailure why{Error::requestFailed, "the server does not accept the stream (" + status.code + ")"};
    why.status = status;
    publishOutcome_ = failure(std::move(why));
  } else {
    return;
  }
  publishTimer_->cancel();
}

void RTMPStream::State::commandRefused(std::int64_t transactionId, const RTMPFailure& why) {
  if (!publishTimer_ || publishOutcome_ || transactionId != publishTransaction_) return;
  publishOutcome_ = failure(why);
  publishTimer_->cancel();
}

void RTMPStream::State::connectionClosed(const RTMPFailure& why) {
  stopPublishing();
  if (!publishTimer_ || publishOutcome_) return;
  publishOutcome_ = failure(why);
  publishTimer_->cancel();
}

void RTMPStream::State::startPublishing() {
  const std::lock_guard lock(mutex_);
  queue_ = session_->queue();
  publishedId_ = streamId_;
  pushConfiguration();
}

void RTMPStream::State::stopPublishing() {
  const std::lock_guard lock(mutex_);
  queue_ = nullptr;
}

asio::awaitable<void> RTMPStream::State::close() {
  std::shared_ptr<RTMPSendQueue> queue;
  {
    const std::lock_guard lock(mutex_);
    queue = std::exchange(queue_, nullptr);
    if (queue && video_)
      queue->push(media(RTMPMessageType::video, RTMPOutgoing::Kind::frame, videoSequenceEnd(video_->codec)));
    if (Bytes end = audio_ ? audioSequenceEnd(audio_->codec) : Bytes(); queue && !end.empty())
      queue->push(media(RTMPMessageType::audio, RTMPOutgoing::Kind::frame, std::move(end)));
  }
  if (publishTimer_ && !publishOutcome_) {
    publishOutcome_ = failure(RTMPFailure{Error::invalidState, "the stream was closed"});
    publishTimer_->cancel();
  }
  const std::uint32_t streamId = std::exchange(streamId_, 0);
  if (streamId == 0 || !session_->isConnected()) co_return;
  const std::shared_ptr<RTMPLink> link = session_->link();
  if (queue) co_await link->flush(flushTime);
  session_->detach(streamId);
  if (!session_->isConnected()) co_return;
  if (publishTimer_) session_->send(0, "FCUnpublish", {name_});
  session_->send(0, "deleteStream", {static_cast<double>(streamId)});
  co_await link->flush(commandTime);
}

asio::awaitable<void> RTMPStream::State::waitUntilQueuedBelow(std::size_t bytes) {
  const asio::cancellation_state cancellation = co_await asio::this_coro::cancellation_state;
  const std::shared_ptr<RTMPLink> link = session_->link();
  while (link && link->isOpen() && session_->queue()->state().bytes >= std::max<std::size_t>(bytes, 1)) {
    if (cancellation.cancelled() != asio::cancellation_type::none) co_return;
    co_await link->nextProgress();
  }
}

void RTMPStream::State::setVideoSettings(RTMPVideoSettings settings) {
  const std::lock_guard lock(mutex_);
  video_ = std::move(settings);
  videoChanged_ = true;
}

void RTMPStream::State::setAudioSettings(RTMPAudioSettings settings) {
  const std::lock_guard lock(mutex_);
  audio_ = std::move(settings);
  audioChanged_ = true;
}

void RTMPStream::State::setVideoInputBufferCounts(std::size_t count) {
  const std::lock_guard lock(mutex_);
  videoInputBufferCounts_ = count;
}

AMFArray RTMPStream::State::metadata() const {
  const std::lock_guard lock(mutex_);
  return makeMetadata();
}

AMFArray RTMPStream::State::makeMetadata() const {
  AMFArray map;
  const auto setKnown = [&](const char* key, double value) {
    if (value > 0 && std::isfinite(value)) map.named.append(key, value);
  };
  if (video_) {
    setKnown("width", video_->width);
    setKnown("height", video_->height);
    map.named.append("videocodecid", video_->codec == RTMPVideoCodec::hevc ? static_cast<double>(fourCcNumber("hvc1"))
                                                                           : static_cast<double>(avcCodecId));
    setKnown("videodatarate", kilobits(video_->bitRate));
    setKnown("framerate", video_->frameRate);
  }
  if (audio_) {
    map.named.append("audiocodecid", aacCodecId);
    setKnown("audiodatarate", kilobits(audio_->bitRate));
    setKnown("audiosamplerate", audio_->sampleRate);
  }
  return map;
}

RTMPOutgoing RTMPStream::State::media(RTMPMessageType type, RTMPOutgoing::Kind kind, Bytes payload) const {
  const bool isVideo = type == RTMPMessageType::video;
  RTMPOutgoing message{type, isVideo ? RTMPChunkStreamId::video : RTMPChunkStreamId::audio, publishedId_,
                       std::move(payload), kind};
  message.clock = isVideo ? videoClock_ : audioClock_;
  return message;
}

bool RTMPStream::State::pushConfiguration() {
  if (!videoChanged_ && !audioChanged_) return true;
  AMFArray map = makeMetadata();
  RTMPDataMessage data(RTMPConnection::defaultObjectEncoding, publishedId_, 0, "@setDataFrame",
                       {"onMetaData", std::move(map)});
  RTMPOutgoing metadata{data.type(), RTMPChunkStreamId::data, publishedId_, std::move(data.payload),
                        RTMPOutgoing::Kind::configuration};
  if (!queue_->push(std::move(metadata))) return false;
  if (videoChanged_ && !video_->configuration.empty() &&
      !queue_->push(media(RTMPMessageType::video, RTMPOutgoing::Kind::configuration,
                          videoSequenceHeader(video_->codec, video_->configuration))))
    return false;
  videoChanged_ = false;
  if (audioChanged_ && !audio_->configuration.empty() &&
      !queue_->push(media(RTMPMessageType::audio, RTMPOutgoing::Kind::configuration,
                          audioSequenceHeader(audio_->codec, audio_->configuration))))
    return false;
  audioChanged_ = false;
  return true;
}

std::chrono::microseconds RTMPStream::State::streamTime(std::chrono::microseconds time) {
  if (!origin_) origin_ = time;
  return std::max(time - *origin_, std::chrono::microseconds::zero());
}

RTMPAppendResult RTMPStream::State::append(const RTMPVideoFrame& frame) {
  const std::lock_guard lock(mutex_);
  if (!queue_ || !video_) return RTMPAppendResult::notPublishing;
  if (waitsForKeyFrame_ && !frame.isKeyFrame) return RTMPAppendResult::waitsForKeyFrame;
  const auto refuse = [&] {
    waitsForKeyFrame_ = true;
    return RTMPAppendResult::queueFull;
  };
  if (videoInputBufferCounts_ != 0 && queue_->state().videoFrames >= videoInputBufferCounts_) return refuse();
  if (!pushConfiguration()) return refuse();
  const auto milliseconds = [](std::chrono::microseconds time) {
    return std::chrono::round<std::chrono::milliseconds>(time);
  };
  const std::chrono::microseconds time = streamTime(frame.decodeTime);
  // Rounded together with the decode time, so that rounding does not add up in the time at which the frame is shown.
  const auto offset = milliseconds(time + frame.presentationTime - frame.decodeTime) - milliseconds(time);
  RTMPOutgoing message = media(RTMPMessageType::video, RTMPOutgoing::Kind::videoFrame,
                               videoFrameBody(video_->codec, frame.isKeyFrame, offset, frame.data));
  message.time = time;
  if (!queue_->push(std::move(message))) return refuse();
  waitsForKeyFrame_ = false;
  return RTMPAppendResult::queued;
}

RTMPAppendResult RTMPStream::State::append(const RTMPAudioFrame& frame) {
  const std::lock_guard lock(mutex_);
  if (!queue_ || !audio_) return RTMPAppendResult::notPublishing;
  if (!pushConfiguration()) return RTMPAppendResult::queueFull;
  RTMPOutgoing message =
      media(RTMPMessageType::audio, RTMPOutgoing::Kind::frame, audioFrameBody(audio_->codec, frame.data));
  message.time = streamTime(frame.time);
  return queue_->push(std::move(message)) ? RTMPAppendResult::queued : RTMPAppendResult::queueFull;
}

RTMPQueueState RTMPStream::State::queued() const {
  const std::lock_guard lock(mutex_);
  if (!queue_) return {};
  const RTMPSendQueue::State state = queue_->state();
  return {state.bytes, state.duration, state.videoFrames};
}

std::size_t RTMPStream::State::dropQueuedVideo() {
  const std::lock_guard lock(mutex_);
  if (!queue_) return 0;
  const std::size_t dropped = queue_->dropVideo(publishedId_);
  waitsForKeyFrame_ = true;
  return dropped;
}

}  // namespace vellora
