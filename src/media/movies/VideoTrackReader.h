#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "base/Result.h"
#include "media/movies/FileInput.h"
#include "media/movies/LibavPointers.h"
#include "media/movies/PictureConverter.h"
#include "media/movies/VideoReader.h"

namespace vellora {

/// Decodes the first video track of a media file with two threads of its own. Pictures that cannot be decoded are left
/// out. Times count from the file's start, as AudioTrackReader's do.
class VideoTrackReader final : public VideoReader {
 public:
  static Result<std::unique_ptr<VideoReader>, MediaFailure> open(const std::filesystem::path& file);

  int width() const override { return converter_->size().width; }
  int height() const override { return converter_->size().height; }
  double duration() const override;
  bool next() override;
  bool seek(double time) override;
  PictureSpan span() const override;
  bool draw(std::uint32_t* pixels, int width, int height) override;

 private:
  /// A decoded picture, or none, and when it begins to be seen, in microseconds.
  struct Decoded {
    FramePointer frame;
    std::int64_t time = 0;
    std::int64_t duration = 0;
    explicit operator bool() const { return frame != nullptr; }
  };

  VideoTrackReader(FileInput file, std::string name) : file_(std::move(file)), name_(std::move(name)) {}

  Result<void, MediaFailure> start();
  bool openDecoder();
  /// None at the end, and where nothing more can be read.
  Decoded decode();
  /// Gives the decoder another packet, or tells it the end.
  void feed();
  std::int64_t timeOf(const AVFrame& frame) const;

  FileInput file_;
  std::string name_;
  InputPointer input_;
  FormatPointer format_;
  const AVStream* stream_ = nullptr;
  CodecPointer codec_;
  PacketPointer packet_;
  std::optional<PictureConverter> converter_;
  ScalerPointer scaler_;
  Decoded current_;
  Decoded following_;      // tells how long the current one is seen
  bool hasEnded_ = false;  // the file; the decoder may still hold something
};

}  // namespace vellora
