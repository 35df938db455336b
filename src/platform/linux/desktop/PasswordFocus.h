#pragma once

#include <memory>

namespace vellora {

/// Whether a field for passwords has the keyboard, as far as programs tell assistive technology (AT-SPI). Main thread,
/// with an event loop; nothing waits for a program.
///
/// Asking is what keeps it watching: the first question begins, and some seconds after the last one it stops, because
/// programs work more while somebody listens. Until a program has answered what its focused field is, that field counts
/// as one for passwords. Programs that tell nothing have none.
class PasswordFocus {
 public:
  PasswordFocus();
  ~PasswordFocus();
  PasswordFocus(const PasswordFocus&) = delete;
  PasswordFocus& operator=(const PasswordFocus&) = delete;

  bool hasKeyboard();

 private:
  class Watch;
  std::unique_ptr<Watch> watch_;
};

}  // namespace vellora
