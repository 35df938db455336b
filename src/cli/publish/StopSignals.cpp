#include "cli/publish/StopSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <asio/buffer.hpp>
#include <asio/redirect_error.hpp>
#include <asio/use_awaitable.hpp>
#include <cerrno>
#include <csignal>

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

StopSignals::StopSignals(asio::io_context& context) : arrivals_(context) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
  arrivals_.assign(ends[0]);
  announcements = ends[1];
  setAction(announce);
}

StopSignals::~StopSignals() {
  if (announcements < 0) return;
  setAction(SIG_DFL);
  ::close(announcements);
  announcements = -1;
}

asio::awaitable<bool> StopSignals::first() {
  char arrival = 0;
  asio::error_code error;
  co_await arrivals_.async_read_some(asio::buffer(&arrival, 1), asio::redirect_error(asio::use_awaitable, error));
  co_return !error;
}

}  // namespace vellora
