#pragma once

#include <asio/awaitable.hpp>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "base/Result.h"
#include "rtmp/RTMPConnection.h"
#include "rtmp/wire/AMFValue.h"
#include "rtmp/wire/Bytes.h"
#include "rtmp/wire/MediaTags.h"

namespace vellora {

struct RTMPVideoSettings {
  RTMPVideoCodec codec = RTMPVideoCodec::h264;
  int width = 0;
  int height = 0;
  double frameRate = 0;  ///< 0: not known
  double bitRate = 0;    ///< bits per second, 0: not known
  Bytes configuration;   ///< avcC or hvcC record
};

struct RTMPAudioSettings {
  RTMPAudioCodec codec = RTMPAudioCodec::aac;
  double sampleRate = 0;
  int channels = 0;
  double bitRate = 0;
  Bytes configuration;  ///< AudioSpecificConfig or OpusHead
};

/// A compressed frame. Times count from any common start of audio and video; the first one to be appended becomes 0.
struct RTMPVideoFrame {
  std::chrono::microseconds decodeTime{};
  std::chrono::microseconds presentationTime{};
  bool isKeyFrame = false;
  ByteView data;  ///< length-prefixed NAL units; copied
};

struct RTMPAudioFrame {
  std::chrono::microseconds time{};
  ByteView data;  ///< one raw AAC frame or Opus packet; copied
};

/// What waits to leave.
struct RTMPQueueState {
  std::size_t bytes = 0;
  std::chrono::milliseconds duration{};  ///< from the oldest to the newest frame that waits
  std::size_t videoFrames = 0;
};

enum class RTMPAppendResult {
  queued,
  waitsForKeyFrame,  ///< dropped: an earlier frame of its group was dropped
  queueFull,         ///< dropped: the bound of the queue is reached
  notPublishing,     ///< dropped
};

/// One published stream of a connection. Like the connection it may be used from any thread.
class RTMPStream {
 public:
  enum class HowToPublish { live, record, append, appendWithGap };
  static std::string_view textOf(HowToPublish type);

  explicit RTMPStream(std::shared_ptr<RTMPConnection> connection);
  ~RTMPStream();
  RTMPStream(const RTMPStream&) = delete;
  RTMPStream& operator=(const RTMPStream&) = delete;

  asio::awaitable<Result<void, RTMPFailure>> createStream();
  /// Ends with the status "NetStream.Publish.Start", after which frames flow; settings made before are sent first.
  asio::awaitable<Result<RTMPResponse, RTMPFailure>> publish(std::string name, HowToPublish type = HowToPublish::live);
  /// Sends what is queued for as long as that goes (below a second), ends the sequence and deletes the stream.
  asio::awaitable<void> close();

  /// Also while publishing: metadata and decoder configuration go out again before the next frame.
  void setVideoSettings(RTMPVideoSettings settings);
  void setAudioSettings(RTMPAudioSettings settings);
  /// Frames of video that may wait to leave; 0 for no bound but that of the queue in bytes. More are dropped up to the
  /// next key frame.
  void setVideoInputBufferCounts(std::size_t count);
  /// The map sent as "onMetaData".
  AMFArray metadata() const;

  RTMPAppendResult append(const RTMPVideoFrame& frame);
  RTMPAppendResult append(const RTMPAudioFrame& frame);

  RTMPQueueState queued() const;
  /// Waits until fewer than `bytes` are queued; at once when the connection is closed.
  asio::awaitable<void> waitUntilQueuedBelow(std::size_t bytes);
  /// Drops all video that waits, and what is appended before the next key frame; audio stays. Returns the frames
  /// dropped.
  std::size_t dropQueuedVideo();

 private:
  class State;
  std::shared_ptr<State> state_;
  std::shared_ptr<RTMPConnection> connection_;
};

}  // namespace vellora
