#include "cli/publish/SecretInput.h"

#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <optional>
#include <utility>
#include <vector>

namespace vellora {
namespace {

volatile std::sig_atomic_t caughtSignal = 0;

/// The terminal without echo, until this goes. Signals that would end the program interrupt waiting for keys instead;
/// they are raised once the terminal is as before. They come only within the wait, so that none slips in just before
/// it.
class HiddenTyping {
 public:
  explicit HiddenTyping(int descriptor) : descriptor_(descriptor) {
    caughtSignal = 0;
    struct sigaction action {};
    action.sa_handler = [](int number) { caughtSignal = number; };
    sigset_t ending;
    sigemptyset(&ending);
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
      struct sigaction before {};
      if (::sigaction(number, &action, &before) == 0) actions_.emplace_back(number, before);
      sigaddset(&ending, number);
    }
    ::pthread_sigmask(SIG_BLOCK, &ending, &maskBefore_);
    termios now{};
    if (::tcgetattr(descriptor, &now) != 0) return;
    saved_ = now;
    now.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    now.c_lflag |= ECHONL;
    ::tcsetattr(descriptor, TCSAFLUSH, &now);
  }
  ~HiddenTyping() {
    if (saved_) ::tcsetattr(descriptor_, TCSAFLUSH, &*saved_);
    for (const auto& [number, action] : actions_) ::sigaction(number, &action, nullptr);
    ::pthread_sigmask(SIG_SETMASK, &maskBefore_, nullptr);
    if (caughtSignal != 0) ::raise(caughtSignal);
  }
  /// False when a signal came first.
  bool waitForKeys() const {
    pollfd keys{descriptor_, POLLIN, 0};
    while (::ppoll(&keys, 1, nullptr, &maskBefore_) < 0)
      if (errno != EINTR || caughtSignal != 0) return false;
    return true;
  }
  HiddenTyping(const HiddenTyping&) = delete;
  HiddenTyping& operator=(const HiddenTyping&) = delete;

 private:
  int descriptor_;
  std::optional<termios> saved_;
  std::vector<std::pair<int, struct sigaction>> actions_;
  sigset_t maskBefore_{};
};

}  // namespace

Result<std::string, std::string> SecretInput::read(std::string_view name) {
  if (::isatty(descriptor_) == 0) return readLine(name, [] { return true; });
  const HiddenTyping hidden(descriptor_);
  std::fprintf(stderr, "%.*s: ", static_cast<int>(name.size()), name.data());
  std::fflush(stderr);
  return readLine(name, [&hidden] { return hidden.waitForKeys(); });
}

Result<std::string, std::string> SecretInput::readLine(std::string_view name, const std::function<bool()>& wait) {
  std::string line;
  char c = 0;
  bool ended = false;
  while (!ended) {
    const ssize_t count = wait() ? ::read(descriptor_, &c, 1) : -1;
    if (count < 0 && errno == EINTR && caughtSignal == 0) continue;
    if (count < 0) return failure("the " + std::string(name) + " cannot be read from standard input");
    ended = count == 0 || c == '\n';
    if (!ended) line += c;
    if (line.size() > longestLine) return failure("the " + std::string(name) + " is too long");
  }
  if (line.ends_with('\r')) line.pop_back();
  if (line.empty()) return failure("standard input holds no " + std::string(name));
  return line;
}

}  // namespace vellora
