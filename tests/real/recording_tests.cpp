#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <time.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <mutex>
#include <random>
#include <sstream>
#include <thread>

#include <QString>

#include "base/Json.h"
#include "media/loaded_movies/LoadedMovies.h"
#include "recording/RecordingRecovery.h"
#include "support/PulseServer.h"
#include "support/ScenePainter.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

namespace fs = std::filesystem;

double hostTime() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

using Interval = std::chrono::microseconds;
constexpr Interval sixtieth(16667);

/// Paints numbered pictures and knows when each came onto the screen.
class NumberedScene {
 public:
  NumberedScene(const XServer& server, const PixelRect& frame, Interval interval = sixtieth)
      : painter_(server.display(), frame), interval_(interval), thread_([this] { run(); }) {}
  ~NumberedScene() {
    isEnding_ = true;
    thread_.join();
  }

  int number() const {
    const std::lock_guard lock(mutex_);
    return static_cast<int>(shown_.size()) - 1;
  }
  /// The host time at which a number came onto the screen.
  double shownAt(int number) const {
    const std::lock_guard lock(mutex_);
    return shown_.at(static_cast<std::size_t>(number));
  }
  /// Waits while that many more pictures are painted.
  void pass(int pictures) const {
    const int end = number() + pictures;
    ASSERT_TRUE(waitFor([&] { return number() >= end; }, 60));
  }

 private:
  void run() {
    auto next = std::chrono::steady_clock::now();
    for (int number = 1; !isEnding_; ++number) {
      painter_.paint(number);
      {
        const std::lock_guard lock(mutex_);
        shown_.push_back(hostTime());
      }
      // Without making up for lost time: each number is to be seen for a while.
      next = std::max(next + interval_, std::chrono::steady_clock::now() + interval_ / 2);
      std::this_thread::sleep_until(next);
    }
  }

  ScenePainter painter_;
  const Interval interval_;
  mutable std::mutex mutex_;
  std::vector<double> shown_{0};  // by number; there is no number 0
  std::atomic<bool> isEnding_ = false;
  std::thread thread_;
};

/// A frame of a recording as a decoder others wrote finds it.
struct DecodedFrame {
  int number = -1;  ///< -1 where the upper and the lower row of blocks differ
  double time = 0;
};

/// What a program writes to its standard output; fails the running test when it complains.
std::string outputOf(const std::vector<std::string>& command) {
  Finished finished = runProgram(command, {}, {}, 60);
  EXPECT_EQ(finished.exitCode, 0) << command.front();
  EXPECT_EQ(finished.errors, "") << command.front();
  return std::move(finished.output);
}

/// The numbers and times of all frames.
std::vector<DecodedFrame> framesOf(const fs::path& movie) {
  constexpr int blocks = ScenePainter::blocks;
  const std::string row = "crop=" + std::to_string(blocks * ScenePainter::blockWidth) + ":" +
                          std::to_string(ScenePainter::blockHeight) + ":0:";
  const std::string small = ",scale=" + std::to_string(blocks) + ":1:flags=area";
  const std::string graph = "[0:v]split[a][b];[a]" + row + "0" + small + "[top];[b]" + row + "in_h-" +
                            std::to_string(ScenePainter::blockHeight) + small +
                            "[bottom];[top][bottom]vstack,format=gray";
  const std::string pixels =
      outputOf({"ffmpeg", "-nostdin", "-v", "error", "-i", movie.string(), "-filter_complex", graph, "-fps_mode",
                "passthrough", "-enc_time_base", "-1", "-f", "rawvideo", "-"});
  std::istringstream times(outputOf({"ffprobe", "-v", "error", "-select_streams", "v", "-show_entries",
                                     "packet=pts_time", "-of", "csv=p=0", movie.string()}));
  std::vector<DecodedFrame> frames;
  for (std::size_t at = 0; at + 2 * blocks <= pixels.size(); at += 2 * blocks) {
    int top = 0;
    int bottom = 0;
    for (std::size_t i = 0; i < blocks; ++i) {
      if (static_cast<unsigned char>(pixels[at + i]) > 127) top |= 1 << i;
      if (static_cast<unsigned char>(pixels[at + blocks + i]) > 127) bottom |= 1 << i;
    }
    DecodedFrame frame{.number = top == bottom ? top : -1};
    std::string rest;
    times >> frame.time;
    std::getline(times, rest);
    frames.push_back(frame);
  }
  return frames;
}

