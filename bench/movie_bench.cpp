// Drives a MovieWriter with moving pictures of a desktop, and hands the same pictures to another encoder's standard
// input (bench/movies.sh compares them).
//
//   movie_bench raw SCENE FRAMES            BGRA of 1920 × 1080 pixels on the standard output
//   movie_bench write SCENE FRAMES FILE     records them at 60 frames a second, in real time; prints what that took
//   movie_bench finish FILE                 makes an ordinary movie of an hour that was recorded; prints how long it
//   took

#include <sys/resource.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "Scenes.h"
#include "media/movies/FragmentBuilder.h"
#include "media/movies/FragmentFile.h"
#include "media/movies/MovieHeader.h"
#include "media/movies/MovieWriter.h"
#include "media/movies/SampleDescription.h"

namespace {

using namespace vellora;
using Clock = std::chrono::steady_clock;

constexpr int width = 1920, height = 1080, rate = 60;
constexpr std::ptrdiff_t bytesPerRow = width * 4;

/// A desktop on which something moves.
class Moving {
 public:
  explicit Moving(std::string scene)
      : scene_(std::move(scene)), pixels_(static_cast<std::size_t>(bytesPerRow) * height) {
    draw(bench::Scene::Desktop, {0, 0, width, height}, 0, 0);
  }

  /// Draws the frame into memory of its own.
  MoviePicture frame(int number) {
    PixelRect changed;
    if (scene_ == "scroll") {
      changed = {120, 90, 1400, 900};
      draw(bench::Scene::Text, changed, 0, number * 6 % 1200);
    } else if (scene_ == "typing") {
      changed = {130 + number % 150 * 11, 200 + number / 150 % 20 * 26, 11, 16};
      draw(bench::Scene::Text, changed, number * 33 % 2000, 26 * (number % 70));
    } else if (scene_ == "film") {
      changed = {400, 200, 960, 540};
      draw(bench::Scene::Photo, changed, number * 5 % 2000, number * 2 % 1200);
    }
    auto& buffer = buffers_[static_cast<std::size_t>(number) % buffers_.size()];
    if (buffer == nullptr || buffer.use_count() > 1)
      buffer = std::make_shared<std::vector<std::uint8_t>>(pixels_.size());
    std::memcpy(buffer->data(), pixels_.data(), pixels_.size());
    return {.planes = {buffer->data()},
            .bytesPerRow = {bytesPerRow},
            .number = static_cast<std::uint64_t>(number) + 1,
            .changes = {number == 0 ? PixelRect{0, 0, width, height} : changed},
            .owner = buffer};
  }

 private:
  void draw(bench::Scene kind, const PixelRect& to, int fromX, int fromY) {
    const Bitmap& from = bench::scene(kind);
    for (int y = 0; y < to.height; ++y) {
      std::memcpy(pixels_.data() + (to.y + y) * bytesPerRow + to.x * 4, from.pixel(fromX, fromY + y),
                  static_cast<std::size_t>(to.width) * 4);
    }
  }

  std::string scene_;
  std::vector<std::uint8_t> pixels_;
  std::array<std::shared_ptr<std::vector<std::uint8_t>>, 8> buffers_;
};

double secondsOf(const timespec& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double cpuTime(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return secondsOf(time);
}

int writeRaw(const std::string& scene, int frames) {
  Moving moving(scene);
  for (int i = 0; i < frames; ++i) {
    const MoviePicture picture = moving.frame(i);
    if (std::fwrite(picture.planes[0], bytesPerRow, height, stdout) != height) return 1;
  }
  return 0;
}

int record(const std::string& scene, int frames, const std::string& file) {
  Moving moving(scene);
  auto writer = MovieWriter::create(file, {.video = {.width = width, .height = height}});
  if (!writer) {
    std::fprintf(stderr, "%s\n", writer.error().message.c_str());
    return 1;
  }
  const double processBefore = cpuTime(CLOCK_PROCESS_CPUTIME_ID), drawingBefore = cpuTime(CLOCK_THREAD_CPUTIME_ID);
  const auto start = Clock::now();
  int lost = 0;
  for (int i = 0; i < frames; ++i) {
    std::this_thread::sleep_until(start + std::chrono::microseconds(std::int64_t{1000000} * i / rate));
    if (!(*writer)->appendVideo(moving.frame(i), static_cast<double>(i) / rate)) ++lost;
  }
  std::promise<MovieWriter::Summary> finished;
  const auto stop = Clock::now();
  (*writer)->finish(static_cast<double>(frames) / rate,
                    [&](const auto& summary) { finished.set_value(summary.value()); });
  const MovieWriter::Summary summary = finished.get_future().get();
  const double finishing = std::chrono::duration<double>(Clock::now() - stop).count();
  const double cpu =
      cpuTime(CLOCK_PROCESS_CPUTIME_ID) - processBefore - (cpuTime(CLOCK_THREAD_CPUTIME_ID) - drawingBefore);
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  std::printf("%-7s %5d frames  lost %d  CPU %.2f s  %.1f Mbit/s  finished in %.3f s  %ld MB\n", scene.c_str(), frames,
              lost, cpu, static_cast<double>(summary.bytes) * 8e-6 * rate / frames, finishing, usage.ru_maxrss / 1024);
  return 0;
}

int finishHour(const std::string& file) {
  constexpr int seconds = 3600, frameBytes = 15000, soundBytes = 340;
  std::vector<MovieTrack> tracks(2);
  tracks[0].width = width;
  tracks[0].height = height;
  tracks[0].description = sampleDescription(VideoDescription{.width = width, .height = height});
  tracks[1] = {.isVideo = false, .timescale = MovieWriter::sampleRate, .priming = 1024};
  tracks[1].description = sampleDescription(SoundDescription{.sampleRate = MovieWriter::sampleRate});
  auto movie = FragmentFile::create(file, startOfMovie(tracks)).value();
  FragmentBuilder builder(2);
  std::vector<std::uint8_t> data(frameBytes, 1);
  std::fill_n(data.begin(), 4, std::uint8_t{0});
  data[2] = (frameBytes - 4) >> 8;
  data[3] = (frameBytes - 4) & 0xff;
  std::int64_t sound = 0;
  for (int second = 0; second < seconds; ++second) {
    for (int i = 0; i < rate; ++i) {
      // The times of a screen are never quite regular.
      const std::int64_t time = (std::int64_t{second} * rate + i) * movieTimescale / rate + std::rand() % 300;
      builder.add(0, data, time, movieTimescale / rate, i == 0);
    }
    for (; sound < std::int64_t{second + 1} * MovieWriter::sampleRate; sound += 1024) {
      builder.add(1, std::span(data).last(soundBytes), sound, 1024, true);
    }
    if (!movie->append(builder.build())) return 1;
  }
  ::sync();
  const auto start = Clock::now();
  const auto finished = movie->finish(seconds);
  std::printf("an hour, %.1f GB: ordinary movie in %.3f s\n", static_cast<double>(finished.value().bytes) * 1e-9,
              std::chrono::duration<double>(Clock::now() - start).count());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  if (arguments.size() == 3 && arguments[0] == "raw") return writeRaw(arguments[1], std::stoi(arguments[2]));
  if (arguments.size() == 4 && arguments[0] == "write")
    return record(arguments[1], std::stoi(arguments[2]), arguments[3]);
  if (arguments.size() == 2 && arguments[0] == "finish") return finishHour(arguments[1]);
  std::fputs("movie_bench raw SCENE FRAMES | write SCENE FRAMES FILE | finish FILE\n", stderr);
  return 2;
}
