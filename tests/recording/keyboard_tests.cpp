#include <deque>

#include <gtest/gtest.h>

#include "recording/KeyboardCueBuffer.h"
#include "recording/KeyboardRecordingCapture.h"
#include "support/VirtualRunLoop.h"

namespace vellora {
namespace {

QStringList labels(std::initializer_list<const char16_t*> keys) {
  QStringList list;
  for (const char16_t* key : keys) list.push_back(QString::fromUtf16(key));
  return list;
}

/// A keyboard the test types on.
class TypedKeys : public EventTap {
 public:
  class Ear : public Listening {
   public:
    explicit Ear(TypedKeys& keys) : keys_(keys) {}
    ~Ear() override { keys_.callbacks_ = {}; }

   private:
    TypedKeys& keys_;
  };
  std::unique_ptr<Listening> listen(Callbacks callbacks) override {
    if (isRefused) return nullptr;
    callbacks_ = std::move(callbacks);
    return std::make_unique<Ear>(*this);
  }
  bool isSecureInputEnabled() override { return isSecure; }

  void down(std::uint16_t code, const QString& characters, double at, std::uint32_t flags = 0) {
    send({KeyEvent::Kind::keyDown, code, flags, characters, at});
  }
  void up(std::uint16_t code, double at, std::uint32_t flags = 0) {
    send({KeyEvent::Kind::keyUp, code, flags, {}, at});
  }
  void flags(std::uint32_t flags, double at) { send({KeyEvent::Kind::flagsChanged, 0, flags, {}, at}); }
  void send(const KeyEvent& event) {
    if (callbacks_.onKey) callbacks_.onKey(event);
  }

  bool isRefused = false;
  bool isSecure = false;

 private:
  Callbacks callbacks_;
};

/// Keeps cues with host time for recorded time.
class CueKeeper : public KeyboardRecorder {
 public:
  void recordKeyboard(const QStringList& keys, double hostTime, double linger) override {
    if (keys.isEmpty()) {
      buffer.release(hostTime, linger);
    } else {
      buffer.press(keys, hostTime);
    }
  }
  KeyboardCueBuffer buffer;
};

constexpr std::uint16_t keyA = 0;
constexpr std::uint16_t keyC = 8;
constexpr std::uint16_t keyLeft = 123;

TEST(KeyboardCueBufferTest, dropsTransitionsAndMergesRepeats) {
  KeyboardCueBuffer buffer;
  buffer.press(labels({u"A"}), 1);
  buffer.press(labels({u"A"}), 1.5);
  buffer.press(labels({u"⌘"}), 2);
  buffer.press(labels({u"⌘", u"C"}), 2.05);
  buffer.press({}, 2.1);
  buffer.press(labels({u"X"}), std::nan(""));
  EXPECT_EQ(buffer.finished(12),
            (std::vector<RecordedKeyCue>{{1, 2, labels({u"A"})}, {2.05, 12, labels({u"⌘", u"C"})}}));
  EXPECT_TRUE(buffer.finished(1).empty());
}

TEST(KeyboardCueBufferTest, lingersUntilTheNextCombination) {
  KeyboardCueBuffer buffer;
  buffer.press(labels({u"A"}), 9);
  buffer.release(10, 0.85);
  buffer.release(11, 0.85);
  EXPECT_EQ(buffer.cues().back().end, 10.85);
  buffer.press(labels({u"A"}), 10.3);
  EXPECT_EQ(buffer.cues().front().end, 10.3);
  // A release stamped before its press ends the cue where it began.
  buffer.release(10, 0);
  EXPECT_EQ(buffer.cues().back().end, 10.3);
  EXPECT_EQ(buffer.finished(20).size(), 1U);
}

class KeyboardCaptureTest : public testing::Test {
 protected:
  test::VirtualRunLoop loop_;
  TypedKeys keys_;
  CueKeeper keeper_;
  KeyboardRecordingCapture capture_{keys_, loop_};
};

TEST_F(KeyboardCaptureTest, showsModifiersInOrderThenHeldKeys) {
  ASSERT_TRUE(capture_.start(keeper_));
  using namespace eventFlag;
  keys_.flags(command, 1);
  keys_.flags(command | shift | option | control, 2);
  keys_.down(keyC, QStringLiteral("c"), 3, command | shift | option | control);
  keys_.down(keyA, QStringLiteral("a"), 4, command);
  keys_.up(keyC, 5, command);
  keys_.up(keyA, 6, command);
  keys_.down(keyLeft, QString(), 8);
  keys_.up(keyLeft, 8.5);
  keys_.down(56, QString(), 9);                 // no label
  keys_.down(10, QStringLiteral("\x1b"), 9.5);  // a control character
  keys_.down(33, QStringLiteral("ß"), 10);
  EXPECT_EQ(keeper_.buffer.finished(11), (std::vector<RecordedKeyCue>{{1, 2, labels({u"⌘"})},
                                                                      {2, 3, labels({u"⌃", u"⌥", u"⇧", u"⌘"})},
                                                                      {3, 4, labels({u"⌃", u"⌥", u"⇧", u"⌘", u"C"})},
                                                                      {4, 6.85, labels({u"⌘", u"A", u"C"})},
                                                                      {8, 9.35, labels({u"←"})},
                                                                      {10, 11, labels({u"SS"})}}));
}

TEST_F(KeyboardCaptureTest, recordsNothingOfPasswords) {
  ASSERT_TRUE(capture_.start(keeper_));
  keys_.down(keyA, QStringLiteral("a"), loop_.hostTime());
  loop_.advance(1);
  keys_.isSecure = true;
  // The key that is typed before the next look is not shown either.
  keys_.down(keyC, QStringLiteral("c"), loop_.hostTime());
  loop_.advance(1);
  keys_.up(keyC, loop_.hostTime());
  keys_.isSecure = false;
  loop_.advance(0.2);
  keys_.down(keyLeft, QString(), loop_.hostTime());
  const auto cues = keeper_.buffer.finished(10);
  ASSERT_EQ(cues.size(), 2U);
  EXPECT_EQ(cues[0], (RecordedKeyCue{0, 1, labels({u"A"})}));
  EXPECT_EQ(cues[1].keys, labels({u"←"}));
  capture_.stop();
  EXPECT_EQ(loop_.pendingTimers(), 0U);
}

TEST_F(KeyboardCaptureTest, saysWhenNobodyMayListen) {
  keys_.isRefused = true;
  EXPECT_FALSE(capture_.start(keeper_));
  EXPECT_EQ(loop_.pendingTimers(), 0U);
}

}  // namespace
}  // namespace vellora
