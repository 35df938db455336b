#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

#include "base/Result.h"
#include "rtmp/wire/Bytes.h"
#include "rtmp/wire/RTMPChunk.h"
#include "rtmp/wire/RTMPMessage.h"

namespace vellora {

class RTMPChunkMessageHeader;
class RTMPChunkBuffer;

/// The chunks of one message, made one after the other in the memory of the chunk buffer. Both the buffer and the
/// message's payload have to outlive it.
class RTMPChunkSequence {
 public:
  /// The next chunk with its header, valid until the next call; empty when all have been made.
  ByteView next();

 private:
  friend class RTMPChunkBuffer;
  RTMPChunkSequence(RTMPChunkBuffer& buffer, RTMPChunkType type, std::uint16_t chunkStreamId, RTMPMessageView message)
      : buffer_(buffer), type_(type), chunkStreamId_(chunkStreamId), message_(message) {}
  RTMPChunkBuffer& buffer_;
  RTMPChunkType type_;
  std::uint16_t chunkStreamId_;
  RTMPMessageView message_;
  std::size_t sent_ = 0;
  bool started_ = false;
};

/// Cuts messages into chunks, or holds received bytes while chunks are read from them, as the published "Adobe's Real
/// Time Messaging Protocol" (section 5.3) lays them out. One for each direction of a connection.
class RTMPChunkBuffer {
 public:
  /// The largest header: basic, message, extended timestamp.
  static constexpr std::size_t maximumHeader = 3 + 11 + 4;
  /// What a connection starts with, by the published protocol.
  static constexpr std::size_t initialChunkSize = 128;
  /// The longest message a header can announce.
  static constexpr std::size_t maximumMessageLength = 0xFFFFFF;

  RTMPChunkBuffer();

  /// The chunk size in force, in bytes, at least 1. Raising it grows the buffer to hold a whole chunk with its header;
  /// lowering it leaves the buffer as it is.
  std::size_t chunkSize() const { return chunkSize_; }
  void setChunkSize(std::size_t size);

  /// Appends received bytes behind those not yet read.
  void put(ByteView data);
  std::size_t remaining() const { return end_ - position_; }
  std::size_t position() const { return position_; }
  /// Returns to where a chunk began that had not arrived wholly.
  void rewind(std::size_t position) { position_ = position; }
  /// The next `count` bytes; the caller has looked at `remaining()`.
  ByteView take(std::size_t count);

  /// Chunk type and chunk stream id of the chunk at the position. `limitExceeded` for the 64 ids beyond 16 bits. After
  /// an error the position is where it was.
  Result<std::pair<RTMPChunkType, std::uint16_t>, RTMPChunkError> getBasicHeader();
  /// Fills `messageHeader` with what a chunk of `type` says about its message. After an error it and the position are
  /// as they were.
  Result<void, RTMPChunkError> getMessageHeader(RTMPChunkType type, RTMPChunkMessageHeader& messageHeader);

  /// The message as chunks, the first one of `type`. No extended timestamps: of a timestamp only the low 24 bits leave.
  /// A payload of more than 2^24 - 1 bytes has no chunks, for none can say its length.
  RTMPChunkSequence putMessage(RTMPChunkType type, std::uint16_t chunkStreamId, const RTMPMessageView& message);

 private:
  friend class RTMPChunkSequence;
  void putBasicHeader(RTMPChunkType type, std::uint16_t chunkStreamId);
  void putMessageHeader(RTMPChunkType type, const RTMPMessageView& message);
  void put8(std::size_t value) { data_[position_++] = static_cast<std::uint8_t>(value); }
  void put24(std::size_t value);
  /// Moves the bytes not yet read to the front, into new memory when `capacity` is more than there is.
  void makeRoom(std::size_t capacity);

  std::unique_ptr<std::uint8_t[]> data_;
  std::size_t capacity_ = 0;
  std::size_t position_ = 0;  ///< of the next byte to be read, or written into a chunk
  std::size_t end_ = 0;       ///< of what was received
  std::size_t chunkSize_ = initialChunkSize;
};

}  // namespace vellora
