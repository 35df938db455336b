#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "media/movies/MovieRepair.h"
#include "media/movies/MovieWriter.h"

namespace vellora::test {

/// Pictures that tell their number when decoded: a gradient with a row of black and white squares in its corner.
class NumberedPictures {
 public:
  NumberedPictures(int width, int height);
  /// Says what has changed since the picture before when their numbers follow.
  MoviePicture at(std::uint32_t number);

  static constexpr int squares = 16;
  static constexpr int edge = 4;  ///< pixels of a square

 private:
  int width_;
  int height_;
  std::vector<std::uint8_t> pixels_;
};

MovieWriter::Settings settingsFor(int width, int height, std::size_t sounds = 0);

/// Waits until the writer takes it; false when it never does.
bool append(MovieWriter& writer, NumberedPictures& pictures, std::uint32_t number, double time);
/// A tone, with a click in it when `click` lies inside.
std::vector<float> soundBetween(double start, double end, double click, int channels = 1);

Result<MovieWriter::Summary, MovieFailure> finish(MovieWriter& writer, double end);

/// What ffprobe and ffmpeg say of a movie.
struct DecodedMovie {
  struct Packet {
    double time = 0;
    double decodeTime = 0;
    double duration = 0;
    bool isKey = false;
  };
  std::string errors;  ///< what they complained about
  std::vector<Packet> video;
  std::vector<std::uint32_t> numbers;  ///< of the pictures, decoded
  double duration = 0;                 ///< seconds, of the file
};
DecodedMovie decode(const std::filesystem::path& file);
/// The tone's samples of a track as they are played from the movie's start.
std::vector<float> decodeSound(const std::filesystem::path& file, std::size_t track = 0);
/// Entries of a stream by ffprobe, such as "width,height", as "value,value".
std::string probeEntries(const std::filesystem::path& file, const std::string& stream, const std::string& entries);

}  // namespace vellora::test
