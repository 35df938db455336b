#include "platform/linux/clipboard/HolderLauncher.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>

namespace vellora {
namespace {

constexpr int readyTimeoutMilliseconds = 3000;

class SpawnSettings {
 public:
  SpawnSettings() {
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawnattr_init(&attributes);
    sigset_t all{};
    sigset_t none{};
    ::sigfillset(&all);
    ::sigemptyset(&none);
    ::posix_spawnattr_setsigdefault(&attributes, &all);
    ::posix_spawnattr_setsigmask(&attributes, &none);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSID);
  }
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;
  ~SpawnSettings() {
    ::posix_spawn_file_actions_destroy(&actions);
    ::posix_spawnattr_destroy(&attributes);
  }
  posix_spawn_file_actions_t actions{};
  posix_spawnattr_t attributes{};
};

bool reap(pid_t process) {
  int status = 0;
  while (::waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) return errno == ECHILD;  // somebody else's reaper was faster
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool waitUntilReady(int status) {
  pollfd waiting{status, POLLIN, 0};
  int answered = 0;
  do {
    answered = ::poll(&waiting, 1, readyTimeoutMilliseconds);
  } while (answered < 0 && errno == EINTR);
  char answer = 0;
  return answered == 1 && ::read(status, &answer, 1) == 1 && answer == holderReady;
}

/// A copy of `fd` far above the numbers the holder starts with, so that laying those does not step on it.
FileHandle movedUp(int fd) {
  constexpr int lowestNumber = 64;
  return FileHandle(::fcntl(fd, F_DUPFD_CLOEXEC, lowestNumber));
}

}  // namespace

bool holdOnClipboard(const ClipboardParts& parts, const std::string& program) {
  const auto packed = ClipboardPayload::pack(parts);
  std::array<int, 2> ends{};
  if (!packed || ::pipe2(ends.data(), O_CLOEXEC) != 0) return false;
  const FileHandle readEnd(ends[0]);
  FileHandle writeEnd(ends[1]);
  const FileHandle payload = movedUp(packed->get());
  FileHandle status = movedUp(writeEnd.get());
  if (!payload || !status) return false;

  SpawnSettings settings;
  ::posix_spawn_file_actions_adddup2(&settings.actions, payload.get(), holderDescriptor::payload);
  ::posix_spawn_file_actions_adddup2(&settings.actions, status.get(), holderDescriptor::status);
  std::string name = "vellora-clipboard";
  std::array<char*, 2> arguments{name.data(), nullptr};
  pid_t process = 0;
  if (::posix_spawn(&process, program.c_str(), &settings.actions, &settings.attributes, arguments.data(), environ) !=
      0) {
    return false;
  }
  // With the last writing end in the holder, its death ends the wait below.
  writeEnd = FileHandle();
  status = FileHandle();
  return reap(process) && waitUntilReady(readEnd.get());
}

std::string holderProgram() {
  std::array<char, PATH_MAX> link{};
  const ssize_t length = ::readlink("/proc/self/exe", link.data(), link.size());
  const std::string self(link.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
  const std::string folder = self.substr(0, self.rfind('/') + 1);
  std::string installed = folder + "../libexec/vellora/vellora-clipboard";
  if (::access(installed.c_str(), X_OK) == 0) return installed;
  return folder + "vellora-clipboard";
}

}  // namespace vellora
