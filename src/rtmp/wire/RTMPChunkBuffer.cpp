#include "rtmp/wire/RTMPChunkBuffer.h"

#include <algorithm>
#include <cstring>

#include "rtmp/wire/RTMPChunkMessageHeader.h"

namespace vellora {
namespace {

constexpr std::uint32_t extendedTimestamp = 0xFFFFFF;

std::uint32_t bigEndian(ByteView bytes) {
  std::uint32_t value = 0;
  for (const std::uint8_t byte : bytes) value = value << 8 | byte;
  return value;
}

std::uint32_t littleEndian32(ByteView bytes) {
  return std::uint32_t{bytes[0]} | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16 |
         std::uint32_t{bytes[3]} << 24;
}

}  // namespace

RTMPChunkBuffer::RTMPChunkBuffer() {
  makeRoom(chunkSize_ + maximumHeader);
}

void RTMPChunkBuffer::setChunkSize(std::size_t size) {
  chunkSize_ = std::max<std::size_t>(size, 1);
  if (capacity_ < chunkSize_ + maximumHeader) makeRoom(chunkSize_ + maximumHeader);
}

void RTMPChunkBuffer::makeRoom(std::size_t capacity) {
  if (capacity > capacity_) {
    auto data = std::make_unique_for_overwrite<std::uint8_t[]>(capacity);
    std::copy_n(data_.get() + position_, remaining(), data.get());
    data_ = std::move(data);
    capacity_ = capacity;
  } else {
    std::memmove(data_.get(), data_.get() + position_, remaining());
  }
  end_ = remaining();
  position_ = 0;
}

void RTMPChunkBuffer::put(ByteView data) {
  if (data.empty()) return;
  if (position_ == end_) position_ = end_ = 0;
  if (data.size() > capacity_ - end_) {
    const std::size_t needed = remaining() + data.size();
    makeRoom(needed > capacity_ ? std::max(needed, capacity_ * 2) : capacity_);
  }
  std::memcpy(data_.get() + end_, data.data(), data.size());
  end_ += data.size();
}

ByteView RTMPChunkBuffer::take(std::size_t count) {
  const ByteView bytes(data_.get() + position_, count);
  position_ += count;
  return bytes;
}

Result<std::pair<RTMPChunkType, std::uint16_t>, RTMPChunkError> RTMPChunkBuffer::getBasicHeader() {
  if (remaining() == 0) return failure(RTMPChunkError::bufferUnderflow);
  const std::uint8_t* const header = data_.get() + position_;
  const auto type = static_cast<RTMPChunkType>(header[0] >> 6);
  std::uint32_t id = header[0] & 0x3FU;
  const std::size_t length = id == 0 ? 2 : id == 1 ? 3 : 1;
  if (remaining() < length) return failure(RTMPChunkError::bufferUnderflow);
  if (length == 2) id = header[1] + 64U;
  if (length == 3) id = header[1] + 256U * header[2] + 64U;
  if (id > 0xFFFF) return failure(RTMPChunkError::limitExceeded);
  position_ += length;
  return std::pair(type, static_cast<std::uint16_t>(id));
}

Result<void, RTMPChunkError> RTMPChunkBuffer::getMessageHeader(RTMPChunkType type,
                                                               RTMPChunkMessageHeader& messageHeader) {
  const std::size_t length = headerLength(type);
  if (remaining() < length) return failure(RTMPChunkError::bufferUnderflow);
  const ByteView header(data_.get() + position_, length);
  std::uint32_t timestamp = length >= 3 ? bigEndian(header.first(3)) : messageHeader.timestamp;
  const bool isExtended = timestamp == extendedTimestamp;
  if (isExtended) {
    if (remaining() < length + 4) return failure(RTMPChunkError::bufferUnderflow);
    timestamp = bigEndian({data_.get() + position_ + length, 4});
  }
  messageHeader.timestamp = timestamp;
  if (length >= 7) {
    messageHeader.setMessageLength(bigEndian(header.subspan(3, 3)));
    messageHeader.type = header[6];
  }
  if (length >= 11) messageHeader.streamId = littleEndian32(header.subspan(7, 4));
  position_ += length + (isExtended ? 4 : 0);
  return {};
}

RTMPChunkSequence RTMPChunkBuffer::putMessage(RTMPChunkType type, std::uint16_t chunkStreamId,
                                              const RTMPMessageView& message) {
  return {*this, type, chunkStreamId, message};
}

void RTMPChunkBuffer::put24(std::size_t value) {
  put8(value >> 16);
  put8(value >> 8);
  put8(value);
}

void RTMPChunkBuffer::putBasicHeader(RTMPChunkType type, std::uint16_t chunkStreamId) {
  const std::size_t format = static_cast<std::size_t>(type) << 6;
  if (chunkStreamId <= 63) {
    put8(format | chunkStreamId);
  } else if (chunkStreamId <= 319) {
    put8(format);
    put8(chunkStreamId - 64U);
  } else {
    // High byte first, although such an id is read low byte first. No id this large is ever sent.
    put8(format | 1);
    put8((chunkStreamId - 64U) >> 8);
    put8(chunkStreamId - 64U);
  }
}

void RTMPChunkBuffer::putMessageHeader(RTMPChunkType type, const RTMPMessageView& message) {
  if (type <= RTMPChunkType::two) put24(message.timestamp);
  if (type <= RTMPChunkType::one) {
    put24(message.payload.size());
    put8(static_cast<std::size_t>(message.type));
  }
  if (type == RTMPChunkType::zero) {
    for (int shift = 0; shift < 32; shift += 8) put8(message.streamId >> shift);
  }
}

ByteView RTMPChunkSequence::next() {
  const std::size_t left = message_.payload.size() - sent_;
  if ((started_ && left == 0) || message_.payload.size() > RTMPChunkBuffer::maximumMessageLength) return {};
  buffer_.position_ = 0;
  buffer_.putBasicHeader(started_ ? RTMPChunkType::three : type_, chunkStreamId_);
  if (!started_) buffer_.putMessageHeader(type_, message_);
  started_ = true;
  const std::size_t part = std::min(left, buffer_.chunkSize_);
  std::copy_n(message_.payload.data() + sent_, part, buffer_.data_.get() + buffer_.position_);
  sent_ += part;
  const ByteView chunk(buffer_.data_.get(), buffer_.position_ + part);
  buffer_.position_ = 0;
  return chunk;
}

}  // namespace vellora
