#include "recording/SoundTrack.h"

#include <utility>

namespace vellora {
namespace {

constexpr int microphoneChannels = 1;
constexpr int systemChannels = 2;

}  // namespace

SoundTrack::SoundTrack(AudioCapture& capture, const QString& deviceID, Callbacks callbacks)
    : capture_(capture),
      deviceID_(deviceID),
      isSystemSound_(deviceID == AudioCapture::systemSound),
      channels_(isSystemSound_ ? systemChannels : microphoneChannels),
      callbacks_(std::move(callbacks)),
      meter_(channels_,
             [this](SoundLevel level) {
               if (callbacks_.onLevel) callbacks_.onLevel(level);
             }),
      timeline_(channels_, [this](std::span<const float> samples, double time) {
        if (ready_.interleaved.empty()) ready_.time = time;
        ready_.interleaved.insert(ready_.interleaved.end(), samples.begin(), samples.end());
      }) {}

SoundTrack::~SoundTrack() {
  stream_.reset();
}

Result<std::unique_ptr<SoundTrack>, AudioCaptureError> SoundTrack::open(AudioCapture& capture, const QString& deviceID,
                                                                        Callbacks callbacks) {
  std::unique_ptr<SoundTrack> track(new SoundTrack(capture, deviceID, std::move(callbacks)));
  if (const auto connected = track->connect(); !connected) return failure(connected.error());
  return track;
}

Result<void, AudioCaptureError> SoundTrack::connect() {
  auto stream = capture_.start(deviceID_, channels_,
                               {.onChunk = [this](const AudioChunk& chunk) { receive(chunk); },
                                .onLost = [this](AudioCaptureError) { lose(); }});
  if (!stream) return failure(stream.error());
  stream_ = std::move(*stream);
  return {};
}

bool SoundTrack::isLost() const {
  const std::lock_guard lock(mutex_);
  return isLost_;
}

bool SoundTrack::reopen() {
  stream_.reset();
  {
    const std::lock_guard lock(mutex_);
    isLost_ = false;  // the new stream may be lost before this returns
  }
  if (connect()) return true;
  const std::lock_guard lock(mutex_);
  isLost_ = true;
  return false;
}

void SoundTrack::receive(const AudioChunk& chunk) {
  if (chunk.channels == channels_) meter_.append(chunk.samples);
  change([&] { timeline_.append(chunk); });
}

void SoundTrack::lose() {
  {
    const std::lock_guard lock(mutex_);
    timeline_.loseDevice();
    isLost_ = true;
  }
  if (callbacks_.onLost) callbacks_.onLost();
}

template <class Change>
void SoundTrack::change(Change change) {
  const std::lock_guard lock(mutex_);
  const bool hadSome = !ready_.interleaved.empty();
  change();
  // Locked, so that nobody is called after `finish`.
  if (onSamples_ && !hadSome && !ready_.interleaved.empty()) onSamples_();
}

void SoundTrack::begin(double hostTime, std::function<void()> onSamples) {
  change([&] {
    onSamples_ = std::move(onSamples);
    timeline_.begin(hostTime);
  });
}

void SoundTrack::pause(double hostTime) {
  const std::lock_guard lock(mutex_);
  timeline_.pause(hostTime);
}

void SoundTrack::resume(double hostTime) {
  const std::lock_guard lock(mutex_);
  timeline_.resume(hostTime);
}

void SoundTrack::advance(double hostTime) {
  change([&] { timeline_.advance(hostTime); });
}

void SoundTrack::end(double hostTime) {
  const std::lock_guard lock(mutex_);
  timeline_.end(hostTime);
}

void SoundTrack::finish(double hostTime) {
  const std::lock_guard lock(mutex_);
  onSamples_ = nullptr;
  timeline_.finish(hostTime);
}

SoundTrack::Samples SoundTrack::take() {
  const std::lock_guard lock(mutex_);
  return std::exchange(ready_, {});
}

SoundReport SoundTrack::report() const {
  const std::lock_guard lock(mutex_);
  return {isSystemSound_, isLost_, timeline_.report()};
}

}  // namespace vellora
