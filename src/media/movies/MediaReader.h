#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/Result.h"

namespace vellora {

enum class MediaKind { video, audio };

enum class MediaError {
  unreadable,   ///< no such file, no permission
  notMedia,     ///< no format this program reads
  noStreams,    ///< neither video nor audio in it
  damaged,      ///< broken in the middle
  unsupported,  ///< a codec that cannot be decoded
};

struct MediaFailure {
  MediaError error = MediaError::notMedia;
  std::string message;  ///< one English sentence without a full stop
};

/// What compressed media is made of. `configuration`: avcC, hvcC, AudioSpecificConfig or OpusHead, as the codec wants
/// it.
struct MediaTrack {
  MediaKind kind = MediaKind::video;
  std::string codec;  ///< "h264", "hevc", "aac", "opus"; other names as the file has them
  int width = 0;      ///< pixels
  int height = 0;
  double frameRate = 0;
  int sampleRate = 0;
  int channels = 0;
  std::int64_t bitRate = 0;  ///< bits per second, 0: not known
  std::vector<std::uint8_t> configuration;
  std::string encodedFrom{};  ///< the file's codec where frames are encoded again while reading, else empty
};

/// One compressed frame of either kind. Times count from the start of the file.
struct MediaPacket {
  MediaKind kind = MediaKind::video;
  std::chrono::microseconds decodeTime{};
  std::chrono::microseconds presentationTime{};
  std::chrono::microseconds duration{};
  bool isKeyFrame = false;
  std::span<const std::uint8_t> data;  ///< valid until the next read
};

/// Reads a media file's first video and its best audio track, as packets in the order of decode time, both kinds mixed.
/// H.264 and HEVC packets come as length-prefixed NAL units and AAC without ADTS, whatever the file has. Decode times
/// grow within a track, and no picture is shown before it is decoded. What cannot be read is left out; `damaged` comes
/// where nothing more can be got. No file but this one is opened, whatever it refers to. Used by one thread.
class MediaReader {
 public:
  static Result<std::unique_ptr<MediaReader>, MediaFailure> open(const std::filesystem::path& file);
  virtual ~MediaReader() = default;

  virtual const std::optional<MediaTrack>& video() const = 0;
  virtual const std::optional<MediaTrack>& audio() const = 0;
  /// 0 when the file does not say.
  virtual std::chrono::microseconds duration() const = 0;
  /// Null at the end; the packet is valid until the next call.
  virtual Result<const MediaPacket*, MediaFailure> read() = 0;
  /// Back to the start; packets then count from 0 again.
  virtual Result<void, MediaFailure> rewind() = 0;
};

/// A reader for what a streaming server takes: tracks in H.264, HEVC, AAC or Opus pass through untouched, others are
/// encoded again as H.264 and AAC while reading, which may use several threads of its own. Untouched means also that a
/// rotation the file asks for is lost, as servers know none, and that H.264 of a profile a server refuses (4:4:4, 10
/// bits) stays what it is. The one exception: H.264 and HEVC with B-frames in a file that says nothing of when pictures
/// are shown (AVI, bare streams) is encoded again.
Result<std::unique_ptr<MediaReader>, MediaFailure> openForStreaming(const std::filesystem::path& file);

}  // namespace vellora
