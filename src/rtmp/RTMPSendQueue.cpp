#include "rtmp/RTMPSendQueue.h"

#include <algorithm>
#include <utility>

namespace vellora {

void RTMPSendQueue::setWaker(std::function<void()> waker) {
  const std::lock_guard lock(mutex_);
  waker_ = std::move(waker);
}

bool RTMPSendQueue::push(RTMPOutgoing message) {
  std::function<void()> wake;
  {
    const std::lock_guard lock(mutex_);
    const bool isControl = message.kind == RTMPOutgoing::Kind::control;
    // What the protocol needs leaves also while media fills its own bound.
    const std::size_t bound = maximumBytes_ + (isControl ? maximumControlBytes : 0);
    if (isClosed_ || message.payload.size() > bound - std::min(bytes_, bound)) return false;
    if (isControl && control_.size() >= maximumControl) return false;
    bytes_ += message.payload.size();
    if (message.kind == RTMPOutgoing::Kind::videoFrame) ++videoFrames_;
    (isControl ? control_ : media_).push_back(std::move(message));
    if (std::exchange(writerSleeps_, false)) wake = waker_;
  }
  if (wake) wake();
  return true;
}

std::optional<RTMPOutgoing> RTMPSendQueue::pop() {
  const std::lock_guard lock(mutex_);
  std::deque<RTMPOutgoing>& source = control_.empty() ? media_ : control_;
  if (source.empty()) {
    writerSleeps_ = true;
    return std::nullopt;
  }
  RTMPOutgoing message = std::move(source.front());
  source.pop_front();
  if (message.kind == RTMPOutgoing::Kind::videoFrame) --videoFrames_;
  return message;
}

void RTMPSendQueue::release(std::size_t payloadBytes) {
  const std::lock_guard lock(mutex_);
  bytes_ -= std::min(payloadBytes, bytes_);
}

std::size_t RTMPSendQueue::dropVideo(std::uint32_t streamId) {
  const std::lock_guard lock(mutex_);
  std::size_t dropped = 0;
  std::erase_if(media_, [&](const RTMPOutgoing& message) {
    if (message.kind != RTMPOutgoing::Kind::videoFrame || message.streamId != streamId) return false;
    bytes_ -= message.payload.size();
    ++dropped;
    return true;
  });
  videoFrames_ -= dropped;
  return dropped;
}

void RTMPSendQueue::close() {
  const std::lock_guard lock(mutex_);
  isClosed_ = true;
  control_.clear();
  media_.clear();
  bytes_ = 0;
  videoFrames_ = 0;
}

RTMPSendQueue::State RTMPSendQueue::state() const {
  const std::lock_guard lock(mutex_);
  State state{bytes_, {}, videoFrames_};
  const auto hasTime = [](const RTMPOutgoing& message) { return message.time.has_value(); };
  const auto oldest = std::find_if(media_.begin(), media_.end(), hasTime);
  if (oldest == media_.end()) return state;
  const auto newest = std::find_if(media_.rbegin(), media_.rend(), hasTime);
  state.duration = std::chrono::duration_cast<std::chrono::milliseconds>(*newest->time - *oldest->time);
  return state;
}

bool RTMPSendQueue::isEmpty() const {
  const std::lock_guard lock(mutex_);
  return control_.empty() && media_.empty() && bytes_ == 0;
}

}  // namespace vellora
