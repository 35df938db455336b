#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "base/Geometry.h"
#include "base/Result.h"

namespace vellora {

enum class MovieError {
  cannotCreate,   ///< no such folder, no permission
  noEncoder,      ///< none takes these settings
  encoderFailed,  ///< in the middle
  diskFull,       ///< or a limit on the size of files
  writeFailed,    ///< the disk refuses otherwise
  unreadable,     ///< no such file, no permission
  inUse,          ///< still being written
  notAMovie,      ///< not written by a MovieWriter
  empty,          ///< no picture and no sound in it
};

struct MovieFailure {
  MovieError error = MovieError::writeFailed;
  std::string message;  ///< one English sentence without a full stop
};

/// A picture on its way into a movie, of the size given in the settings.
struct MoviePicture {
  enum class Format {
    bgra,  ///< plane 0, 8 bits, sRGB
    i420,  ///< planes Y, U, V, 8 bits, limited range, even size
  };
  Format format = Format::bgra;
  std::array<const std::uint8_t*, 3> planes{};
  std::array<std::ptrdiff_t, 3> bytesPerRow{};
  bool isBt601 = false;  ///< i420 of that matrix, else of BT.709
  /// Counts the source's pictures: `changes` is what differs from the picture with the number before. 0, or one that
  /// does not follow the number appended last: everything may differ.
  std::uint64_t number = 0;
  std::vector<PixelRect> changes{};
  /// Keeps the memory; let go of as soon as the pixels are converted.
  std::shared_ptr<const void> owner{};
};

/// Writes a QuickTime movie: one video track, and up to two sound tracks in AAC. What is written is complete on the
/// disk in pieces of about a second, so that a kill or a power cut costs no more than two; MovieRepair makes an
/// ordinary movie of the rest. Encoding runs on a thread of the writer's; nothing here blocks but create() and the
/// destructor. Used by one thread at a time.
class MovieWriter {
 public:
  static constexpr int sampleRate = 48000;
  static constexpr std::size_t mostSoundTracks = 2;

  struct VideoSettings {
    int width = 0;               ///< pixels; may be odd
    int height = 0;              ///< pixels; may be odd
    std::int64_t bitRate = 0;    ///< bits per second not to be exceeded on average; 0: as VideoEncoderChoice says
    int keyFrameInterval = 120;  ///< pictures
  };
  struct SoundSettings {
    int channels = 1;  ///< 1 or 2
    std::int64_t bitRate = 128000;
  };
  struct Settings {
    VideoSettings video;
    std::vector<SoundSettings> sounds{};
  };
  struct Counts {
    std::uint64_t pictures = 0;     ///< appended
    std::uint64_t notReady = 0;     ///< pictures refused because the encoder had enough to do
    std::uint64_t lostSamples = 0;  ///< frames of sound refused for the same reason, replaced by silence
    std::uint64_t bytes = 0;        ///< in the file
    std::string encoder;            ///< of the video, as libav names it
  };
  /// How a movie ended.
  struct Summary {
    double duration = 0;  ///< seconds
    std::uint64_t bytes = 0;
  };
  using FailureHandler = std::function<void(MovieFailure)>;

  /// Opens the encoders and makes the file, which must not exist. Takes some milliseconds, with graphics hardware some
  /// hundred. `onFailure` comes at most once, on a thread of the writer's, when nothing more can be written; what was
  /// written before stays.
  static Result<std::unique_ptr<MovieWriter>, MovieFailure> create(const std::filesystem::path& path,
                                                                   const Settings& settings,
                                                                   FailureHandler onFailure = {});
  /// Without finish() the file stays as a kill would leave it, all that was appended included.
  virtual ~MovieWriter() = default;

  /// False while the encoder has enough to do.
  virtual bool isReadyForMoreVideo() const = 0;
  /// `time`: seconds from the movie's start, growing. False when the picture was not taken: there was enough to do, or
  /// writing has failed or finished.
  virtual bool appendVideo(MoviePicture picture, double time) = 0;
  /// Interleaved samples of a track. `time` is that of the first, in seconds from the movie's start; what lies before
  /// 0 is left out. Samples that come within 20 ms of the end of those before follow them without a gap; silence fills
  /// larger gaps and what overlaps more is cut. False when they were not taken, as above.
  virtual bool appendSound(std::size_t track, std::span<const float> samples, double time) = 0;
  /// Tells that the recording has come to `time` and the picture still stands, so that a kill does not cost that time.
  /// Sound tells the same by itself. To be called about once a second while no picture comes.
  virtual void advance(double time) = 0;

  virtual Counts counts() const = 0;

  /// Ends the movie at `end` seconds, until which its last picture stays and beyond which no sound is heard, and makes
  /// it an ordinary movie with one index. `done` comes once, on a thread of the writer's, after which that may be
  /// destroyed on any other thread. After a failure in the middle the movie is made of what was written before it, and
  /// the failure is handed to `done` only where that cannot be.
  virtual void finish(double end, std::function<void(Result<Summary, MovieFailure>)> done) = 0;

 protected:
  MovieWriter() = default;
};

}  // namespace vellora
