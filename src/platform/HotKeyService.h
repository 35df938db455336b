#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace vellora {

/// Global hot keys. Main thread; handlers run on the main thread.
class HotKeyService {
 public:
  using Handler = std::function<void()>;
  /// Names one registration.
  using Registration = std::uint32_t;
  virtual ~HotKeyService() = default;

  /// Grabs a combination, whatever the lock keys and the keyboard layout: `keyCode` is a virtual key code (KeyCodes.h),
  /// a place on the keyboard; `carbonModifiers` a mask of carbonModifier values. Nothing when another program holds it
  /// or the desktop cannot grab it.
  virtual std::optional<Registration> registerHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers,
                                                     Handler handler) = 0;
  virtual void unregisterHotKey(Registration registration) = 0;
};

}  // namespace vellora
