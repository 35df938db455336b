#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>

#include "platform/KeyCodes.h"
#include "platform/linux/x11/X11HotKeys.h"
#include "support/XClient.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

using namespace carbonModifier;

// Places by the kernel's codes.
constexpr std::uint16_t leftShift = 42, leftControl = 29, leftAlt = 56, leftSuper = 125;
constexpr std::uint16_t digit1 = 2, digit4 = 5, f5 = 63, capsLock = 58, numLock = 69, letterA = 30;
// The same by virtual key codes.
constexpr std::uint32_t vkDigit1 = 18, vkDigit4 = 21, vkF5 = 96, vkA = 0, vkUnused = 52;

/// Runs the event loop until `condition` holds; false after `seconds`.
template <class Condition>
bool runUntil(Condition condition, double seconds = 5) {
  QElapsedTimer clock;
  clock.start();
  while (!condition()) {
    if (static_cast<double>(clock.elapsed()) > seconds * 1000) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
  }
  return true;
}
void runFor(double seconds) {
  runUntil([] { return false; }, seconds);
}

class X11HotKeyTests : public testing::Test {
 protected:
  void SetUp() override {
    server = XServer::start({.size = {640, 480}});
    ASSERT_TRUE(server);
    client = std::make_unique<XClient>(*server);
    keys = std::make_unique<X11HotKeys>(server->display());
  }
  void TearDown() override { keys.reset(); }

  std::optional<HotKeyService::Registration> count(std::uint32_t key, std::uint32_t modifiers, int& counter) {
    return keys->registerHotKey(key, modifiers, [&counter] { ++counter; });
  }
  /// Types a combination and tells whether `counter` went up by exactly one.
  bool fires(const std::vector<std::uint16_t>& combination, int& counter) {
    const int before = counter;
    client->chord(combination);
    const bool came = runUntil([&] { return counter > before; }, 2);
    waitUntilIdle();
    return came && counter == before + 1;
  }
  bool staysQuiet(const std::vector<std::uint16_t>& combination, const int& counter) {
    const int before = counter;
    client->chord(combination);
    waitUntilIdle();
    return counter == before;
  }
  /// The service looks every 20 ms whether the last key is up; a second press before that would be the same one.
  void waitUntilIdle() { runFor(0.08); }

  std::unique_ptr<XServer> server;
  std::unique_ptr<XClient> client;
  std::unique_ptr<X11HotKeys> keys;
};

TEST_F(X11HotKeyTests, FireForTheirCombinationOnlyAndWhateverTheLockKeys) {
  int digit = 0, all = 0, function = 0;
  ASSERT_TRUE(count(vkDigit1, option, digit));
  ASSERT_TRUE(count(vkDigit4, command | shift | control, all));
  ASSERT_TRUE(count(vkF5, 0, function));
  for (const std::vector<std::uint16_t>& locks : {std::vector<std::uint16_t>{}, {capsLock}, {numLock}, {capsLock}}) {
    // The list toggles: none, Caps Lock, Caps Lock and Num Lock, Num Lock.
    for (const std::uint16_t lock : locks) client->chord({lock});
    EXPECT_TRUE(fires({leftAlt, digit1}, digit));
    EXPECT_TRUE(fires({leftSuper, leftShift, leftControl, digit4}, all));
    EXPECT_TRUE(fires({f5}, function));
  }
  EXPECT_TRUE(staysQuiet({digit1}, digit));
  EXPECT_TRUE(staysQuiet({leftAlt, leftShift, digit1}, digit));
  EXPECT_TRUE(staysQuiet({leftSuper, leftControl, digit4}, all));
  EXPECT_TRUE(staysQuiet({leftAlt, f5}, function));
}