Json probe(const fs::path& movie) {
  return Json::parse(
      outputOf({"ffprobe", "-v", "error", "-show_streams", "-show_format", "-of", "json", movie.string()}));
}

/// The first sound track from the movie's second 0 on, 48,000 samples a second.
std::vector<float> soundOf(const fs::path& movie) {
  const std::string bytes = outputOf({"ffmpeg", "-nostdin", "-v", "error", "-i", movie.string(), "-map", "0:a:0", "-af",
                                      "aresample=async=1:first_pts=0", "-ar", "48000", "-ac", "1", "-f", "f32le", "-"});
  std::vector<float> samples(bytes.size() / sizeof(float));
  std::memcpy(samples.data(), bytes.data(), samples.size() * sizeof(float));
  return samples;
}

/// `vellora record` in a process of its own.
class RecordRun {
 public:
  RecordRun(const XServer& server, const std::vector<std::string>& options, const Environment& extra = {})
      : output_(server.home() + "/output"), projects_(fs::path(server.home()) / "Videos/Vellora/Projects") {
    std::vector<std::string> command{"sh",
                                     "-c",
                                     "out=$1; shift; exec \"$@\" > \"$out\"",
                                     "sh",
                                     output_.string(),
                                     std::string(VELLORA_BIN_DIR) + "/vellora",
                                     "record"};
    command.insert(command.end(), options.begin(), options.end());
    process_ = server.spawn(command, extra);
  }

  /// Waits until there is a movie with a picture in it.
  bool hasBegun() const {
    return waitFor([&] {
      for (const fs::path& bundle : bundles()) {
        std::error_code ignored;
        const auto size = fs::file_size(bundle / "screen.mov", ignored);
        if (!ignored && size > 4096 && fs::exists(bundle / ".recording")) return true;
      }
      return false;
    });
  }
  /// Waits for the program's end; the project it tells of.
  fs::path finish(double seconds = 20) {
    EXPECT_EQ(process_->wait(seconds), 0);
    std::ifstream file(output_);
    std::string path;
    std::string more;
    std::getline(file, path);
    EXPECT_FALSE(std::getline(file, more)) << more;
    return path;
  }
  void signal(int number) const { process_->signal(number); }
  void kill() const {
    process_->signal(SIGKILL);
    process_->wait(5);
  }
  std::vector<fs::path> bundles() const {
    std::error_code ignored;
    std::vector<fs::path> found;
    for (const auto& entry : fs::directory_iterator(projects_, ignored)) found.push_back(entry.path());
    return found;
  }

 private:
  fs::path output_;
  fs::path projects_;
  std::unique_ptr<ChildProcess> process_;
};

std::string optionOf(const PixelRect& area) {
  std::ostringstream text;
  text << area.x << ',' << area.y << ',' << area.width << ',' << area.height;
  return text.str();
}

std::vector<std::string> namesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().string());
  std::ranges::sort(names);
  return names;
}

Json documentIn(const fs::path& file) {
  std::ifstream stream(file);
  return Json::parse(stream, nullptr, false);
}

