#pragma once

#include <string>

namespace vellora::cli {

/// The manual page vellora(1) in roff.
std::string manualPage();

}  // namespace vellora::cli
