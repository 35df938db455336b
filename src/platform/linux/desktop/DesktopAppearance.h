#pragma once

#include <functional>
#include <memory>
#include <optional>

namespace vellora {

/// What the desktop's settings portal (org.freedesktop.portal.Settings) says about looks: light or dark, and whether to
/// leave out motion. Main thread; a desktop without the portal says nothing, and nothing waits for it.
class DesktopAppearance {
 public:
  DesktopAppearance();
  ~DesktopAppearance();
  DesktopAppearance(const DesktopAppearance&) = delete;
  DesktopAppearance& operator=(const DesktopAppearance&) = delete;

  /// Asks now and follows changes from then on.
  void watch();
  /// Called when an answer or a change has come.
  void setChangeHandler(std::function<void()> changed);

  /// Nothing while the desktop has not answered or has no preference.
  std::optional<bool> prefersDark() const;
  std::optional<bool> reducesMotion() const;

 private:
  class Portal;
  std::unique_ptr<Portal> portal_;
};

}  // namespace vellora