/// Expects no frame to be torn, and each number and time to be greater than the one before.
void expectWholeAndGrowing(const std::vector<DecodedFrame>& frames) {
  ASSERT_FALSE(frames.empty());
  for (std::size_t i = 0; i < frames.size(); ++i) {
    EXPECT_NE(frames[i].number, -1) << "frame " << i << " is torn";
    if (i == 0) continue;
    EXPECT_GT(frames[i].number, frames[i - 1].number) << "frame " << i;
    EXPECT_GT(frames[i].time, frames[i - 1].time) << "frame " << i;
  }
}

/// By how much the frames' times in the movie are off the moments they came onto the screen, in ascending order.
std::vector<double> delaysOf(const std::vector<DecodedFrame>& frames, const NumberedScene& scene) {
  std::vector<double> delays;
  for (const DecodedFrame& frame : frames) delays.push_back(frame.time - scene.shownAt(frame.number));
  std::ranges::sort(delays);
  return delays;
}

double middleOf(const std::vector<double>& sorted) {
  return sorted.at(sorted.size() / 2);
}

TEST(RealRecording, AnAreaBecomesAProjectWithEveryPictureAtItsTime) {
  const auto server = XServer::start();
  ASSERT_TRUE(server);
  const PixelRect area{101, 53, 1201, 701};
  const NumberedScene scene(*server, area);
  RecordRun run(*server, {"--region", optionOf(area), "--duration", "3"});
  const fs::path bundle = run.finish();
  ASSERT_TRUE(fs::is_directory(bundle)) << bundle;
  EXPECT_THAT(namesIn(bundle), testing::ElementsAre("AGENTS.md", "pauses.json", "pointer.jsonl", "project.json",
                                                    "report.json", "screen.mov"));

  const Json movie = probe(bundle / "screen.mov");
  ASSERT_EQ(movie["streams"].size(), 1U);
  const Json& video = movie["streams"][0];
  EXPECT_EQ(video["codec_name"], "h264");
  EXPECT_EQ(video["width"], 1202);
  EXPECT_EQ(video["height"], 702);
  EXPECT_EQ(video["pix_fmt"], "yuv420p");
  EXPECT_EQ(video["color_range"], "tv");
  for (const char* property : {"color_space", "color_primaries", "color_transfer"}) EXPECT_EQ(video[property], "bt709");
  constexpr double twoFrames = 2.0 / 60;
  EXPECT_NEAR(std::stod(movie["format"]["duration"].get<std::string>()), 3, twoFrames);

  const auto frames = framesOf(bundle / "screen.mov");
  expectWholeAndGrowing(frames);
  if (HasFailure()) return;
  const std::vector<double> delays = delaysOf(frames, scene);
  const double spread = delays.at(delays.size() * 95 / 100) - delays.at(delays.size() * 5 / 100);
  EXPECT_LT(spread, 0.025) << "a picture stays until the next beat of the recording";
  const int painted = frames.back().number - frames.front().number + 1;
  std::cout << frames.size() << " of " << painted << " pictures, times spread over " << spread * 1e3 << " ms\n";

  const Json report = documentIn(bundle / "report.json");
  EXPECT_EQ(report["frames"]["written"], frames.size());
  EXPECT_EQ(report["frames"]["captured"].get<int>(),
            report["frames"]["written"].get<int>() + report["frames"]["notReady"].get<int>());
  EXPECT_NEAR(report["duration"].get<double>(), 3, twoFrames);
  EXPECT_EQ(report["encoder"], "libx264");
  EXPECT_EQ(report["sounds"], Json::array());
  // What the machine had no time for is accounted for.
  const int missed = report["frames"]["dropped"].get<int>() + report["frames"]["late"].get<int>() +
                     report["frames"]["notReady"].get<int>();
  EXPECT_GE(static_cast<int>(frames.size()) + missed, painted * 9 / 10);
}

