#include "RecordedMovies.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <future>
#include <numbers>
#include <sstream>
#include <thread>

#include "support/ChildProcess.h"

namespace vellora::test {
namespace {

std::string run(std::vector<std::string> command, std::string* errors = nullptr) {
  const auto done = runProgram(command, {}, {}, 60);
  if (errors != nullptr) *errors += done.errors;
  return done.output;
}

double numberIn(const std::string& text) {
  return text.empty() || text == "N/A" ? NAN : std::stod(text);
}

}  // namespace

NumberedPictures::NumberedPictures(int width, int height)
    : width_(width), height_(height), pixels_(static_cast<std::size_t>(width) * height * 4) {
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      std::uint8_t* pixel = pixels_.data() + (static_cast<std::size_t>(y) * width + x) * 4;
      pixel[0] = static_cast<std::uint8_t>(x * 255 / width);
      pixel[1] = static_cast<std::uint8_t>(y * 255 / height);
      pixel[2] = 128;
    }
  }
}

MoviePicture NumberedPictures::at(std::uint32_t number) {
  for (int y = 0; y < edge; ++y) {
    for (int x = 0; x < squares * edge; ++x) {
      const std::uint8_t value = (number >> (x / edge) & 1) != 0 ? 255 : 0;
      std::memset(pixels_.data() + (static_cast<std::size_t>(y) * width_ + x) * 4, value, 4);
    }
  }
  auto copy = std::make_shared<std::vector<std::uint8_t>>(pixels_);
  return {.planes = {copy->data()},
          .bytesPerRow = {width_ * 4},
          .number = number + 1,
          .changes = {{0, 0, squares * edge, edge}},
          .owner = copy};
}

MovieWriter::Settings settingsFor(int width, int height, std::size_t sounds) {
  return {.video = {.width = width, .height = height}, .sounds = std::vector<MovieWriter::SoundSettings>(sounds)};
}

bool append(MovieWriter& writer, NumberedPictures& pictures, std::uint32_t number, double time) {
  for (int i = 0; i < 10000; ++i) {
    if (writer.isReadyForMoreVideo()) return writer.appendVideo(pictures.at(number), time);
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return false;
}

std::vector<float> soundBetween(double start, double end, double click, int channels) {
  const auto first = std::llround(start * MovieWriter::sampleRate), last = std::llround(end * MovieWriter::sampleRate);
  const auto clickAt = std::llround(click * MovieWriter::sampleRate);
  std::vector<float> samples;
  for (auto i = first; i < last; ++i) {
    const double tone = 0.05 * std::sin(2 * std::numbers::pi * 440 * static_cast<double>(i) / MovieWriter::sampleRate);
    const bool isClick = i >= clickAt && i < clickAt + 24;
    samples.insert(samples.end(), static_cast<std::size_t>(channels), isClick ? 0.9F : static_cast<float>(tone));
  }
  return samples;
}

Result<MovieWriter::Summary, MovieFailure> finish(MovieWriter& writer, double end) {
  std::promise<Result<MovieWriter::Summary, MovieFailure>> finished;
  writer.finish(end,
                [&](Result<MovieWriter::Summary, MovieFailure> summary) { finished.set_value(std::move(summary)); });
  return finished.get_future().get();
}

DecodedMovie decode(const std::filesystem::path& file) {
  DecodedMovie movie;
  std::istringstream packets(run({"ffprobe", "-v", "warning", "-select_streams", "v:0", "-show_entries",
                                  "packet=pts_time,dts_time,duration_time,flags", "-of", "csv=p=0", file.string()},
                                 &movie.errors));
  for (std::string line; std::getline(packets, line);) {
    std::istringstream fields(line);
    std::string time, decodeTime, duration, flags;
    std::getline(fields, time, ',');
    std::getline(fields, decodeTime, ',');
    std::getline(fields, duration, ',');
    std::getline(fields, flags, ',');
    movie.video.push_back({numberIn(time), numberIn(decodeTime), numberIn(duration), flags.starts_with('K')});
  }
  const std::string duration =
      run({"ffprobe", "-v", "error", "-show_entries", "format=duration", "-of", "csv=p=0", file.string()});
  movie.duration = numberIn(duration.substr(0, duration.find('\n')));
  const int width = NumberedPictures::squares * NumberedPictures::edge, height = NumberedPictures::edge;
  const std::string pixels = run({"ffmpeg", "-v", "error", "-i", file.string(), "-map", "0:v:0", "-vf",
                                  "crop=" + std::to_string(width) + ":" + std::to_string(height) + ":0:0,format=gray",
                                  "-fps_mode", "passthrough", "-enc_time_base", "1/90000", "-f", "rawvideo", "-"},
                                 &movie.errors);
  const auto bytes = static_cast<std::size_t>(width * height);
  for (std::size_t start = 0; start + bytes <= pixels.size(); start += bytes) {
    std::uint32_t number = 0;
    for (int i = 0; i < NumberedPictures::squares; ++i) {
      const std::size_t middle =
          start + NumberedPictures::edge / 2 * width + i * NumberedPictures::edge + NumberedPictures::edge / 2;
      if (static_cast<std::uint8_t>(pixels[middle]) > 127) number |= 1U << i;
    }
    movie.numbers.push_back(number);
  }
  return movie;
}

std::vector<float> decodeSound(const std::filesystem::path& file, std::size_t track) {
  // Starts where the movie does, whatever is heard first.
  const std::string bytes = run({"ffmpeg", "-v", "error", "-i", file.string(), "-map", "0:a:" + std::to_string(track),
                                 "-af", "aresample=async=1:first_pts=0", "-ac", "1", "-f", "f32le", "-"});
  std::vector<float> samples(bytes.size() / sizeof(float));
  std::memcpy(samples.data(), bytes.data(), samples.size() * sizeof(float));
  return samples;
}

std::string probeEntries(const std::filesystem::path& file, const std::string& stream, const std::string& entries) {
  std::string text = run({"ffprobe", "-v", "error", "-select_streams", stream, "-show_entries", "stream=" + entries,
                          "-of", "csv=p=0", file.string()});
  while (!text.empty() && text.back() == '\n') text.pop_back();
  return text;
}

}  // namespace vellora::test
