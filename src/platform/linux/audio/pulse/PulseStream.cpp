#include "platform/linux/audio/pulse/PulseStream.h"

#include <sys/time.h>
#include <time.h>

#include <cstring>
#include <utility>

namespace vellora {
namespace {

double secondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

double hostTime() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double wallTime() {
  timeval now{};
  gettimeofday(&now, nullptr);
  return secondsOf(now);
}

}  // namespace

Result<std::unique_ptr<AudioStream>, AudioCaptureError> PulseStream::open(const QString& deviceID, int channels,
                                                                          AudioCapture::Callbacks callbacks) {
  if (channels < 1 || channels > 2) return failure(AudioCaptureError::failed);
  std::unique_ptr<PulseStream> stream(new PulseStream(channels, std::move(callbacks)));
  if (auto started = stream->start(deviceID); !started) return failure(started.error());
  return stream;
}

PulseStream::PulseStream(int channels, AudioCapture::Callbacks callbacks)
    : channels_(channels), callbacks_(std::move(callbacks)), timing_(connection_) {}

PulseStream::~PulseStream() {
  const PulseConnection::Lock lock(connection_);
  timing_.stop();
  question_.reset();
  stream_.reset();
  connection_.close();
}

Result<void, AudioCaptureError> PulseStream::start(const QString& deviceID) {
  const PulseConnection::Lock lock(connection_);
  connection_.onStateChanged([this] {
    if (connection_.isLost()) lose(AudioCaptureError::notAvailable);
  });
  if (!connection_.connect() || !connection_.wait([this] { return connection_.isReady(); })) {
    return failure(AudioCaptureError::notAvailable);
  }
  isSystemSound_ = deviceID == AudioCapture::systemSound;
  if (isSystemSound_) {
    pa_context_set_subscribe_callback(
        connection_.context(),
        [](pa_context*, pa_subscription_event_type_t, std::uint32_t, void* self) {
          static_cast<PulseStream*>(self)->askForDefaultOutput();
        },
        this);
    forget(pa_context_subscribe(connection_.context(), PA_SUBSCRIPTION_MASK_SERVER, nullptr, nullptr));
    askForDefaultOutput();
  } else {
    record(deviceID.toStdString());
  }
  const bool hasAnswered = connection_.wait(
      [this] { return isLost_ || hasEnded() || (stream_ && pa_stream_get_state(stream_.get()) == PA_STREAM_READY); });
  if (connection_.isLost()) return failure(AudioCaptureError::notAvailable);
  if (!hasAnswered) return failure(isSystemSound_ ? AudioCaptureError::deviceNotFound : AudioCaptureError::failed);
  if (hasEnded()) {
    const bool isUnknown = pa_context_errno(connection_.context()) == PA_ERR_NOENTITY;
    return failure(isUnknown ? AudioCaptureError::deviceNotFound : AudioCaptureError::failed);
  }
  isStarted_ = true;
  return {};
}

void PulseStream::record(const std::string& source) {
  source_ = source;
  samples_.clear();
  delivered_ = 0;
  clock_ = SampleClock(AudioChunk::sampleRate);
  isSettled_ = false;
  const pa_sample_spec format{PA_SAMPLE_FLOAT32NE, AudioChunk::sampleRate, static_cast<std::uint8_t>(channels_)};
  stream_.reset(pa_stream_new(connection_.context(), "Recording", &format, nullptr));
  if (!stream_) return;
  pa_stream_set_state_callback(
      stream_.get(), [](pa_stream*, void* self) { static_cast<PulseStream*>(self)->stateChanged(); }, this);
  pa_stream_set_read_callback(
      stream_.get(), [](pa_stream*, std::size_t, void* self) { static_cast<PulseStream*>(self)->read(); }, this);
  pa_buffer_attr buffer{};
  buffer.maxlength = static_cast<std::uint32_t>(-1);
  buffer.fragsize = static_cast<std::uint32_t>(chunkFrames * static_cast<std::int64_t>(frameBytes()));
  const auto flags = static_cast<pa_stream_flags_t>(PA_STREAM_DONT_MOVE | PA_STREAM_ADJUST_LATENCY);
  pa_stream_connect_record(stream_.get(), source.c_str(), &buffer, flags);
}

void PulseStream::stateChanged() {
  connection_.wake();
  if (pa_stream_get_state(stream_.get()) == PA_STREAM_READY) return askForTiming();
  // The default output may be gone; the server tells which one takes its place.
  if (!hasEnded() || !isStarted_) return;
  timing_.stop();
  if (isSystemSound_) {
    source_.clear();
    askForDefaultOutput();
  } else if (!connection_.isLost()) {
    lose(AudioCaptureError::deviceNotFound);
  }
}

void PulseStream::lose(AudioCaptureError error) {
  timing_.stop();
  if (!isStarted_ || std::exchange(isLost_, true)) return;
  if (callbacks_.onLost) callbacks_.onLost(error);
}

void PulseStream::askForDefaultOutput() {
  static constexpr auto takeOutput = [](pa_context*, const pa_sink_info* output, int isLast, void* self) {
    if (isLast == 0) static_cast<PulseStream*>(self)->takeMonitor(output->monitor_source_name);
  };
  const auto takeServer = [](pa_context* context, const pa_server_info* server, void* self) {
    if (server == nullptr || server->default_sink_name == nullptr) return;
    static_cast<PulseStream*>(self)->question_.reset(
        pa_context_get_sink_info_by_name(context, server->default_sink_name, takeOutput, self));
  };
  if (!isLost_) question_.reset(pa_context_get_server_info(connection_.context(), takeServer, this));
}

void PulseStream::takeMonitor(const char* source) {
  if (source == nullptr || source_ == source) return;
  timing_.stop();
  record(source);
}

void PulseStream::read() {
  const void* bytes = nullptr;
  std::size_t count = 0;
  while (pa_stream_readable_size(stream_.get()) > 0 && pa_stream_peek(stream_.get(), &bytes, &count) >= 0) {
    if (count == 0) break;
    append(bytes, count);
    pa_stream_drop(stream_.get());
  }
  deliver();
}

void PulseStream::append(const void* bytes, std::size_t count) {
  const std::size_t before = samples_.size();
  samples_.resize(before + count / sizeof(float));  // a hole is silence
  if (bytes != nullptr) std::memcpy(samples_.data() + before, bytes, count / sizeof(float) * sizeof(float));
}

void PulseStream::deliver() {
  if (!isSettled_) return;
  const auto chunkSamples = static_cast<std::size_t>(chunkFrames) * static_cast<std::size_t>(channels_);
  std::size_t taken = 0;
  for (; taken + chunkSamples <= samples_.size(); taken += chunkSamples) {
    const std::span<const float> samples(samples_.data() + taken, chunkSamples);
    if (callbacks_.onChunk && !isLost_) {
      callbacks_.onChunk({.channels = channels_, .samples = samples, .hostTime = clock_.timeOf(delivered_)});
    }
    delivered_ += chunkFrames;
  }
  samples_.erase(samples_.begin(), samples_.begin() + static_cast<std::ptrdiff_t>(taken));
}

void PulseStream::askForTiming() {
  forget(pa_stream_update_timing_info(
      stream_.get(),
      [](pa_stream* stream, int isDone, void* self) {
        auto* recording = static_cast<PulseStream*>(self);
        if (stream != recording->stream_.get()) return;
        if (isDone != 0) recording->takeTiming();
        recording->timing_.start(recording->isSettled_ ? timingInterval : firstInterval,
                                 [recording] { recording->askForTiming(); });
      },
      this));
}

void PulseStream::takeTiming() {
  const pa_timing_info* timing = pa_stream_get_timing_info(stream_.get());
  // The wall clock tells how long ago that was; set meanwhile, it tells nonsense.
  const double age = timing == nullptr ? -1 : wallTime() - secondsOf(timing->timestamp);
  if (age < 0 || age > 1 || timing->write_index < 0) {
    const auto waiting = static_cast<std::int64_t>(samples_.size()) / channels_;
    clock_.observe(static_cast<double>(delivered_ + waiting), hostTime());
  } else {
    const double underWay = (static_cast<double>(timing->source_usec) - static_cast<double>(timing->sink_usec)) * 1e-6;
    const double taken = static_cast<double>(timing->write_index) / static_cast<double>(frameBytes());
    clock_.observe(taken + underWay * AudioChunk::sampleRate, hostTime() - age);
  }
  if (isSettled_ || !clock_.isSettled()) return;
  isSettled_ = true;
  deliver();
}

}  // namespace vellora