TEST(RealRecording, CtrlCEndsItProperlyAndPrintsTheProject) {
  const auto server = XServer::start({.size = {1280, 720}});
  ASSERT_TRUE(server);
  const NumberedScene scene(*server, {});
  RecordRun run(*server, {"--fullscreen"});
  ASSERT_TRUE(run.hasBegun());
  const int first = scene.number();
  scene.pass(60);
  run.signal(SIGINT);
  const int last = scene.number();
  const fs::path bundle = run.finish();
  ASSERT_THAT(run.bundles(), testing::ElementsAre(bundle));
  EXPECT_THAT(namesIn(bundle), testing::Not(testing::Contains(".recording")));
  const auto frames = framesOf(bundle / "screen.mov");
  expectWholeAndGrowing(frames);
  EXPECT_LE(frames.front().number, first);
  EXPECT_GE(frames.back().number, last - 6) << "what was seen when Ctrl-C was pressed is in it";
}

/// A login manager that tells of sleep and gives locks to wait for, on the display's bus. It knows whether any is held:
/// the other end of its pipe is open.
class LoginManager {
 public:
  explicit LoginManager(const XServer& server) : server_(server) {
    for (const std::string& entry : server.environment()) {
      if (entry.starts_with("DBUS_SESSION_BUS_ADDRESS=")) environment_ = {"DBUS_SYSTEM_BUS_ADDRESS" + entry.substr(24)};
    }
    process_ = server.spawn({"/usr/bin/python3", "-m", "dbusmock", "--system", "org.freedesktop.login1",
                             "/org/freedesktop/login1", "org.freedesktop.login1.Manager"},
                            environment_);
    const std::string manager = "org.freedesktop.login1.Manager";
    const std::string inhibit =
        "import os; self.held, given = os.pipe(); ret = dbus.types.UnixFd(given); os.close(given)";
    const std::string isHeld =
        "import select; ret = hasattr(self, 'held') and not select.select([self.held], [], [], 0)[0]";
    EXPECT_TRUE(waitFor([&] { return mock("AddMethod", {manager, "Inhibit", "ssss", "h", inhibit}).exitCode == 0; }));
    EXPECT_EQ(mock("AddMethod", {manager, "IsHeld", "", "b", isHeld}).exitCode, 0);
  }

  /// For programs that are to find it.
  const Environment& environment() const { return environment_; }
  bool isHeld() const { return call("org.freedesktop.login1.Manager.IsHeld", {}).output == "(true,)\n"; }
  void prepareForSleep() const {
    EXPECT_EQ(mock("EmitSignal", {"org.freedesktop.login1.Manager", "PrepareForSleep", "b", "[<true>]"}).exitCode, 0);
  }

 private:
  Finished mock(const std::string& method, const std::vector<std::string>& arguments) const {
    return call("org.freedesktop.DBus.Mock." + method, arguments);
  }
  Finished call(const std::string& method, const std::vector<std::string>& arguments) const {
    std::vector<std::string> command{"gdbus",
                                     "call",
                                     "--system",
                                     "--timeout",
                                     "5",
                                     "--dest",
                                     "org.freedesktop.login1",
                                     "--object-path",
                                     "/org/freedesktop/login1",
                                     "--method",
                                     method};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return server_.run(command, {}, environment_);
  }

  const XServer& server_;
  Environment environment_;
  std::unique_ptr<ChildProcess> process_;
};

TEST(RealRecording, AMachineThatGoesToSleepWaitsForTheProject) {
  const auto server = XServer::start({.size = {1280, 720}, .bus = true});
  ASSERT_TRUE(server);
  const LoginManager manager(*server);
  if (HasFailure()) return;
  const NumberedScene scene(*server, {});
  RecordRun run(*server, {"--fullscreen"}, manager.environment());
  ASSERT_TRUE(run.hasBegun());
  ASSERT_TRUE(waitFor([&] { return manager.isHeld(); }));
  scene.pass(30);
  manager.prepareForSleep();
  const fs::path bundle = run.finish();
  EXPECT_THAT(namesIn(bundle), testing::Not(testing::Contains(".recording")));
  expectWholeAndGrowing(framesOf(bundle / "screen.mov"));
  EXPECT_FALSE(manager.isHeld()) << "and no longer";
}

