#include "support/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>

extern char** environ;

namespace vellora::test {
namespace {

using Clock = std::chrono::steady_clock;

std::vector<std::string> mergedEnvironment(const Environment& extra) {
  std::vector<std::string> all = extra;
  for (char** entry = environ; *entry != nullptr; ++entry) {
    const std::string_view text = *entry;
    const std::string_view name = text.substr(0, text.find('=') + 1);
    const bool replaced = std::any_of(extra.begin(), extra.end(), [&](const auto& e) { return e.starts_with(name); });
    if (!replaced) all.emplace_back(text);
  }
  return all;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> result;
  for (std::string& text : texts) result.push_back(text.data());
  result.push_back(nullptr);
  return result;
}

/// Forks and executes; the three descriptors become the child's standard ones.
pid_t spawn(std::vector<std::string> command, const Environment& extra, int input, int output, int errors, int keep) {
  std::vector<std::string> environment = mergedEnvironment(extra);
  const std::vector<char*> arguments = pointers(command);
  const std::vector<char*> variables = pointers(environment);
  const pid_t parent = getpid();
  const pid_t pid = fork();
  if (pid != 0) return pid;
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(127);
  dup2(input, 0);
  dup2(output, 1);
  dup2(errors, 2);
  if (keep >= 0) fcntl(keep, F_SETFD, 0);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  execvpe(arguments[0], arguments.data(), variables.data());
  _exit(127);
}

int exitCodeOf(int status) {
  return WIFEXITED(status) ? WEXITSTATUS(status) : -2;
}

struct Pipe {
  std::array<int, 2> ends{-1, -1};
  Pipe() {
    if (pipe2(ends.data(), O_CLOEXEC) != 0) ends = {-1, -1};
  }
  ~Pipe() {
    close(0);
    close(1);
  }
  void close(std::size_t end) {
    if (ends[end] >= 0) ::close(ends[end]);
    ends[end] = -1;
  }
};

}  // namespace

std::unique_ptr<ChildProcess> ChildProcess::start(const std::vector<std::string>& command,
                                                  const Environment& environment, Output output, int keep) {
  const int null = open("/dev/null", O_RDWR | O_CLOEXEC);
  const pid_t pid = output == Output::Inherit ? spawn(command, environment, null, 1, 2, keep)
                                              : spawn(command, environment, null, null, null, keep);
  close(null);
  if (pid < 0) return nullptr;
  return std::unique_ptr<ChildProcess>(new ChildProcess(pid));
}

ChildProcess::~ChildProcess() {
  if (ended_) return;
  signal(SIGTERM);
  if (wait(3) == -2 && !ended_) {
    signal(SIGKILL);
    reap(true);
  }
}

bool ChildProcess::reap(bool block) {
  if (ended_) return true;
  ended_ = waitpid(pid_, &status_, block ? 0 : WNOHANG) == pid_;
  return ended_;
}

bool ChildProcess::isRunning() {
  return !reap(false);
}

int ChildProcess::wait(double seconds) {
  const auto deadline = Clock::now() + std::chrono::duration<double>(seconds);
  while (!reap(false)) {
    if (Clock::now() > deadline) return -2;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return exitCodeOf(status_);
}

void ChildProcess::signal(int number) const {
  if (!ended_) kill(pid_, number);
}

Finished runProgram(const std::vector<std::string>& command, const Environment& environment, std::string_view input,
                    double seconds) {
  Finished result;
  Pipe in;
  Pipe out;
  Pipe err;
  const pid_t pid = spawn(command, environment, in.ends[0], out.ends[1], err.ends[1], -1);
  if (pid < 0) return result;
  in.close(0);
  out.close(1);
  err.close(1);
  struct sigaction ignore {};
  struct sigaction before {};
  ignore.sa_handler = SIG_IGN;
  sigaction(SIGPIPE, &ignore, &before);
  const auto deadline = Clock::now() + std::chrono::duration<double>(seconds);
  bool late = false;
  if (input.empty()) in.close(1);
  while (out.ends[0] >= 0 || err.ends[0] >= 0) {
    std::array<pollfd, 3> watched{{{in.ends[1], POLLOUT, 0}, {out.ends[0], POLLIN, 0}, {err.ends[0], POLLIN, 0}}};
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (left <= 0 || poll(watched.data(), watched.size(), static_cast<int>(left)) <= 0) {
      late = true;
      break;
    }
    if (watched[0].revents != 0) {
      const ssize_t written = write(in.ends[1], input.data(), std::min<std::size_t>(input.size(), 65536));
      if (written > 0) input.remove_prefix(static_cast<std::size_t>(written));
      if (written <= 0 || input.empty()) in.close(1);
    }
    std::array<char, 65536> buffer;
    const auto drain = [&](Pipe& pipe, std::string& text, const pollfd& entry) {
      if (entry.revents == 0) return;
      const ssize_t count = read(pipe.ends[0], buffer.data(), buffer.size());
      if (count <= 0) {
        pipe.close(0);
      } else {
        text.append(buffer.data(), static_cast<std::size_t>(count));
      }
    };
    drain(out, result.output, watched[1]);
    drain(err, result.errors, watched[2]);
  }
  if (late) kill(pid, SIGKILL);
  int status = 0;
  waitpid(pid, &status, 0);
  sigaction(SIGPIPE, &before, nullptr);
  result.exitCode = late ? -2 : exitCodeOf(status);
  return result;
}

}  // namespace vellora::test
