#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <fstream>
#include <random>
#include <thread>

#include "MovieSamples.h"
#include "RecordedMovies.h"

namespace vellora::test {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int width = 320, height = 200;

/// Three seconds of pictures and sound as a kill would leave them.
const std::string& cutMovie() {
  static const std::string bytes = [] {
    const fs::path file = sampleFolder() / "unfinished.mov";
    auto writer = MovieWriter::create(file, settingsFor(width, height, 1)).value();
    NumberedPictures pictures(width, height);
    for (std::uint32_t i = 0; i < 90; ++i) {
      EXPECT_TRUE(append(*writer, pictures, i, i / 30.0));
      EXPECT_TRUE(writer->appendSound(0, soundBetween(i / 30.0, (i + 1) / 30.0, 1), i / 30.0));
      // Fragments come of time that really goes by.
      if (i % 3 == 0) std::this_thread::sleep_for(std::chrono::milliseconds(60));
    }
    writer.reset();
    return readFile(file);
  }();
  return bytes;
}

/// The numbers are 0, 1, 2, …
void expectUnbroken(const std::vector<std::uint32_t>& numbers) {
  for (std::uint32_t i = 0; i < numbers.size(); ++i) ASSERT_EQ(numbers[i], i);
}

TEST(MovieRepair, MakesAnOrdinaryMovieInPlace) {
  const fs::path file = writeSample("whole.mov", cutMovie());
  const DecodedMovie before = decode(file);
  EXPECT_EQ(before.numbers.size(), 90U) << before.errors;

  const auto repaired = MovieRepair::repair(file);
  ASSERT_TRUE(repaired) << repaired.error().message;
  EXPECT_FALSE(repaired->wasWhole);
  EXPECT_FALSE(repaired->hasLost);
  EXPECT_NEAR(repaired->duration, 3, 0.05);
  EXPECT_EQ(repaired->bytes, fs::file_size(file));
  const DecodedMovie movie = decode(file);
  EXPECT_EQ(movie.errors, "");
  EXPECT_EQ(movie.numbers.size(), 90U);
  expectUnbroken(movie.numbers);
  EXPECT_NEAR(movie.duration, repaired->duration, 1e-4);
  EXPECT_EQ(readFile(file).find("mvex") < 4096, true);  // where it stood, though nothing reads it

  const std::string bytes = readFile(file);
  const auto again = MovieRepair::repair(file);
  ASSERT_TRUE(again);
  EXPECT_TRUE(again->wasWhole);
  EXPECT_NEAR(again->duration, repaired->duration, 1e-4);
  EXPECT_EQ(readFile(file), bytes);
}

TEST(MovieRepair, UsesWhateverIsLeftOfACutMovie) {
  const fs::path whole = writeSample("finished.mov", cutMovie());
  ASSERT_TRUE(MovieRepair::repair(whole));
  const std::string finished = readFile(whole);
  std::mt19937 random(7);
  for (int i = 0; i < 60; ++i) {
    const std::string& from = i % 2 == 0 ? cutMovie() : finished;
    const std::size_t length = random() % from.size();
    const fs::path file = writeSample("cut.mov", from.substr(0, length));
    const auto repaired = MovieRepair::repair(file);
    if (!repaired) {
      EXPECT_LT(length, 20000U) << repaired.error().message;
      EXPECT_THAT(repaired.error().error, testing::AnyOf(MovieError::empty, MovieError::notAMovie));
      EXPECT_EQ(readFile(file), from.substr(0, length));
      continue;
    }
    const std::string bytes = readFile(file);
    EXPECT_TRUE(MovieRepair::repair(file)->wasWhole);
    EXPECT_EQ(readFile(file), bytes);
    if (i % 6 > 1) continue;  // decoding takes its time
    const DecodedMovie movie = decode(file);
    EXPECT_EQ(movie.errors, "") << length;
    expectUnbroken(movie.numbers);
    EXPECT_EQ(movie.numbers.size(), movie.video.size());
  }
}

TEST(MovieRepair, CanItselfBeKilled) {
  // Every state a repair goes through: the length of the data set right, the tail cut off, the index there in part.
  const std::string cut = cutMovie().substr(0, cutMovie().size() * 3 / 4);
  const fs::path file = writeSample("steps.mov", cut);
  const auto repaired = MovieRepair::repair(file);
  ASSERT_TRUE(repaired);
  EXPECT_TRUE(repaired->hasLost);
  const std::string done = readFile(file);
  std::string before = done;
  constexpr std::size_t reserved = 20;
  before.replace(reserved, 16, cut.substr(reserved, 16));
  const std::size_t index = done.rfind("moov") - 4;
  for (const std::size_t length : {index, index + 5, (index + done.size()) / 2, done.size() - 1, done.size()}) {
    const fs::path step = writeSample("step.mov", before.substr(0, length));
    ASSERT_TRUE(MovieRepair::repair(step));
    EXPECT_EQ(readFile(step), done);
  }
}

TEST(MovieRepair, LeavesOutWhatAPowerCutLeftEmpty) {
  std::string bytes = cutMovie();
  std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(bytes.rfind("mdat")) + 4, bytes.end(), '\0');
  const fs::path file = writeSample("zeros.mov", bytes);
  const auto repaired = MovieRepair::repair(file);
  ASSERT_TRUE(repaired);
  EXPECT_TRUE(repaired->hasLost);
  EXPECT_GT(repaired->duration, 1);
  const DecodedMovie movie = decode(file);
  EXPECT_EQ(movie.errors, "");
  expectUnbroken(movie.numbers);
}

