#include "rtmp/wire/RTMPChunkReader.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace vellora {

Result<void, RTMPChunkError> RTMPChunkReader::read(ByteView block, const Handler& handler) {
  if (error_) return failure(*error_);
  buffer_.put(block);
  for (;;) {
    auto read = chunk_ != nullptr ? finishChunk(handler) : startChunk();
    if (read) continue;
    if (read.error() == RTMPChunkError::bufferUnderflow) return {};
    error_ = read.error();
    return read;
  }
}

Result<void, RTMPChunkError> RTMPChunkReader::startChunk() {
  const std::size_t start = buffer_.position();
  const auto basicHeader = buffer_.getBasicHeader();
  if (!basicHeader) return failure(basicHeader.error());
  const auto [type, id] = *basicHeader;
  auto found = chunks_.find(id);
  if (found == chunks_.end()) {
    if (type == RTMPChunkType::two || type == RTMPChunkType::three) return failure(RTMPChunkError::unknowChunkType);
    if (chunks_.size() == maximumChunkStreams) return failure(RTMPChunkError::limitExceeded);
    found = chunks_.try_emplace(id).first;
  }
  RTMPChunkMessageHeader& chunk = found->second;
  const std::size_t before = chunk.assembling();
  if (const auto header = buffer_.getMessageHeader(type, chunk); !header) {
    buffer_.rewind(start);
    return header;
  }
  assembly_ += chunk.messageLength() - before;
  if (assembly_ > maximumAssembly) return failure(RTMPChunkError::limitExceeded);
  chunk_ = &chunk;
  type_ = type;
  missing_ = std::min(chunk.messageLength() - chunk.position(), buffer_.chunkSize());
  return {};
}

Result<void, RTMPChunkError> RTMPChunkReader::finishChunk(const Handler& handler) {
  const std::size_t part = std::min(missing_, buffer_.remaining());
  if (auto copied = chunk_->put(buffer_, part); !copied) return copied;
  missing_ -= part;
  if (missing_ > 0) return failure(RTMPChunkError::bufferUnderflow);
  RTMPChunkMessageHeader& chunk = *std::exchange(chunk_, nullptr);
  if (!chunk.isComplete()) return {};
  assembly_ -= chunk.messageLength();
  auto message = chunk.makeMessage();
  if (!message) return {};
  if (const auto* size = std::get_if<RTMPSetChunkSizeMessage>(&*message)) {
    if (auto set = setChunkSize(size->size); !set) return set;
  } else if (const auto* aborted = std::get_if<RTMPAbortMessge>(&*message)) {
    abort(aborted->chunkStreamId);
  }
  handler(std::move(*message), type_);
  return {};
}

Result<void, RTMPChunkError> RTMPChunkReader::setChunkSize(std::uint32_t size) {
  if (size == 0 || size > 0x7FFFFFFF) return failure(RTMPChunkError::limitExceeded);
  buffer_.setChunkSize(std::min<std::size_t>(size, maximumChunkSize));
  return {};
}

void RTMPChunkReader::abort(std::uint32_t chunkStreamId) {
  if (chunkStreamId > 0xFFFF) return;
  const auto found = chunks_.find(static_cast<std::uint16_t>(chunkStreamId));
  if (found == chunks_.end()) return;
  assembly_ -= found->second.assembling();
  found->second.abort();
}

}  // namespace vellora
