#include "base/ThreadQuality.h"

#include <sys/resource.h>
#include <unistd.h>

namespace vellora {

void setThreadQuality(ThreadQuality quality) {
  // On Linux each thread has a niceness of its own, which the threads it starts take over.
  constexpr int utilityNiceness = 10;
  if (quality == ThreadQuality::Utility) setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), utilityNiceness);
}

}  // namespace vellora
