#include "capture/AccessGate.h"

namespace vellora {

AccessGate::AccessGate(AccessService& service, Alert alert) : service_(service), alert_(std::move(alert)) {}

bool AccessGate::allows(Need need) {
  if (!ensure(Access::ScreenRecording)) return false;
  return need == Need::Screen || ensure(Access::Accessibility);
}

bool AccessGate::ensure(Access access) {
  if (service_.isGranted(access)) return true;
  service_.request(access);
  // The accessibility request may settle it on the spot; screen recording takes effect at the next start only.
  if (access == Access::Accessibility && service_.isGranted(access)) return true;
  alert_(access, [this, access] { service_.openPrivacyPage(access); });
  return false;
}

}  // namespace vellora
