#include "cli/compress/StopSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <utility>

namespace vellora {
namespace {

int announcements = -1;

/// Signals that whoever started the program wants ignored (nohup) stay so.
void setAction(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction before {};
    ::sigaction(number, nullptr, &before);
    if (before.sa_handler != SIG_IGN) ::sigaction(number, &action, nullptr);
  }
}

void announce(int) {
  const int before = errno;
  setAction(SIG_DFL);
  [[maybe_unused]] const ssize_t written = ::write(announcements, "!", 1);
  errno = before;
}

}  // namespace

StopSignals::StopSignals(std::function<void()> onFirst) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
  arrivals_ = ends[0];
  announcements = ends[1];
  notifier_ = std::make_unique<QSocketNotifier>(arrivals_, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this, onFirst = std::move(onFirst)] {
    notifier_->setEnabled(false);
    onFirst();
  });
  setAction(announce);
}

StopSignals::~StopSignals() {
  if (arrivals_ < 0) return;
  setAction(SIG_DFL);
  notifier_.reset();
  ::close(arrivals_);
  ::close(std::exchange(announcements, -1));
}

}  // namespace vellora
