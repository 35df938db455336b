#include <fcntl.h>
#include <unistd.h>

#include "platform/linux/clipboard/HolderLauncher.h"
#include "platform/linux/clipboard/SelectionServer.h"

namespace vellora {
namespace {

constexpr int exitDone = 0;
constexpr int exitFailed = 1;
constexpr int exitUsage = 2;

/// Nothing of the starter stays open: a pipe that waits for its end, a terminal, a folder that is to be unmounted.
bool leaveStarterBehind() {
  ::close_range(holderDescriptor::status + 1, ~0U, 0);
  const FileHandle null(::open("/dev/null", O_RDWR | O_CLOEXEC));
  if (!null || ::chdir("/") != 0) return false;
  for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::dup2(null.get(), standard) < 0) return false;
  }
  return true;
}

}  // namespace

int runClipboardHolder() {
  auto payload = ClipboardPayload::open(holderDescriptor::payload);
  if (!payload) return exitUsage;
  ::close(holderDescriptor::payload);
  // The starter waits for its child only; the grandchild belongs to nobody.
  const pid_t holder = ::fork();
  if (holder < 0) return exitFailed;
  if (holder > 0) return exitDone;
  if (!leaveStarterBehind()) return exitFailed;

  const auto server = SelectionServer::take(payload->parts());
  if (!server) return exitFailed;
  const char ready = holderReady;
  [[maybe_unused]] const auto told = ::write(holderDescriptor::status, &ready, 1);
  ::close(holderDescriptor::status);
  server->serve();
  return exitDone;
}

}  // namespace vellora
