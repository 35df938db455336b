#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QTemporaryDir>

#include "app/HotKeyCenter.h"
#include "app/RecentRecordings.h"
#include "app/StatusMenuModel.h"
#include "support/FakePreferences.h"

namespace vellora {
namespace {

MenuState fullState() {
  MenuState state;
  for (int i = 0; i <= static_cast<int>(Command::Quit); ++i) state.available.insert(static_cast<Command>(i));
  return state;
}

const MenuEntry* find(const std::vector<MenuEntry>& entries, const QString& titleKey) {
  for (const MenuEntry& entry : entries) {
    if (entry.titleKey == titleKey) return &entry;
    if (const MenuEntry* child = find(entry.children, titleKey)) return child;
  }
  return nullptr;
}

TEST(StatusMenu, HasItsLinesInOrder) {
  QStringList lines;
  for (const MenuEntry& entry : statusMenu(fullState())) {
    lines << (entry.kind == MenuEntry::Kind::Separator ? QStringLiteral("-") : entry.titleKey.section(u'.', 1));
    EXPECT_TRUE(entry.kind == MenuEntry::Kind::Separator || !entry.iconName.isEmpty()) << entry.titleKey.toStdString();
  }
  EXPECT_EQ(
      lines.join(u' '),
      QStringLiteral(
          "captureArea captureWindow captureFullscreen captureScrolling captureText moreCaptures - reopen "
          "reopenMore endClickThrough - compressImages - recordRegion pauseRecording recordWindow recordFullscreen "
          "recentRecordings importVideo - startLive - settings quit"));
}

TEST(StatusMenu, FollowsTheRecordingAndLiveState) {
  struct Case {
    RecordingPhase phase;
    const char* record;
    const char* pause;  // empty: hidden
    bool others;
  };
  for (const Case& expected : {Case{RecordingPhase::Idle, "menu.recordRegion", "", true},
                               Case{RecordingPhase::Preparing, "menu.stopRecording", "", false},
                               Case{RecordingPhase::Arming, "menu.stopRecording", "", false},
                               Case{RecordingPhase::Recording, "menu.stopRecording", "menu.pauseRecording", false},
                               Case{RecordingPhase::Paused, "menu.stopRecording", "menu.resumeRecording", false}}) {
    MenuState state = fullState();
    state.recording = expected.phase;
    const auto menu = statusMenu(state);
    EXPECT_TRUE(find(menu, QString::fromLatin1(expected.record)));
    const MenuEntry& pause = menu[14];
    EXPECT_EQ(pause.isVisible, *expected.pause != '\0');
    if (pause.isVisible) {
      EXPECT_EQ(pause.titleKey, QString::fromLatin1(expected.pause));
    }
    EXPECT_EQ(find(menu, QStringLiteral("menu.recordWindow"))->isVisible, expected.others);
    EXPECT_EQ(find(menu, QStringLiteral("menu.recordFullscreen"))->isVisible, expected.others);
  }
  MenuState live = fullState();
  live.isLive = true;
  EXPECT_EQ(find(statusMenu(live), QStringLiteral("menu.stopLive"))->iconName, QStringLiteral("stop.circle"));
}

TEST(StatusMenu, ListsHistoryAndRecordings) {
  MenuState state = fullState();
  EXPECT_FALSE(find(statusMenu(state), QStringLiteral("menu.reopen"))->isEnabled);
  EXPECT_FALSE(find(statusMenu(state), QStringLiteral("menu.reopenMore"))->isEnabled);
  EXPECT_FALSE(find(statusMenu(state), QStringLiteral("menu.cleanupRecordings"))->isEnabled);

  state.history = {{QStringLiteral("first"), {}}, {QStringLiteral("second"), {}}};
  for (int i = 0; i < 13; ++i) state.recordings.push_back({QStringLiteral("r%1").arg(i), {}});
  state.canCleanUpRecordings = true;
  const auto menu = statusMenu(state);
  EXPECT_TRUE(find(menu, QStringLiteral("menu.reopen"))->isEnabled);
  const auto& history = find(menu, QStringLiteral("menu.reopenMore"))->children;
  ASSERT_EQ(history.size(), 4u);
  EXPECT_EQ(history[1].title, QStringLiteral("second"));
  EXPECT_EQ(history[1].index, 1);
  EXPECT_EQ(history[3].command, Command::ClearHistory);
  EXPECT_EQ(find(menu, QStringLiteral("menu.recentRecordings"))->children.size(), 10u + 3u);

  state.available.erase(Command::ToggleLive);
  EXPECT_FALSE(find(statusMenu(state), QStringLiteral("menu.startLive"))->isEnabled)
      << "not built yet: shown, disabled";
}

TEST(StatusMenu, ShowsTheBoundShortcuts) {
  MenuState state = fullState();
  state.shortcuts[Command::CaptureArea] = *parseWrittenShortcut(QStringLiteral("super+shift+pageup"));
  const auto menu = statusMenu(state);
  EXPECT_EQ(menu[0].shortcut, QStringLiteral("Shift+Meta+PgUp"));
  EXPECT_EQ(menu[1].shortcut, QString());
  EXPECT_EQ(menu.back().shortcut, QStringLiteral("Ctrl+Q"));
}

TEST(RecentRecordings, ListsBundlesNewestFirst) {
  QTemporaryDir root;
  const QDir dir(root.path());
  for (const char* name : {"old.vellorav", "new.vellorav", "other"}) ASSERT_TRUE(dir.mkdir(QString::fromLatin1(name)));
  QFile file(dir.filePath(QStringLiteral("file.vellorav")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  utimensat(AT_FDCWD, QFile::encodeName(dir.filePath(QStringLiteral("old.vellorav"))).constData(),
            std::array<timespec, 2>{{{1000, 0}, {1000, 0}}}.data(), 0);
  QStringList names;
  for (const auto& bundle : listRecordings(root.path())) names << bundle.name;
  EXPECT_EQ(names, (QStringList{QStringLiteral("new"), QStringLiteral("old")}));
  EXPECT_TRUE(listRecordings(root.filePath(QStringLiteral("missing"))).empty());
}

class FakeHotKeys final : public HotKeyService {
 public:
  std::map<Registration, Handler> held;
  std::uint32_t refusedKey = 0;
  std::optional<Registration> registerHotKey(std::uint32_t keyCode, std::uint32_t, Handler handler) override {
    if (keyCode == refusedKey) return std::nullopt;
    held[++last_] = std::move(handler);
    return last_;
  }
  void unregisterHotKey(Registration registration) override { held.erase(registration); }

 private:
  Registration last_ = 0;
};

TEST(HotKeyCenter, GrabsWhatIsBoundAndTellsWhatIsTaken) {
  FakeHotKeys service;
  service.refusedKey = 19;
  test::FakePreferences preferences;
  NotificationCenter notices;
  const HotKeySettings settings(preferences, notices);
  {
    HotKeyCenter center(service);
    std::vector<HotKeyAction> performed;
    const std::vector actions{HotKeyAction::FullScreen, HotKeyAction::Area, HotKeyAction::Window, HotKeyAction::Text};
    for (int times = 0; times < 2; ++times) {
      center.reload(settings, actions, [&](HotKeyAction action) { performed.push_back(action); });
    }
    EXPECT_EQ(service.held.size(), 2u);
    EXPECT_TRUE(center.isTakenElsewhere(HotKeyAction::Window));
    EXPECT_FALSE(center.isTakenElsewhere(HotKeyAction::Text)) << "nothing is bound to it";
    for (const auto& [registration, handler] : service.held) handler();
    EXPECT_EQ(performed, (std::vector{HotKeyAction::FullScreen, HotKeyAction::Area}));
  }
  EXPECT_TRUE(service.held.empty());
}

}  // namespace
}  // namespace vellora