TEST(MovieRepair, KeepsAwayFromOtherFiles) {
  const auto errorFor = [](const std::string& name, const std::string& content) {
    const auto repaired = MovieRepair::repair(writeSample(name, content));
    EXPECT_EQ(readFile(sampleFolder() / name), content);
    return repaired ? std::nullopt : std::optional(repaired.error().error);
  };
  EXPECT_EQ(errorFor("nothing.mov", ""), MovieError::notAMovie);
  EXPECT_EQ(errorFor("text.mov", std::string(10000, 'x')), MovieError::notAMovie);
  EXPECT_EQ(MovieRepair::repair(sampleFolder() / "missing.mov").error().error, MovieError::unreadable);
  EXPECT_EQ(MovieRepair::repair(sampleFolder()).error().error, MovieError::unreadable);
  {
    const auto writer = MovieWriter::create(sampleFolder() / "open.mov", settingsFor(64, 64)).value();
    EXPECT_EQ(MovieRepair::repair(sampleFolder() / "open.mov").error().error, MovieError::inUse);
  }
  EXPECT_EQ(MovieRepair::repair(sampleFolder() / "open.mov").error().error, MovieError::empty);
  const fs::path ordinary = plainMovie();
  const auto repaired = MovieRepair::repair(ordinary);
  ASSERT_TRUE(repaired);
  EXPECT_TRUE(repaired->wasWhole);
  EXPECT_NEAR(repaired->duration, 2, 0.1);
}

/// Records in real time until it is killed, and tells through a pipe how far it has come.
[[noreturn]] void recordForever(const fs::path& file, int tell, bool isStill, bool hasSound) {
  auto writer = MovieWriter::create(file, settingsFor(width, height, hasSound ? 1 : 0)).value();
  NumberedPictures pictures(width, height);
  const auto start = Clock::now();
  std::uint32_t number = 0;
  double soundEnd = 0;
  for (;;) {
    const double now = std::chrono::duration<double>(Clock::now() - start).count();
    if (!isStill || number == 0) {
      if (writer->appendVideo(pictures.at(number), now)) ++number;
    } else if (!hasSound) {
      writer->advance(now);
    }
    if (hasSound) writer->appendSound(0, soundBetween(soundEnd, now, -1), soundEnd);
    soundEnd = now;
    if (::write(tell, &now, sizeof now) != sizeof now) ::_exit(1);
    std::this_thread::sleep_for(std::chrono::milliseconds(isStill ? 100 : 16));
  }
}

TEST(MovieRepair, LosesTwoSecondsAtMostWhenKilled) {
  struct Recording {
    pid_t process = -1;
    int told = -1;
    fs::path file;
    double killAt = 0;
  };
  std::mt19937 random(std::random_device{}());
  std::vector<Recording> recordings;
  for (int i = 0; i < 6; ++i) {
    Recording recording{.file = sampleFolder() / ("killed" + std::to_string(i) + ".mov"),
                        .killAt = 1.0 + 5 * std::uniform_real_distribution<>()(random)};
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    recording.process = ::fork();
    if (recording.process == 0) recordForever(recording.file, ends[1], i % 3 != 0, i % 3 == 1);
    ::close(ends[1]);
    recording.told = ends[0];
    recordings.push_back(recording);
  }
  for (Recording& recording : recordings) {
    double reached = 0;
    while (reached < recording.killAt && ::read(recording.told, &reached, sizeof reached) == sizeof reached) {
    }
    ::kill(recording.process, SIGKILL);
    while (::read(recording.told, &reached, sizeof reached) == sizeof reached) {
    }
    ::close(recording.told);
    ::waitpid(recording.process, nullptr, 0);
    const auto start = Clock::now();
    const auto repaired = MovieRepair::repair(recording.file);
    ASSERT_TRUE(repaired) << repaired.error().message;
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(3));
    EXPECT_GT(repaired->duration, reached - 2) << recording.file;
    EXPECT_LT(repaired->duration, reached + 0.2);
    const DecodedMovie movie = decode(recording.file);
    EXPECT_EQ(movie.errors, "");
    EXPECT_NEAR(movie.duration, repaired->duration, 1e-3);
    EXPECT_EQ(movie.numbers.size(), movie.video.size());
  }
}

TEST(MovieRepair, GetsAMovieFromAFullDisk) {
  const fs::path file = sampleFolder() / "full.mov";
  const pid_t child = ::fork();
  if (child == 0) {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{300'000, 300'000};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::atomic<int> failures = 0;
    auto writer = MovieWriter::create(file, settingsFor(width, height), [&](const MovieFailure& reason) {
                    if (reason.error == MovieError::diskFull) ++failures;
                  }).value();
    std::vector<std::uint8_t> noise(static_cast<std::size_t>(width) * height * 4);
    std::minstd_rand random;
    for (int i = 0; failures == 0 && i < 100000; ++i) {
      for (std::uint8_t& byte : noise) byte = static_cast<std::uint8_t>(random() >> 8);
      auto owner = std::make_shared<std::vector<std::uint8_t>>(noise);
      writer->appendVideo({.planes = {owner->data()}, .bytesPerRow = {width * 4}, .owner = owner}, i / 30.0);
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    const bool isReady = writer->isReadyForMoreVideo();
    const auto summary = finish(*writer, 100);
    ::_exit(failures == 1 && !isReady && (summary || summary.error().error == MovieError::diskFull) ? 0 : 1);
  }
  int status = -1;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  ASSERT_TRUE(MovieRepair::repair(file));
  const DecodedMovie movie = decode(file);
  EXPECT_EQ(movie.errors, "");
  EXPECT_GT(movie.numbers.size(), 0U);
}

}  // namespace
}  // namespace vellora::test
