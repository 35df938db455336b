#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "media/movies/MediaReader.h"

namespace vellora::test {

/// Media out of nothing: H.264 at 25 frames a second with a key frame every ten, and AAC at 48 kHz, interleaved.
/// The first byte of each frame's data counts the frames of its kind, from 0 again after a rewind.
class FakeMediaReader : public MediaReader {
 public:
  static constexpr std::chrono::microseconds videoFrame{40000};
  static constexpr std::chrono::microseconds audioFrame{21333};

  /// `videoBytes`: of each frame.
  FakeMediaReader(int videoFrames, int audioFrames, std::size_t videoBytes = 200)
      : videoFrames_(videoFrames), audioFrames_(audioFrames), videoData_(videoBytes), audioData_(50) {
    if (videoFrames > 0) {
      video_.emplace();
      video_->codec = "h264";
      video_->width = 320;
      video_->height = 180;
      video_->frameRate = 25;
      video_->configuration = {1, 0x64, 0, 0x1f, 0xff, 0xe0, 0};
    }
    if (audioFrames > 0) {
      audio_.emplace();
      audio_->kind = MediaKind::audio;
      audio_->codec = "aac";
      audio_->sampleRate = 48000;
      audio_->channels = 2;
      audio_->configuration = {0x11, 0x90};
    }
  }

  /// Reading fails once so many packets have been read.
  void breakAfter(int packets) { breaksAfter_ = packets; }
  void setEncodedFrom(const char* codec) { video_->encodedFrom = codec; }

  const std::optional<MediaTrack>& video() const override { return video_; }
  const std::optional<MediaTrack>& audio() const override { return audio_; }
  std::chrono::microseconds duration() const override {
    return std::max(videoFrames_ * videoFrame, audioFrames_ * audioFrame);
  }

  Result<const MediaPacket*, MediaFailure> read() override {
    if (breaksAfter_ >= 0 && nextVideo_ + nextAudio_ >= breaksAfter_) {
      return failure(MediaFailure{MediaError::damaged, "the file is damaged"});
    }
    const bool hasVideo = nextVideo_ < videoFrames_;
    const bool hasAudio = nextAudio_ < audioFrames_;
    if (!hasVideo && !hasAudio) return nullptr;
    packet_ = {};
    if (hasVideo && (!hasAudio || nextVideo_ * videoFrame <= nextAudio_ * audioFrame)) {
      fill(MediaKind::video, nextVideo_ * videoFrame, videoFrame, videoData_, nextVideo_);
      packet_.isKeyFrame = nextVideo_ % 10 == 0;
      ++nextVideo_;
    } else {
      fill(MediaKind::audio, nextAudio_ * audioFrame, audioFrame, audioData_, nextAudio_);
      ++nextAudio_;
    }
    return &packet_;
  }

  Result<void, MediaFailure> rewind() override {
    nextVideo_ = nextAudio_ = 0;
    return {};
  }

 private:
  void fill(MediaKind kind, std::chrono::microseconds time, std::chrono::microseconds duration,
            std::vector<std::uint8_t>& data, int number) {
    packet_.kind = kind;
    packet_.decodeTime = packet_.presentationTime = time;
    packet_.duration = duration;
    data[0] = static_cast<std::uint8_t>(number);
    packet_.data = data;
  }

  std::optional<MediaTrack> video_, audio_;
  int videoFrames_, audioFrames_;
  int nextVideo_ = 0, nextAudio_ = 0;
  int breaksAfter_ = -1;
  std::vector<std::uint8_t> videoData_, audioData_;
  MediaPacket packet_;
};

}  // namespace vellora::test
