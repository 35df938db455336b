#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>

#include <chrono>

#include "platform/linux/x11/X11EventTap.h"
#include "support/XClient.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

using enum KeyEvent::Kind;

// Places by the kernel's codes.
constexpr std::uint16_t leftShift = 42, leftControl = 29, leftAlt = 56, leftSuper = 125, numLock = 69, capsLock = 58;
constexpr std::uint16_t letterA = 30, letterY = 21, semicolon = 39, digit1 = 2, keypad1 = 79, f5 = 63, volumeUp = 115;

double hostTime() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

class X11EventTapTests : public testing::Test {
 protected:
  void SetUp() override {
    server = XServer::start({.size = {640, 480}});
    ASSERT_TRUE(server);
    client = std::make_unique<XClient>(*server);
    tap = std::make_unique<X11EventTap>([this] { return secure; }, server->display());
    listening = tap->listen({.onKey = [this](const KeyEvent& event) { keys.push_back(event); },
                             .onButton = [this](const ButtonEvent& event) { buttons.push_back(event); }});
    ASSERT_TRUE(listening);
  }
  void TearDown() override { listening.reset(); }

  template <class Condition>
  bool runUntil(Condition condition) {
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
      if (clock.elapsed() > 5000) return false;
      QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 10);
    }
    return true;
  }
  /// Types a combination and returns what was heard up to its last event, without what follows it by itself.
  std::vector<KeyEvent> type(const std::vector<std::uint16_t>& combination, std::size_t expected) {
    keys.clear();
    client->chord(combination);
    EXPECT_TRUE(runUntil([&] { return keys.size() >= expected; })) << keys.size() << " of " << expected;
    settle();
    EXPECT_EQ(keys.size(), expected);
    keys.resize(expected);
    return keys;
  }
  /// A button that comes after all the keys before it.
  void settle() {
    buttons.clear();
    client->button(2, true);
    client->button(2, false);
    EXPECT_TRUE(runUntil([&] { return buttons.size() == 2; }));
  }
  QString labelOf(std::uint16_t key) {
    const auto heard = type({key}, 2);
    return heard.front().charactersIgnoringModifiers;
  }

  bool secure = false;
  std::vector<KeyEvent> keys;
  std::vector<ButtonEvent> buttons;
  std::unique_ptr<XServer> server;
  std::unique_ptr<XClient> client;
  std::unique_ptr<X11EventTap> tap;
  std::unique_ptr<EventTap::Listening> listening;
};

TEST_F(X11EventTapTests, KeysComeWithPlaceFlagsLabelAndTime) {
  const double before = hostTime();
  const auto plain = type({letterA}, 2);
  EXPECT_EQ(plain[0].kind, keyDown);
  EXPECT_EQ(plain[0].keyCode, 0);
  EXPECT_EQ(plain[0].flags, 0U);
  EXPECT_EQ(plain[0].charactersIgnoringModifiers, QStringLiteral("a"));
  EXPECT_NEAR(plain[0].hostTime, before, 1);
  EXPECT_GE(plain[0].hostTime, before - 0.01);
  EXPECT_EQ(plain[1].kind, keyUp);
  EXPECT_EQ(plain[1].keyCode, 0);

  const auto chord = type({leftControl, leftAlt, leftShift, leftSuper, letterA}, 10);
  constexpr std::uint32_t all = eventFlag::control | eventFlag::option | eventFlag::shift | eventFlag::command;
  const std::uint32_t flags[] = {eventFlag::control, eventFlag::control | eventFlag::option, all & ~eventFlag::command,
                                 all, all};
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(chord[i].flags, flags[i]) << i;
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(chord[i].kind, flagsChanged) << i;
  EXPECT_EQ(chord[0].keyCode, 59);
  EXPECT_EQ(chord[4].kind, keyDown);
  EXPECT_EQ(chord[4].charactersIgnoringModifiers, QStringLiteral("a")) << "the key alone";
  EXPECT_EQ(chord[5].kind, keyUp);
  EXPECT_EQ(chord[9].flags, 0U);

  EXPECT_EQ(type({f5}, 2)[0].keyCode, 96);
  EXPECT_TRUE(keys[0].charactersIgnoringModifiers.isEmpty());
  const auto unknown = type({volumeUp}, 2);
  EXPECT_GE(unknown[0].keyCode, 0x100) << "a key without a place is still one of its own";
}

