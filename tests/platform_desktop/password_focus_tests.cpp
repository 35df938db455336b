#include <gtest/gtest.h>

#include <QProcess>

#include "platform/linux/desktop/PasswordFocus.h"
#include "platform_desktop/DesktopSession.h"

namespace vellora::test {
namespace {

/// A program with a line for a name and one for a password, which talks to assistive technology.
class Form {
 public:
  Form() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    // Programs of this toolkit look only when they start whether anybody listens.
    environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    process_.setProcessEnvironment(environment);
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QStringLiteral(VELLORA_BIN_DIR "/password_probe"), {});
    window_ = desktopSession().run({"xdotool", "search", "--sync", "--onlyvisible", "--name", "Form"}).output;
    while (!window_.empty() && window_.back() == '\n') window_.pop_back();
    desktopSession().run({"xdotool", "windowfocus", "--sync", window_});
  }
  ~Form() {
    process_.kill();
    process_.waitForFinished();
  }
  void focus(const char* line) { process_.write(QByteArray(line) + '\n'); }
  void kill() { process_.kill(); }

 private:
  QProcess process_;
  std::string window_;
};

TEST(PasswordFocus, FollowsTheKeyboardThroughAProgram) {
  PasswordFocus focus;
  const auto isHidden = [&] { return focus.hasKeyboard(); };
  const auto isShown = [&] { return !focus.hasKeyboard(); };
  EXPECT_FALSE(focus.hasKeyboard()) << "nobody has told anything";
  Form form;
  form.focus("password");
  ASSERT_TRUE(processUntil(isHidden));
  form.focus("name");
  ASSERT_TRUE(processUntil(isShown));
  form.focus("password");
  ASSERT_TRUE(processUntil(isHidden));
  {
    // Whoever begins to listen finds the field that is focused already.
    PasswordFocus late;
    ASSERT_TRUE(processUntil([&] { return late.hasKeyboard(); }));
  }
  form.kill();
  ASSERT_TRUE(processUntil(isShown)) << "the program is gone";
}

}  // namespace
}  // namespace vellora::test
