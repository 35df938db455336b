#include <gtest/gtest.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <set>
#include <thread>

#include <QTemporaryDir>

#include "base/Json.h"
#include "support/ChildProcess.h"
#include "support/PngBuilder.h"

extern char** environ;

namespace vellora::test {
namespace {

namespace fs = std::filesystem;

constexpr char program[] = VELLORA_BIN_DIR "/vellora-compress";

/// `vellora compress` where something goes wrong.
class CompressTrouble : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(folder_.isValid());
    root_ = folder_.path().toStdString();
    fs::create_directory(root_ / "in");
    fs::create_directory(root_ / "out");
  }
  ~CompressTrouble() override {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
  }

  /// A picture in colors without order, which stays large, or without any.
  static void writePicture(const fs::path& file, std::uint32_t width, std::uint32_t height, bool isNoise = true) {
    PngBuilder::Data rows((std::size_t{width} * 3 + 1) * height);
    std::uint32_t state = width;
    for (std::size_t i = 0; isNoise && i < rows.size(); ++i)
      if (i % (width * 3 + 1) != 0) rows[i] = static_cast<std::uint8_t>((state = state * 1664525 + 1013904223) >> 24);
    const auto png = PngBuilder().header(width, height, 8, 2).pixels(rows).finish();
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
  }
  void writePictures(int number, std::uint32_t edge = 300) const {
    for (int i = 0; i < number; ++i)
      writePicture(root_ / "in" / ("p" + std::to_string(i) + ".png"), edge, edge + static_cast<std::uint32_t>(i));
  }
  std::vector<std::string> command(std::vector<std::string> options = {}) const {
    std::vector<std::string> words{program, "--output-folder", root_ / "out"};
    words.insert(words.end(), options.begin(), options.end());
    words.insert(words.end(), {"--", root_ / "in"});
    return words;
  }
  static std::string inShell(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words) line += "'" + word + "' ";
    return line;
  }
  std::set<std::string> results() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(root_ / "out")) names.insert(entry.path().filename());
    return names;
  }
  /// Waits until there are so many, hidden ones not counted.
  bool waitForResults(std::size_t number) const {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (std::chrono::steady_clock::now() < end) {
      const auto names = results();
      if (static_cast<std::size_t>(
              std::ranges::count_if(names, [](const std::string& name) { return name[0] != '.'; })) >= number)
        return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return false;
  }
  void expectWholeResults() const {
    std::vector<std::string> words{"identify", "-regard-warnings", "-format", "%w "};
    for (const std::string& name : results())
      if (name[0] != '.') words.push_back(root_ / "out" / name);
    ASSERT_GT(words.size(), 4U);
    const Finished seen = runProgram(words, {});
    EXPECT_EQ(seen.exitCode, 0) << seen.errors;
  }

  QTemporaryDir folder_;
  fs::path root_;
};

TEST_F(CompressTrouble, KilledAtAnyMomentItLeavesNoHalfFileUnderAName) {
  writePictures(40);
  for (const std::size_t moment : {1U, 3U, 8U}) {
    const auto child = ChildProcess::start(command({"--format", "webp", "--jobs", "4"}), {});
    ASSERT_TRUE(child);
    ASSERT_TRUE(waitForResults(results().size() + moment));
    child->signal(SIGKILL);
    child->wait(10);
    expectWholeResults();
  }
}

TEST_F(CompressTrouble, InterruptedItTidiesUp) {
  writePictures(60);
  const auto child = ChildProcess::start(command({"--format", "webp", "--jobs", "3"}), {});
  ASSERT_TRUE(child);
  ASSERT_TRUE(waitForResults(2));
  child->signal(SIGINT);
  EXPECT_EQ(child->wait(10), 1);
  for (const std::string& name : results()) EXPECT_TRUE(name.ends_with(".webp")) << name;
  EXPECT_LT(results().size(), 60U);
  expectWholeResults();
}

