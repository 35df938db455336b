#include <gtest/gtest.h>

#include <cstdlib>

#include "platform_desktop/DesktopSession.h"

namespace vellora::test {
namespace {

std::unique_ptr<XServer> session;

/// Makes the session before the first test and ends it after the last one.
class SessionEnvironment final : public ::testing::Environment {
 public:
  void SetUp() override {
    session = XServer::start({.size = {800, 600}, .bus = true});
    ASSERT_TRUE(session);
    for (const std::string& entry : session->environment()) {
      const auto separator = entry.find('=');
      setenv(entry.substr(0, separator).c_str(), entry.substr(separator + 1).c_str(), 1);
    }
  }
  void TearDown() override { session.reset(); }
};

const auto* const environment = ::testing::AddGlobalTestEnvironment(new SessionEnvironment);

}  // namespace

XServer& desktopSession() {
  return *session;
}

}  // namespace vellora::test