TEST_F(X11HotKeyTests, StayInTheirPlaceInEveryLayout) {
  int digit = 0, letter = 0;
  ASSERT_TRUE(count(vkDigit1, option, digit));
  ASSERT_TRUE(count(vkA, command, letter));
  const std::vector<std::vector<std::string>> layouts = {
      {"fr"}, {"de"}, {"us", "-variant", "dvorak"}, {"ru"}, {"us,de", "-option", "grp:shifts_toggle"}};
  for (const auto& layout : layouts) {
    std::vector<std::string> command{"setxkbmap", "-layout"};
    command.insert(command.end(), layout.begin(), layout.end());
    server->check(command);
    runFor(0.05);
    EXPECT_TRUE(fires({leftAlt, digit1}, digit)) << layout[0];
    EXPECT_TRUE(fires({leftSuper, letterA}, letter)) << layout[0];
  }
  client->chord({42, 54});  // both Shift keys: the second of the two layouts
  EXPECT_TRUE(fires({leftAlt, digit1}, digit)) << "second group";
}

TEST_F(X11HotKeyTests, FollowModifiersThatMove) {
  int digit = 0;
  ASSERT_TRUE(count(vkDigit1, option, digit));
  server->check({"setxkbmap", "us", "-option", "altwin:swap_lalt_lwin"});
  runFor(0.1);
  EXPECT_TRUE(fires({leftSuper, digit1}, digit)) << "the key left of the space bar's neighbour is Alt now";
  EXPECT_TRUE(staysQuiet({leftAlt, digit1}, digit));
  server->check({"setxkbmap", "us", "-option", ""});
  runFor(0.1);
  EXPECT_TRUE(fires({leftAlt, digit1}, digit));
  server->check({"xmodmap", "-e", "clear mod1", "-e", "clear mod3", "-e", "add mod3 = Alt_L"});
  runFor(0.1);
  EXPECT_TRUE(fires({leftAlt, digit1}, digit)) << "Alt is the third modifier now";
}

