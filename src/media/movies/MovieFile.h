#pragma once

#include <array>
#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "base/Result.h"
#include "media/movies/FileInput.h"
#include "media/movies/Interleaver.h"
#include "media/movies/LibavPointers.h"
#include "media/movies/MediaReader.h"
#include "media/movies/MovieClock.h"
#include "media/movies/PacketFormat.h"

namespace vellora {

/// A media file taken apart: its first video and its best audio track, packets in order and in form. Opens nothing but
/// the file itself, whatever the file refers to.
class MovieFile {
 public:
  struct Track {
    const AVStream* stream = nullptr;  ///< lives as long as the file is not rewound
    MediaTrack description;
  };

  static Result<std::unique_ptr<MovieFile>, MediaFailure> open(const std::filesystem::path& file);

  const std::optional<Track>& track(MediaKind kind) const { return tracks_.at(static_cast<std::size_t>(kind)); }
  std::chrono::microseconds duration() const { return duration_; }
  /// Whether pictures may come without the time they are shown at, in a track whose pictures are not in that order.
  bool lacksPresentationTimes() const { return lacksPresentationTimes_; }
  /// What names the file in a message.
  const std::string& name() const { return name_; }

  /// Nothing at the end. After a failure the file stays failed until it is rewound.
  Result<std::optional<QueuedPacket>, MediaFailure> read();
  Result<void, MediaFailure> rewind();

 private:
  MovieFile(FileInput input, std::string name) : file_(std::move(input)), name_(std::move(name)) {}

  Result<void, MediaFailure> start();
  Result<void, MediaFailure> chooseTracks();
  void describe(MediaKind kind, int index);
  /// Reads one packet into the interleaver, or finds the end.
  void fill();
  void take(PacketPointer packet);

  FileInput file_;
  std::string name_;
  InputPointer input_;
  FormatPointer format_;
  std::array<std::optional<Track>, 2> tracks_;
  std::array<std::unique_ptr<PacketFormat>, 2> formats_;
  std::chrono::microseconds duration_{};
  bool lacksPresentationTimes_ = false;
  MovieClock clock_;
  Interleaver interleaver_;
  bool hasEnded_ = false;
  std::optional<MediaFailure> failure_;
};

}  // namespace vellora