/// The moments, in seconds of the movie, at which clicks begin.
std::vector<double> clicksIn(const std::vector<float>& sound) {
  constexpr double rate = 48000;
  constexpr std::size_t window = 480;
  std::vector<double> clicks;
  for (std::size_t i = 0; i + window < sound.size(); ++i) {
    if (std::abs(sound[i]) < 0.15F) continue;
    // The coder smears a click a little to both sides: it begins where half its height is reached.
    const auto at = sound.begin() + static_cast<std::ptrdiff_t>(i);
    const float height = *std::max_element(at, at + window);
    const auto begin = std::find_if(at, at + window, [&](float sample) { return sample > height / 2; });
    clicks.push_back(static_cast<double>(begin - sound.begin()) / rate);
    i += static_cast<std::size_t>(rate / 10);
  }
  return clicks;
}

TEST(RealRecording, SoundAndPictureAreTogether) {
  // The scene is faster than the recording and keeps no step with it, so that a picture waits between nothing and a
  // sixtieth of a second until it is taken: pictures are late by some 5 ms on average, and sound seems early by that.
  // What cannot be known is when the sound server takes a block of 5 ms out of the pipe after it was written; it tells
  // that as part of the device's delay, in steps, of which the smallest counts. So both together stay within 10 ms as
  // long as the machine is not late itself.
  const auto server = XServer::start({.size = {1280, 720}});
  ASSERT_TRUE(server);
  const auto pulse = PulseServer::start();
  ASSERT_TRUE(pulse);
  const ClickingMicrophone microphone(pulse->microphonePipe());
  const NumberedScene scene(*server, {}, Interval(13000));
  RecordRun run(*server, {"--fullscreen", "--microphone", "default", "--duration", "8"});
  const fs::path bundle = run.finish(30);
  const auto frames = framesOf(bundle / "screen.mov");
  expectWholeAndGrowing(frames);
  if (HasFailure()) return;
  // Both are moments of the movie minus moments of the host clock; both are the start of the movie where all is well.
  const double picture = middleOf(delaysOf(frames, scene));
  std::vector<double> offsets;
  for (const double heard : clicksIn(soundOf(bundle / "screen.mov"))) {
    double nearest = 1;
    for (const double made : microphone.clicks()) {
      const double offset = heard - made - picture;
      if (std::abs(offset) < std::abs(nearest)) nearest = offset;
    }
    offsets.push_back(nearest);
  }
  ASSERT_GE(offsets.size(), 14U) << "two clicks a second";
  std::ranges::sort(offsets);
  std::cout << "sound after picture: " << offsets.front() * 1e3 << " to " << offsets.back() * 1e3 << " ms in "
            << offsets.size() << " clicks\n";
  EXPECT_GT(offsets.front(), -0.020);
  EXPECT_LT(offsets.back(), 0.020);
  const Json report = documentIn(bundle / "report.json");
  ASSERT_EQ(report["sounds"].size(), 1U);
  EXPECT_EQ(report["sounds"][0]["source"], "microphone");
  EXPECT_EQ(report["sounds"][0]["gaps"], 0);
  EXPECT_NEAR(report["sounds"][0]["seconds"].get<double>(), report["duration"].get<double>(), 0.02);
}