TEST_F(X11HotKeyTests, AreRefusedWhileAnotherProgramHoldsThem) {
  int counter = 0;
  xcb_connection_t* other = client->connection();
  // Only the state with Num Lock: the first grabs succeed and have to be given back.
  constexpr std::uint8_t evdevOffset = 8;
  xcb_grab_key(other, 0, client->root(), XCB_MOD_MASK_1 | XCB_MOD_MASK_2, digit1 + evdevOffset, XCB_GRAB_MODE_ASYNC,
               XCB_GRAB_MODE_ASYNC);
  client->sync();
  EXPECT_FALSE(count(vkDigit1, option, counter));
  const auto code = static_cast<xcb_keycode_t>(digit1 + evdevOffset);
  for (const int modifiers : {XCB_MOD_MASK_1 + 0, XCB_MOD_MASK_1 | XCB_MOD_MASK_LOCK}) {
    const auto cookie = xcb_grab_key_checked(other, 0, client->root(), static_cast<std::uint16_t>(modifiers), code,
                                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_generic_error_t* error = xcb_request_check(other, cookie);
    EXPECT_EQ(error, nullptr) << "a refused registration keeps nothing";
    std::free(error);
    xcb_ungrab_key(other, code, client->root(), static_cast<std::uint16_t>(modifiers));
  }
  xcb_ungrab_key(other, XCB_GRAB_ANY, client->root(), XCB_MOD_MASK_ANY);
  client->sync();
  EXPECT_TRUE(count(vkDigit1, option, counter));
  EXPECT_TRUE(fires({leftAlt, digit1}, counter));
}

TEST_F(X11HotKeyTests, WhatCannotBeAHotKeyIsRefused) {
  int counter = 0;
  EXPECT_FALSE(count(vkUnused, option, counter));
  EXPECT_FALSE(count(100000, option, counter));
  EXPECT_FALSE(count(vkDigit1, 0x1, counter));
  EXPECT_TRUE(count(vkDigit1, option, counter));
  EXPECT_FALSE(count(vkDigit1, option, counter)) << "twice the same";
  X11HotKeys nowhere(":9999");
  EXPECT_FALSE(nowhere.registerHotKey(vkDigit1, option, [] {}));
  nowhere.unregisterHotKey(1);
}

TEST_F(X11HotKeyTests, CanBeGivenBackAndTakenAgain) {
  int first = 0, second = 0;
  const auto registration = count(vkDigit1, option, first);
  ASSERT_TRUE(registration);
  keys->unregisterHotKey(*registration);
  keys->unregisterHotKey(*registration);
  EXPECT_TRUE(staysQuiet({leftAlt, digit1}, first));
  X11HotKeys other(server->display());
  int others = 0;
  const auto held = other.registerHotKey(vkDigit1, option, [&] { ++others; });
  ASSERT_TRUE(held) << "given back, others may have it";
  EXPECT_FALSE(count(vkDigit1, option, second));
  other.unregisterHotKey(*held);
  EXPECT_TRUE(runUntil([&] { return count(vkDigit1, option, second).has_value(); }));
  EXPECT_TRUE(fires({leftAlt, digit1}, second));
  EXPECT_EQ(first + others, 0);
}

TEST_F(X11HotKeyTests, FireOncePerPressHoweverLongItIsHeld) {
  int counter = 0;
  ASSERT_TRUE(count(vkDigit1, option, counter));
  server->check({"xset", "r", "rate", "100", "50"});
  client->key(leftAlt, true);
  client->key(digit1, true);
  runFor(0.6);
  EXPECT_EQ(counter, 1);
  client->key(digit1, false);
  runFor(0.4);  // looks for the release become rare the longer the key is held
  client->key(digit1, true);
  EXPECT_TRUE(runUntil([&] { return counter == 2; }));
  client->key(digit1, false);
  client->key(leftAlt, false);
}

TEST_F(X11HotKeyTests, TheHandlerFindsTheKeyboardFreeAndMayEndEverything) {
  int status = -1;
  ASSERT_TRUE(keys->registerHotKey(vkDigit1, option, [&] {
    // As a window does that wants every key from now on; the hot key is still down.
    xcb_connection_t* c = client->connection();
    const auto cookie =
        xcb_grab_keyboard(c, 0, client->root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_grab_keyboard_reply_t* reply = xcb_grab_keyboard_reply(c, cookie, nullptr);
    status = reply != nullptr ? reply->status : -2;
    std::free(reply);
    xcb_ungrab_keyboard(c, XCB_CURRENT_TIME);
    client->sync();
  }));
  client->key(leftAlt, true);
  client->key(digit1, true);
  EXPECT_TRUE(runUntil([&] { return status != -1; }));
  EXPECT_EQ(status, XCB_GRAB_STATUS_SUCCESS);
  client->key(digit1, false);
  client->key(leftAlt, false);
  waitUntilIdle();

  std::optional<HotKeyService::Registration> once;
  int counter = 0;
  once = keys->registerHotKey(vkF5, 0, [&] {
    ++counter;
    keys->unregisterHotKey(*once);
  });
  ASSERT_TRUE(once);
  EXPECT_TRUE(fires({f5}, counter));
  EXPECT_TRUE(staysQuiet({f5}, counter));
  bool ended = false;
  ASSERT_TRUE(keys->registerHotKey(vkDigit4, option, [&] {
    keys.reset();
    ended = true;
  }));
  client->chord({leftAlt, digit4});
  EXPECT_TRUE(runUntil([&] { return ended; }));
  runFor(0.05);
}

TEST_F(X11HotKeyTests, OutliveTheServer) {
  int counter = 0;
  ASSERT_TRUE(count(vkDigit1, option, counter));
  server->crash();
  runFor(0.05);
  EXPECT_FALSE(count(vkDigit4, option, counter));
  keys->unregisterHotKey(1);
}

/// Every key the table names, pressed on a real server, is the key the table says.
TEST_F(X11HotKeyTests, EveryPlaceIsWhereTheKernelHasIt) {
  for (const KeyPlace& place : keyPlaces()) {
    const bool modifier = place.virtualKeyCode >= 54 && place.virtualKeyCode <= 63;
    if (modifier || place.xkbName == "NMLK") continue;
    int counter = 0;
    const auto registration = count(place.virtualKeyCode, control, counter);
    ASSERT_TRUE(registration) << place.xkbName;
    client->chord({leftControl, place.evdevCode});
    EXPECT_TRUE(runUntil([&] { return counter == 1; }, 2)) << place.xkbName;
    keys->unregisterHotKey(*registration);
  }
}

}  // namespace
}  // namespace vellora::test
