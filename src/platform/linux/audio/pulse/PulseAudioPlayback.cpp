#include "platform/linux/audio/pulse/PulseAudioPlayback.h"

#include <algorithm>
#include <utility>

#include "platform/linux/audio/pulse/PulseConnection.h"

namespace vellora {
namespace {

constexpr std::uint32_t frameBytes = sizeof(float) * AudioPlayback::channels;
/// What the server holds of the stream, in frames: 40 ms.
constexpr std::uint32_t bufferedFrames = AudioPlayback::sampleRate / 25;
constexpr pa_sample_spec sampleFormat{PA_SAMPLE_FLOAT32NE, AudioPlayback::sampleRate, AudioPlayback::channels};

class PulsePlayback final : public PlaybackStream {
 public:
  explicit PulsePlayback(AudioPlayback::Callbacks callbacks) : callbacks_(std::move(callbacks)) {}
  ~PulsePlayback() override {
    const PulseConnection::Lock lock(connection_);
    // Ending the connection drops what the server still holds.
    stream_.reset();
    connection_.close();
  }

  Result<void, AudioPlaybackError> start() {
    const PulseConnection::Lock lock(connection_);
    connection_.onStateChanged([this] {
      if (connection_.isLost()) lose();
    });
    if (!connection_.connect() || !connection_.wait([this] { return connection_.isReady(); })) {
      return failure(AudioPlaybackError::notAvailable);
    }
    if (!connect()) return failure(AudioPlaybackError::failed);
    const bool hasAnswered =
        connection_.wait([this] { return hasEnded() || pa_stream_get_state(stream_.get()) == PA_STREAM_READY; });
    if (!hasAnswered || hasEnded()) return failure(AudioPlaybackError::failed);
    isStarted_ = true;
    return {};
  }

  std::int64_t heardFrames() override {
    const PulseConnection::Lock lock(connection_);
    pa_usec_t heard = 0;
    if (isLost_ || !stream_ || pa_stream_get_time(stream_.get(), &heard) < 0) return heard_;
    const auto frames = static_cast<std::int64_t>(heard) * AudioPlayback::sampleRate / 1'000'000;
    heard_ = std::clamp(frames, heard_, std::max(heard_, written_));
    return heard_;
  }

 private:
  bool hasEnded() const { return !PA_STREAM_IS_GOOD(pa_stream_get_state(stream_.get())); }

  bool connect() {
    stream_.reset(pa_stream_new(connection_.context(), "Playback", &sampleFormat, nullptr));
    if (!stream_) return false;
    pa_stream_set_state_callback(
        stream_.get(),
        [](pa_stream*, void* self) {
          auto* const playback = static_cast<PulsePlayback*>(self);
          playback->connection_.wake();
          if (playback->hasEnded()) playback->lose();
        },
        this);
    pa_stream_set_write_callback(
        stream_.get(),
        [](pa_stream*, std::size_t bytes, void* self) { static_cast<PulsePlayback*>(self)->write(bytes); }, this);
    pa_buffer_attr buffer{};
    buffer.maxlength = buffer.prebuf = buffer.minreq = buffer.fragsize = static_cast<std::uint32_t>(-1);
    buffer.tlength = bufferedFrames * frameBytes;
    const auto flags = static_cast<pa_stream_flags_t>(PA_STREAM_ADJUST_LATENCY | PA_STREAM_INTERPOLATE_TIMING |
                                                      PA_STREAM_AUTO_TIMING_UPDATE);
    return pa_stream_connect_playback(stream_.get(), nullptr, &buffer, flags, nullptr, nullptr) >= 0;
  }

  void write(std::size_t bytes) {
    while (bytes >= frameBytes) {
      void* to = nullptr;
      std::size_t count = bytes;
      if (pa_stream_begin_write(stream_.get(), &to, &count) < 0 || to == nullptr || count < frameBytes) return;
      count -= count % frameBytes;
      count = std::min(count, bytes - bytes % frameBytes);
      callbacks_.fill({static_cast<float*>(to), count / sizeof(float)});
      if (pa_stream_write(stream_.get(), to, count, nullptr, 0, PA_SEEK_RELATIVE) < 0) return;
      written_ += static_cast<std::int64_t>(count / frameBytes);
      bytes -= count;
    }
  }

  void lose() {
    if (!isStarted_ || std::exchange(isLost_, true)) return;
    if (callbacks_.onLost) callbacks_.onLost(AudioPlaybackError::failed);
  }

  const AudioPlayback::Callbacks callbacks_;
  bool isStarted_ = false;
  bool isLost_ = false;
  std::int64_t written_ = 0;  // frames
  std::int64_t heard_ = 0;
  PulseConnection connection_;
  PulseStreamPointer stream_;
};

}  // namespace

Result<std::unique_ptr<PlaybackStream>, AudioPlaybackError> PulseAudioPlayback::start(Callbacks callbacks) {
  auto stream = std::make_unique<PulsePlayback>(std::move(callbacks));
  if (auto started = stream->start(); !started) return failure(started.error());
  return stream;
}

}  // namespace vellora
