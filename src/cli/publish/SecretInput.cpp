#include "cli/publish/SecretInput.h"

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

/// The terminal without echo, until this goes. Signals that would end the program interrupt reading instead; they are
/// raised once the terminal is as before.
class HiddenTyping {
 public:
  explicit HiddenTyping(int descriptor) : descriptor_(descriptor) {
    caughtSignal = 0;
    struct sigaction action {};
    action.sa_handler = [](int number) { caughtSignal = number; };
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
      struct sigaction before {};
      if (::sigaction(number, &action, &before) == 0) actions_.emplace_back(number, before);
    }
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
    if (caughtSignal != 0) ::raise(caughtSignal);
  }
  HiddenTyping(const HiddenTyping&) = delete;
  HiddenTyping& operator=(const HiddenTyping&) = delete;

 private:
  int descriptor_;
  std::optional<termios> saved_;
  std::vector<std::pair<int, struct sigaction>> actions_;
};

}  // namespace

Result<std::string, std::string> SecretInput::read(std::string_view name) {
  if (::isatty(descriptor_) == 0) return readLine(name);
  const HiddenTyping hidden(descriptor_);
  std::fprintf(stderr, "%.*s: ", static_cast<int>(name.size()), name.data());
  std::fflush(stderr);
  return readLine(name);
}

Result<std::string, std::string> SecretInput::readLine(std::string_view name) {
  std::string line;
  char c = 0;
  bool ended = false;
  while (!ended) {
    const ssize_t count = ::read(descriptor_, &c, 1);
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
