#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "platform/AudioCapture.h"

namespace vellora::test {

/// Sound devices whose sound the test makes. Devices may be opened from any thread.
class ScriptedSound final : public AudioCapture {
 public:
  Result<std::vector<CaptureDeviceInfo>, AudioCaptureError> microphones() override {
    const std::lock_guard lock(mutex_);
    return devices_;
  }
  void onDevicesChanged(std::function<void()> changed) override { changed_ = std::move(changed); }
  Result<std::unique_ptr<AudioStream>, AudioCaptureError> start(const QString& deviceID, int channels,
                                                                Callbacks callbacks) override {
    const std::lock_guard lock(mutex_);
    const bool isKnown = deviceID == systemSound ||
                         std::ranges::find(devices_, deviceID, &CaptureDeviceInfo::uniqueID) != devices_.end();
    if (!isKnown || refusal_) return failure(refusal_.value_or(AudioCaptureError::deviceNotFound));
    const auto open = std::make_shared<Open>(Open{channels, std::move(callbacks)});
    open_[deviceID] = open;
    return std::make_unique<Stream>(*this, open);
  }

  void setDevices(std::vector<CaptureDeviceInfo> devices) {
    {
      const std::lock_guard lock(mutex_);
      devices_ = std::move(devices);
    }
    if (changed_) changed_();
  }
  void setRefusal(std::optional<AudioCaptureError> refusal) {
    const std::lock_guard lock(mutex_);
    refusal_ = refusal;
  }
  bool isOpen(const QString& deviceID) { return find(deviceID) != nullptr; }
  bool isWatched() const { return static_cast<bool>(changed_); }

  /// `seconds` of a constant sound that ended at `hostTime`, in chunks of 10 ms.
  void play(const QString& deviceID, double hostTime, double seconds, float value = 0.5F) {
    const auto open = find(deviceID);
    if (!open) return;
    constexpr int chunkFrames = AudioChunk::sampleRate / 100;
    const std::vector<float> samples(static_cast<std::size_t>(chunkFrames * open->channels), value);
    const int chunks = static_cast<int>(seconds * 100 + 0.5);
    for (int i = 0; i < chunks; ++i) {
      open->callbacks.onChunk(
          {.channels = open->channels, .samples = samples, .hostTime = hostTime + (i - chunks) * 0.01});
    }
  }
  /// It is there again with `setDevices`.
  void unplug(const QString& deviceID) {
    {
      const std::lock_guard lock(mutex_);
      std::erase_if(devices_, [&](const CaptureDeviceInfo& each) { return each.uniqueID == deviceID; });
    }
    if (const auto open = find(deviceID)) open->callbacks.onLost(AudioCaptureError::deviceNotFound);
  }

 private:
  struct Open {
    int channels;
    Callbacks callbacks;
  };
  class Stream final : public AudioStream {
   public:
    Stream(ScriptedSound& sound, std::shared_ptr<Open> open) : sound_(sound), open_(std::move(open)) {}
    ~Stream() override {
      const std::lock_guard lock(sound_.mutex_);
      std::erase_if(sound_.open_, [this](const auto& each) { return each.second == open_; });
    }

   private:
    ScriptedSound& sound_;
    const std::shared_ptr<Open> open_;
  };

  std::shared_ptr<Open> find(const QString& deviceID) {
    const std::lock_guard lock(mutex_);
    const auto found = open_.find(deviceID);
    return found == open_.end() ? nullptr : found->second;
  }

  std::function<void()> changed_;
  std::mutex mutex_;
  // Guarded by mutex_:
  std::vector<CaptureDeviceInfo> devices_;
  std::optional<AudioCaptureError> refusal_;
  std::map<QString, std::shared_ptr<Open>> open_;
};

}  // namespace vellora::test
