#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "base/Result.h"
#include "media/movies/FileInput.h"
#include "media/movies/LibavPointers.h"
#include "media/movies/MediaReader.h"

namespace vellora {

/// Decodes one audio track of a media file into interleaved floats, from the file's start to the track's end, whatever
/// its format: at the rate and with the channels it begins with. Gaps in it, before its first sample too, come as
/// silence, what overlaps is left out, and so is what cannot be decoded. Holds a few packets at a time. Used by one
/// thread.
class AudioTrackReader {
 public:
  /// `track`: of the audio tracks in the file's order. `noStreams` when there is none with this number.
  static Result<std::unique_ptr<AudioTrackReader>, MediaFailure> open(const std::filesystem::path& file,
                                                                      std::size_t track = 0);
  ~AudioTrackReader();

  int sampleRate() const { return rate_; }
  int channels() const { return layout_.nb_channels; }
  /// Frames, as far as the file says; 0: not known.
  std::int64_t expectedFrames() const;

  /// The samples that follow those before, valid until the next call; empty at the end. `damaged` or `unreadable` comes
  /// where nothing more can be got.
  Result<std::span<const float>, MediaFailure> read();

 private:
  AudioTrackReader(FileInput file, std::string name) : file_(std::move(file)), name_(std::move(name)) {}

  Result<void, MediaFailure> start(std::size_t track);
  bool openDecoder();
  /// Gives the decoder another packet, or finds the end.
  Result<void, MediaFailure> feed();
  /// Takes the decoded frame: silence before it, and its samples.
  void take();
  bool prepareConverter();
  void convert();

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
  std::int64_t position_ = 0;  // frames from the file's start, behind silence_ and samples_
};

}  // namespace vellora
