#include "base/TerminationSignals.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <QSocketNotifier>

namespace vellora {
namespace {

int writeEnd = -1;  // what the signal handler may touch: set before the handlers are installed

void noteSignal(int) {
  const char byte = 0;
  [[maybe_unused]] const auto written = ::write(writeEnd, &byte, 1);
}

void install(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) ::sigaction(signal, &action, nullptr);
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> handler) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
  descriptor_ = ends[0];
  writeEnd = ends[1];
  notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this, handler = std::move(handler)] {
    char bytes[16];
    [[maybe_unused]] const auto read = ::read(descriptor_, bytes, sizeof bytes);
    handler();
  });
  install(noteSignal);
}

TerminationSignals::~TerminationSignals() {
  if (descriptor_ < 0) return;
  install(SIG_DFL);
  ::close(std::exchange(writeEnd, -1));
  ::close(descriptor_);
}

}  // namespace vellora
