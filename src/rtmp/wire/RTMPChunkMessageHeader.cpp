#include "rtmp/wire/RTMPChunkMessageHeader.h"

#include <algorithm>
#include <utility>

#include "rtmp/wire/RTMPChunkBuffer.h"

namespace vellora {
namespace {

/// So much has to arrive of a longer message before room for all of it is taken.
constexpr std::size_t reservedFirst = 65536;

}  // namespace

void RTMPChunkMessageHeader::setMessageLength(std::size_t length) {
  if (length == messageLength_) return;
  messageLength_ = length;
  payload_ = Bytes(std::min(length, filledAtOnce));
  position_ = 0;
}

Result<void, RTMPChunkError> RTMPChunkMessageHeader::put(RTMPChunkBuffer& buffer, std::size_t chunkSize) {
  const std::size_t count = std::min(messageLength_ - position_, chunkSize);
  if (buffer.remaining() < count) return failure(RTMPChunkError::bufferUnderflow);
  if (count == 0) return {};
  if (const std::size_t needed = position_ + count; needed > payload_.capacity()) {
    payload_.reserve(needed <= reservedFirst ? std::min(messageLength_, reservedFirst) : messageLength_);
  }
  const ByteView part = buffer.take(count);
  const std::size_t inside = std::min(count, payload_.size() - position_);
  std::copy_n(part.begin(), inside, payload_.begin() + static_cast<std::ptrdiff_t>(position_));
  payload_.insert(payload_.end(), part.begin() + static_cast<std::ptrdiff_t>(inside), part.end());
  position_ += count;
  return {};
}

std::optional<RTMPMessage> RTMPChunkMessageHeader::makeMessage() {
  if (!isComplete()) return std::nullopt;
  position_ = 0;
  return messageFrom(type, streamId, timestamp, std::exchange(payload_, {}));
}

void RTMPChunkMessageHeader::abort() {
  payload_ = Bytes();  // gives the memory back
  position_ = 0;
}

}  // namespace vellora
