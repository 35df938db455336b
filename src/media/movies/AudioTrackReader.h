#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "base/Result.h"
#include "media/movies/AudioReader.h"
#include "media/movies/FileInput.h"
#include "media/movies/LibavPointers.h"
#include "media/movies/MediaReader.h"

namespace vellora {

/// Decodes one audio track of a media file, whatever its format, at the rate and with the channels it begins with, or
/// those that are asked for. Gaps
/// in it, before its first sample too, come as silence, what overlaps is left out, and so is what cannot be decoded.
/// Holds a few packets at a time.
class AudioTrackReader final : public AudioReader {
 public:
  /// `track`: of the audio tracks in the file's order. `noStreams` when there is none with this number.
  static Result<std::unique_ptr<AudioTrackReader>, MediaFailure> open(const std::filesystem::path& file,
                                                                      std::size_t track = 0, AudioForm form = {});
  ~AudioTrackReader() override;

  int sampleRate() const override { return rate_; }
  int channels() const override { return layout_.nb_channels; }
  std::int64_t expectedFrames() const override;
  Result<std::span<const float>, MediaFailure> read() override;
  Result<void, MediaFailure> seek(std::int64_t frame) override;

 private:
  AudioTrackReader(FileInput file, std::string name) : file_(std::move(file)), name_(std::move(name)) {}

  Result<void, MediaFailure> start(std::size_t track, AudioForm form);
  bool openDecoder();
  /// Gives the decoder another packet, or finds the end.
  Result<void, MediaFailure> feed();
  /// Takes the decoded frame: silence before it, and its samples.
  void take();
  bool prepareConverter();
  void convert();
  /// Where the decoded frame begins, in frames from the file's start; `position_` when the file does not say.
  std::int64_t placeOfFrame() const;
  /// Leaves out what lies before the place that was sought.
  void trim();

  FileInput file_;
  std::string name_;
  InputPointer input_;
  FormatPointer format_;
  const AVStream* stream_ = nullptr;
  CodecPointer codec_;
  PacketPointer packet_;
  FramePointer frame_;
  bool hasEnded_ = false;  // the file; the decoder may still hold something

  int rate_ = 0;
  AVChannelLayout layout_{};
  ResamplerPointer converter_;
  // What the converter is set to.
  int frameFormat_ = -1;
  int frameRate_ = 0;
  AVChannelLayout frameLayout_{};

  std::int64_t silence_ = 0;    // frames still to be given before samples_
  std::vector<float> samples_;  // decoded, not given yet
  std::vector<float> given_;
  std::int64_t position_ = 0;           // frames from the file's start, behind silence_ and samples_
  std::optional<std::int64_t> sought_;  // until the first frame behind a jump is there
};

}  // namespace vellora