TEST(RealRecording, ASoundServerThatIsStartedAnewIsHeardAgain) {
  const auto server = XServer::start({.size = {640, 480}});
  ASSERT_TRUE(server);
  const auto pulse = PulseServer::start();
  ASSERT_TRUE(pulse);
  auto microphone = std::make_unique<ClickingMicrophone>(pulse->microphonePipe());
  const NumberedScene scene(*server, {});
  RecordRun run(*server, {"--fullscreen", "--microphone", "default", "--system-sound"});
  ASSERT_TRUE(run.hasBegun());
  scene.pass(120);
  microphone.reset();
  pulse->kill();
  scene.pass(60);
  ASSERT_TRUE(pulse->restart());
  microphone = std::make_unique<ClickingMicrophone>(pulse->microphonePipe());
  ASSERT_TRUE(waitFor([&] { return pulse->control({"list", "short", "source-outputs"}).size() > 20; }, 10));
  scene.pass(240);
  run.signal(SIGINT);
  const fs::path bundle = run.finish();
  const Json report = documentIn(bundle / "report.json");
  ASSERT_EQ(report["sounds"].size(), 2U);
  for (const Json& sound : report["sounds"]) {
    EXPECT_EQ(sound["lost"], false);
    EXPECT_GT(sound["gapSeconds"].get<double>(), 0.5);
    EXPECT_NEAR(sound["seconds"].get<double>(), report["duration"].get<double>(), 0.02);
  }
  const auto clicks = clicksIn(soundOf(bundle / "screen.mov"));
  const double duration = report["duration"].get<double>();
  EXPECT_GE(std::ranges::count_if(clicks, [](double at) { return at < 2; }), 2);
  EXPECT_GE(std::ranges::count_if(clicks, [&](double at) { return at > duration - 2; }), 2);
}

/// The folders of a test's user.
class HomeFolders final : public FileNames {
 public:
  explicit HomeFolders(const std::string& home) : home_(QString::fromStdString(home)) {}
  QString home() const override { return home_; }
  QString desktop() const override { return home_; }
  QString movies() const override { return home_ + QStringLiteral("/Videos"); }
  QString applicationSupport() const override { return home_; }

 private:
  QString home_;
};

TEST(RealRecording, AKillAtAnyMomentLosesLittle) {
  const char* const wanted = std::getenv("VELLORA_KILLS");
  const int kills = wanted != nullptr ? std::atoi(wanted) : 6;
  const auto server = XServer::start({.size = {1280, 720}});
  ASSERT_TRUE(server);
  const NumberedScene scene(*server, {});
  const RecordingFiles files{HomeFolders(server->home())};
  LoadedMovies movies;
  const unsigned seed = std::random_device()();
  std::mt19937 random(seed);
  std::uniform_int_distribution<int> pictures(60, 360);
  double mostLost = 0;
  double longestRepair = 0;
  for (int i = 0; i < kills; ++i) {
    SCOPED_TRACE("kill " + std::to_string(i) + " of seed " + std::to_string(seed));
    const RecordRun run(*server, {"--fullscreen"});
    ASSERT_TRUE(run.hasBegun());
    const int first = scene.number();
    scene.pass(pictures(random));
    const double killed = hostTime();
    run.kill();
    ASSERT_EQ(run.bundles().size(), 1U);

    const double began = hostTime();
    const auto recovered = RecordingRecovery::run(files, movies);
    longestRepair = std::max(longestRepair, hostTime() - began);
    ASSERT_EQ(recovered.size(), 1U);
    const fs::path bundle = recovered.front().path().toStdString();
    EXPECT_TRUE(RecordProjectBundle::open(recovered.front().path()));
    EXPECT_THAT(namesIn(bundle), testing::IsSupersetOf({"AGENTS.md", "project.json", "screen.mov"}));
    EXPECT_THAT(namesIn(bundle), testing::Not(testing::Contains(".recording")));
    const auto frames = framesOf(bundle / "screen.mov");
    expectWholeAndGrowing(frames);
    if (HasFailure()) return;
    EXPECT_LE(frames.front().number, first);
    const double lost = killed - scene.shownAt(frames.back().number);
    EXPECT_LE(lost, 2.0);
    mostLost = std::max(mostLost, lost);
    fs::remove_all(bundle);
  }
  std::cout << kills << " kills: at most " << mostLost << " s lost, repaired in at most " << longestRepair << " s\n";
}

}  // namespace
}  // namespace vellora::test
