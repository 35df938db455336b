#pragma once

#include <cstdint>

namespace vellora {

/// How urgent a thread's work is.
enum class ThreadQuality : std::uint8_t {
  Normal,
  Utility,  ///< nobody waits for it: it, and the threads it starts, make room for everything else
};

/// Gives the calling thread a quality. Once, at its start: there is no way back from Utility.
void setThreadQuality(ThreadQuality quality);

}  // namespace vellora