TEST_F(CompressTrouble, AFullDiskTakesWhatFitsAndIsToldOf) {
  writePictures(3, 400);  // 480 kB each
  writePicture(root_ / "in" / "small.png", 20, 20);
  const std::string out = root_ / "out";
  const Finished run = runProgram({"unshare", "--mount", "sh", "-c",
                                   "mount -t tmpfs -o size=1m none " + out + " || exit 77; " +
                                       inShell(command({"--jobs", "2"})) + "; echo \"exit $?\"; ls -A " + out +
                                       "; identify -regard-warnings -format '%w ' " + out + "/* && echo whole"},
                                  {});
  if (run.exitCode != 0 && run.output.find("exit") == std::string::npos) GTEST_SKIP() << "no disk of its own to be had";
  EXPECT_NE(run.output.find("exit 1"), std::string::npos) << run.output << run.errors;
  EXPECT_NE(run.errors.find("the disk is full"), std::string::npos) << run.errors;
  EXPECT_NE(run.output.find("small.png"), std::string::npos);
  EXPECT_NE(run.output.find("whole"), std::string::npos) << run.errors;
  EXPECT_EQ(run.output.find(".tmp"), std::string::npos) << run.output;
}

TEST_F(CompressTrouble, AFileThatMayNotBeSoLargeIsAFailureLikeOthers) {
  writePictures(2);  // 270 kB each
  writePicture(root_ / "in" / "small.png", 20, 20);
  const Finished run = runProgram({"sh", "-c", "ulimit -f 64; exec " + inShell(command())}, {});
  EXPECT_EQ(run.exitCode, 1) << run.errors;
  EXPECT_NE(run.errors.find("p1.png: the result cannot be written"), std::string::npos) << run.errors;
  EXPECT_EQ(results(), (std::set<std::string>{"small.png"}));
}

TEST_F(CompressTrouble, NamesThatAreNoTextAreReportedAllTheSame) {
  for (const char* name : {"\xE9\xFF.png", "two\nlines.png", "tab\t\x1b[31m.png"})
    writePicture(root_ / "in" / name, 30, 30, false);
  const Finished json = runProgram(command({"--json"}), {});
  EXPECT_EQ(json.exitCode, 0) << json.errors;
  const auto report = json::parse(QByteArray::fromStdString(json.output));
  ASSERT_TRUE(report) << json.output;
  EXPECT_EQ((*report)["files"].size(), 3U);
  EXPECT_EQ(results(), (std::set<std::string>{"\xE9\xFF.png", "two\nlines.png", "tab\t\x1b[31m.png"}));
  const Finished lines = runProgram(command(), {});
  EXPECT_EQ(std::ranges::count(lines.output, '\n'), 4) << lines.output;
  EXPECT_EQ(lines.output.find('\x1b'), std::string::npos);
}

TEST_F(CompressTrouble, ManyLargePicturesAtOnceStayWithinTheBound) {
  // 36 MB of pixels each: eight at once would take more than a gigabyte.
  writePicture(root_ / "in" / "0.png", 4000, 3000, false);
  for (int i = 1; i < 8; ++i) fs::create_hard_link(root_ / "in" / "0.png", root_ / "in" / (std::to_string(i) + ".png"));
  auto words = command({"--jobs", "8", "--format", "jpeg"});
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t quiet;
  ::posix_spawn_file_actions_init(&quiet);
  ::posix_spawn_file_actions_addopen(&quiet, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  ASSERT_EQ(::posix_spawn(&child, program, &quiet, nullptr, arguments.data(), environ), 0);
  ::posix_spawn_file_actions_destroy(&quiet);
  int status = 0;
  rusage usage{};
  ASSERT_EQ(::wait4(child, &status, 0, &usage), child);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(results().size(), 8U);
  EXPECT_LT(usage.ru_maxrss / 1024, 450);
}

}  // namespace
}  // namespace vellora::test
