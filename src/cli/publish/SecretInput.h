#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/Result.h"

namespace vellora {

/// Secrets as lines of an input, so that they need not stand on the command line where every program can read them.
/// From a terminal each is asked for, and typed without echo; a signal meanwhile gives the terminal its echo back
/// before it takes effect.
class SecretInput {
 public:
  static constexpr std::size_t longestLine = 4096;

  /// `descriptor` stays the caller's.
  explicit SecretInput(int descriptor) : descriptor_(descriptor) {}

  /// The next line without its end; nothing is read behind it. Otherwise why there is none, in plain English. `name` is
  /// what a person is asked for: "password".
  Result<std::string, std::string> read(std::string_view name);

 private:
  Result<std::string, std::string> readLine(std::string_view name, const std::function<bool()>& wait);
  int descriptor_;
};

}  // namespace vellora
