#include "media/pictures/QuietThread.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <unistd.h>

#include <limits>
#include <system_error>
#include <thread>

namespace vellora {
namespace {

/// Gives the calling thread its own table of open files (close_range(2)), in which standard error is the null device.
/// Nothing changes on systems without that.
void silenceThisThread() {
  constexpr unsigned int firstOther = STDERR_FILENO + 1;
  if (::close_range(firstOther, std::numeric_limits<unsigned int>::max(), CLOSE_RANGE_UNSHARE) != 0) return;
  const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (nowhere < 0) return;
  ::dup2(nowhere, STDERR_FILENO);
  ::close(nowhere);
}

}  // namespace

void runQuietly(const std::function<void()>& work) {
  std::thread thread;
  try {
    thread = std::thread([&work] {
      silenceThisThread();
      work();
    });
  } catch (const std::system_error&) {
    work();
    return;
  }
  thread.join();
}

}  // namespace vellora
