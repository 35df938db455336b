#include "support/PulseServer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <thread>

#include "support/XServer.h"

namespace vellora::test {
namespace {

/// Where a client looks for a server; the test's own answers stand in all of them.
constexpr std::array clientVariables{"PULSE_SERVER", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH", "PULSE_COOKIE"};

constexpr int rate = 48000;
constexpr int blockFrames = rate / 200;
constexpr int clickBlocks = 100;
constexpr int clickFrames = 24;

double hostTime() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

}  // namespace

std::unique_ptr<PulseServer> PulseServer::start() {
  std::unique_ptr<PulseServer> server(new PulseServer);
  std::string folder = (std::filesystem::temp_directory_path() / "vellora-pulse-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) {
    ADD_FAILURE() << "no temporary folder";
    return nullptr;
  }
  server->folder_ = folder;
  std::ofstream(folder + "/server.pa")
      << "load-module module-native-protocol-unix auth-anonymous=1 socket=" << folder << "/native\n"
      << "load-module module-null-sink sink_name=speakers rate=48000 channels=2"
      << " sink_properties=device.description=Speakers\n"
      << "load-module module-pipe-source source_name=mic file=" << server->microphonePipe()
      << " format=s16le rate=48000 channels=1 source_properties=device.description=Microphone\n"
      << "set-default-sink speakers\nset-default-source mic\n";
  const std::array values{"unix:" + folder + "/native", folder, folder, folder + "/cookie"};
  for (std::size_t i = 0; i < clientVariables.size(); ++i) {
    setenv(clientVariables.at(i), values.at(i).c_str(), 1);
    server->environment_.push_back(std::string(clientVariables.at(i)) + "=" + values.at(i));
  }
  server->environment_.push_back("HOME=" + folder);
  server->environment_.push_back("XDG_RUNTIME_DIR=" + folder);
  server->environment_.push_back("DBUS_SESSION_BUS_ADDRESS=disabled:");
  return server->restart() ? std::move(server) : nullptr;
}

PulseServer::~PulseServer() {
  server_.reset();
  for (const char* variable : clientVariables) unsetenv(variable);
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

bool PulseServer::restart() {
  std::filesystem::remove(microphonePipe());  // the server makes it, and no other
  server_ = ChildProcess::start({"pulseaudio", "-n", "-F", folder_ + "/server.pa", "--daemonize=no",
                                 "--exit-idle-time=-1", "--use-pid-file=no", "--disable-shm=no"},
                                environment_);
  const bool answers = server_ && waitFor(
                                      [&] {
                                        return runProgram({"pactl", "info"}, environment_).exitCode == 0;
                                      },
                                      15);
  if (!answers) ADD_FAILURE() << "pulseaudio did not start";
  return answers;
}

void PulseServer::kill() {
  server_->signal(SIGKILL);
  server_->wait(5);
}

std::string PulseServer::control(const std::vector<std::string>& arguments) const {
  std::vector<std::string> command{"pactl"};
  command.insert(command.end(), arguments.begin(), arguments.end());
  Finished finished = runProgram(command, environment_);
  EXPECT_EQ(finished.exitCode, 0) << finished.errors;
  while (!finished.output.empty() && finished.output.back() == '\n') finished.output.pop_back();
  return std::move(finished.output);
}

std::unique_ptr<ChildProcess> PulseServer::spawn(const std::vector<std::string>& command) const {
  return ChildProcess::start(command, environment_);
}

struct ClickingMicrophone::State {
  int pipe = -1;
  std::atomic<bool> isEnding = false;
  mutable std::mutex mutex;
  std::vector<double> clicks;  // guarded by mutex
  std::thread thread;

  void run() {
    // A click is the last thing in its block, which is due when its last sample was at the microphone.
    std::array<std::int16_t, blockFrames> silence{}, click{};
    std::fill(click.end() - clickFrames, click.end(), std::int16_t{24000});
    const double start = hostTime();
    for (int block = 1; !isEnding; ++block) {
      const double due = start + static_cast<double>(block) * blockFrames / rate;
      const double whole = std::floor(due);
      const timespec until{static_cast<time_t>(whole), static_cast<long>((due - whole) * 1e9)};
      clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr);
      const bool isClick = block % clickBlocks == 0;
      const auto& samples = isClick ? click : silence;
      if (write(pipe, samples.data(), sizeof samples) < 0 || !isClick) continue;
      const std::lock_guard lock(mutex);
      clicks.push_back(due - static_cast<double>(clickFrames) / rate);
    }
  }
};

ClickingMicrophone::ClickingMicrophone(const std::string& pipe) : state_(std::make_unique<State>()) {
  signal(SIGPIPE, SIG_IGN);
  state_->pipe = open(pipe.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
  EXPECT_GE(state_->pipe, 0) << pipe;
  state_->thread = std::thread([state = state_.get()] { state->run(); });
}

ClickingMicrophone::~ClickingMicrophone() {
  state_->isEnding = true;
  state_->thread.join();
  close(state_->pipe);
}

std::vector<double> ClickingMicrophone::clicks() const {
  const std::lock_guard lock(state_->mutex);
  return state_->clicks;
}

}  // namespace vellora::test
