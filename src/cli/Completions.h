#pragma once

#include <optional>
#include <string>

namespace vellora::cli {

/// The completion script of "bash", "zsh" or "fish"; nothing for another shell.
std::optional<std::string> completionScript(const std::string& shell);

}  // namespace vellora::cli