TEST_F(X11EventTapTests, LabelsAreThoseOfTheActiveLayout) {
  EXPECT_EQ(labelOf(keypad1), QString()) << "End";
  client->chord({numLock});
  settle();
  EXPECT_EQ(labelOf(keypad1), QStringLiteral("1"));
  server->check({"setxkbmap", "-layout", "de,ru", "-option", "grp:caps_toggle"});
  ASSERT_TRUE(runUntil([&] { return labelOf(semicolon) == QString::fromUtf8("ö"); }));
  EXPECT_EQ(labelOf(letterY), QStringLiteral("z"));
  EXPECT_EQ(labelOf(digit1), QStringLiteral("1"));
  client->chord({capsLock});
  settle();
  EXPECT_EQ(labelOf(letterA), QString::fromUtf8("ф")) << "the second group";
}

TEST_F(X11EventTapTests, KeysSomebodyGrabbedAreHeardOnce) {
  const XClient other(*server);
  xcb_grab_key(other.connection(), 0, other.root(), XCB_MOD_MASK_CONTROL, letterA + 8, XCB_GRAB_MODE_ASYNC,
               XCB_GRAB_MODE_ASYNC);
  other.sync();
  const auto heard = type({leftControl, letterA}, 4);
  EXPECT_EQ(heard[1].kind, keyDown);
  EXPECT_EQ(heard[1].charactersIgnoringModifiers, QStringLiteral("a"));
  EXPECT_EQ(heard[2].kind, keyUp);
  xcb_discard_reply(other.connection(), xcb_grab_keyboard(other.connection(), 0, other.root(), XCB_CURRENT_TIME,
                                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)
                                            .sequence);
  other.sync();
  EXPECT_EQ(type({letterY}, 2)[0].keyCode, 16);
}

TEST_F(X11EventTapTests, KeysHeldBeforeAndCallbacksThatEndTheListening) {
  client->key(letterA, true);
  ASSERT_TRUE(runUntil([&] { return keys.size() == 1; }));
  std::vector<KeyEvent> heard;
  std::unique_ptr<EventTap::Listening> second;
  second = tap->listen({.onKey = [&](const KeyEvent& event) {
    heard.push_back(event);
    if (heard.size() == 2) second.reset();
  }});
  ASSERT_TRUE(second);
  client->key(letterA, false);
  client->chord({letterY});
  ASSERT_TRUE(runUntil([&] { return keys.size() == 4; }));
  ASSERT_TRUE(runUntil([&] { return heard.size() == 2; }));
  EXPECT_EQ(heard[0].kind, keyUp) << "of a key that was down before";
  EXPECT_EQ(heard[1].keyCode, 16);
  EXPECT_FALSE(second);
}

TEST_F(X11EventTapTests, ButtonsComeWithTheirPlace) {
  client->movePointer({123, 234});
  client->button(1, true);
  client->button(4, true);
  client->button(4, false);
  client->button(1, false);
  client->button(3, true);
  client->button(3, false);
  ASSERT_TRUE(runUntil([&] { return buttons.size() == 4; }));
  EXPECT_TRUE(buttons[0].isDown);
  EXPECT_EQ(buttons[0].button, 0);
  EXPECT_EQ(buttons[0].position, (PixelPoint{123, 234}));
  EXPECT_FALSE(buttons[1].isDown);
  EXPECT_EQ(buttons[2].button, 2);
}

TEST_F(X11EventTapTests, PasswordsAndDisplaysThatGo) {
  EXPECT_FALSE(tap->isSecureInputEnabled());
  secure = true;
  EXPECT_TRUE(tap->isSecureInputEnabled());
  server->crash();
  EXPECT_TRUE(runUntil([&] { return tap->listen({.onKey = [](const KeyEvent&) {}}) == nullptr; }));
  QCoreApplication::processEvents();
}

}  // namespace
}  // namespace vellora::test
