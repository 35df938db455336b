#pragma once

#include <functional>

#include "platform/AccessService.h"

namespace vellora {

/// Lets a command start only with the desktop's leave. When it is missing the desktop is asked to ask the person, and
/// the person is told where to give it. Main thread.
class AccessGate {
 public:
  /// Tells the person what is missing; `openPage` is to be called when they choose to go there.
  using Alert = std::function<void(Access missing, std::function<void()> openPage)>;

  AccessGate(AccessService& service, Alert alert);

  /// What a command needs.
  enum class Need { Screen, ScreenAndInput };

  /// Whether the command may start now.
  bool allows(Need need);

 private:
  bool ensure(Access access);

  AccessService& service_;
  Alert alert_;
};

}  // namespace vellora
