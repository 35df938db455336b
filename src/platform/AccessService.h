#pragma once

namespace vellora {

/// What a command may need the desktop's leave for.
enum class Access { ScreenRecording, Accessibility };

/// Asks the desktop for leave to capture and to watch input. Main thread.
class AccessService {
 public:
  virtual ~AccessService() = default;

  /// Whether leave is given now; asks nobody.
  virtual bool isGranted(Access access) = 0;
  /// Lets the desktop ask the person; returns at once, whatever they will answer.
  virtual void request(Access access) = 0;
  /// Opens the desktop's page on which leave is given. `privacyPage` gives its address.
  virtual void openPrivacyPage(Access access) = 0;
};

}  // namespace vellora
