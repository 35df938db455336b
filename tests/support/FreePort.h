#pragma once

#include <cstdint>

namespace vellora::test {

/// A TCP port of 127.0.0.1 that nobody listens on at this moment; 0 when there is none. Another program may take it
/// before the caller does: whoever cannot listen on it has to ask again.
std::uint16_t freePort();

}  // namespace vellora::test
