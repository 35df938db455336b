#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

#include "rtmp/wire/Bytes.h"
#include "rtmp/wire/RTMPChunk.h"
#include "rtmp/wire/RTMPMessageType.h"
#include "rtmp/wire/RTMPTimestamp.h"

namespace vellora {

/// Where one kind of media of a stream is on the wire. Touched by the writer of the connection only.
struct RTMPMediaClock {
  RTMPTimestamp timestamp;
  bool hasStarted = false;
};

/// A message that waits to leave. Its timestamp is made when it leaves, so that what was dropped before it leaves no
/// gap in the differences.
struct RTMPOutgoing {
  enum class Kind { control, frame, videoFrame, configuration };

  RTMPMessageType type = RTMPMessageType::amf0Command;
  RTMPChunkStreamId chunkStream = RTMPChunkStreamId::command;
  std::uint32_t streamId = 0;
  Bytes payload{};
  Kind kind = Kind::control;
  std::shared_ptr<RTMPMediaClock> clock{};          ///< null for messages at time 0
  std::optional<std::chrono::microseconds> time{};  ///< from the start of the stream; absent: that of the last message
};

/// What waits to leave on one connection: control messages and commands first, then media in order. Any thread may add,
/// the writer of the connection takes.
class RTMPSendQueue {
 public:
  /// Control messages that may wait; a server that asks for more answers than it reads gets none for the rest.
  static constexpr std::size_t maximumControl = 1024;
  /// What they may take beyond the bound of all payloads.
  static constexpr std::size_t maximumControlBytes = 1U << 20;

  struct State {
    std::size_t bytes = 0;
    std::chrono::milliseconds duration{};
    std::size_t videoFrames = 0;
  };

  /// `maximumBytes`: the hard bound of all payloads.
  explicit RTMPSendQueue(std::size_t maximumBytes) : maximumBytes_(maximumBytes) {}

  /// Called, from whichever thread adds, when the writer had found nothing to do.
  void setWaker(std::function<void()> waker);

  /// False, and nothing added, when the bound would be passed or the queue is closed.
  bool push(RTMPOutgoing message);
  /// Nothing when the queue is empty; the next `push` then calls the waker.
  std::optional<RTMPOutgoing> pop();
  /// The writer has handed a message of this size to the network.
  void release(std::size_t payloadBytes);
  /// Takes out the frames of video that wait for one stream; how many there were.
  std::size_t dropVideo(std::uint32_t streamId);
  /// Drops all and takes no more.
  void close();

  State state() const;
  bool isEmpty() const;

 private:
  mutable std::mutex mutex_;
  std::deque<RTMPOutgoing> control_;
  std::deque<RTMPOutgoing> media_;
  std::size_t maximumBytes_;
  std::size_t bytes_ = 0;
  std::size_t videoFrames_ = 0;
  bool writerSleeps_ = false;
  bool isClosed_ = false;
  std::function<void()> waker_;
};

}  // namespace vellora
