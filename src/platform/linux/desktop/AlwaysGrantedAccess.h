#pragma once

#include "platform/AccessService.h"

namespace vellora {

/// For desktops where every program of the session may look and listen (X11): nothing to ask, no page to open.
class AlwaysGrantedAccess final : public AccessService {
 public:
  bool isGranted(Access) override { return true; }
  void request(Access) override {}
  void openPrivacyPage(Access) override {}
};

}  // namespace vellora
