// `vellora history` on a history of its own, without a display.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "base/Json.h"
#include "editor/SessionStore.h"
#include "platform/linux/desktop/XdgFileNames.h"
#include "support/ChildProcess.h"
#include "support/TestBitmaps.h"
#include "support/VirtualRunLoop.h"

namespace vellora {
namespace {

using test::Finished;

class HistoryTest : public testing::Test {
 protected:
  HistoryTest() {
    test::VirtualRunLoop runLoop;
    SessionStore store(SessionStore::defaultDirectory(home.filePath(QStringLiteral(".local/share"))), runLoop,
                       [](const QString&) { return std::nullopt; });
    for (int i = 1; i <= 3; ++i) {
      ImageDocument document;
      document.pieces.push_back(makePiece(test::solidBitmap({10 * i, 20}, 0xFF336699), 1));
      Annotation arrow;
      document.annotations.assign(static_cast<std::size_t>(i), makeAnnotation(arrow));
      runLoop.advance(1);
      store.push(document, runLoop.now());
    }
    store.waitForPendingWrites();
  }

  Finished vellora(std::vector<std::string> arguments) const {
    std::vector<std::string> command{"env", "-i", "HOME=" + home.path().toStdString(), VELLORA_BIN_DIR "/vellora"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return test::runProgram(command, {});
  }
  Json velloraJson(std::vector<std::string> arguments) const {
    arguments.emplace_back("--json");
    const Finished run = vellora(arguments);
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    const auto parsed = json::parse(QByteArray::fromStdString(run.output));
    EXPECT_TRUE(parsed) << run.output;
    return parsed ? *parsed : Json();
  }

  QTemporaryDir home;
};

TEST_F(HistoryTest, ListsAndShowsWhatIsThere) {
  const Json list = velloraJson({"history", "list"});
  ASSERT_EQ(list["sessions"].size(), 3u);
  EXPECT_EQ(list["sessions"][0]["width"], 30) << "the newest first";
  EXPECT_EQ(list["sessions"][2]["number"], 3);

  const Json shown = velloraJson({"history", "show", "2"});
  EXPECT_EQ(shown["folder"], list["sessions"][1]["folder"]);
  EXPECT_EQ(shown["document"]["annotations"].size(), 2u);
  EXPECT_EQ(shown["document"]["pieces"][0]["file"], "piece-0.png");
  EXPECT_EQ(velloraJson({"history", "show"})["number"], 1);
  EXPECT_NE(vellora({"history", "show", "2"}).output.find("arrow\t2"), std::string::npos);
  EXPECT_NE(vellora({"history", "list"}).output.find("30 × 20"), std::string::npos);
}

TEST_F(HistoryTest, TellsWrongNumbersFromFailures) {
  EXPECT_EQ(vellora({"history", "show", "0"}).exitCode, 2);
  EXPECT_EQ(vellora({"history", "show", "two"}).exitCode, 2);
  EXPECT_EQ(vellora({"history", "show", "4"}).exitCode, 1);
  EXPECT_EQ(vellora({"history", "reopen", "4"}).exitCode, 1);
  const Finished withoutDisplay = vellora({"history", "reopen", "1"});
  EXPECT_EQ(withoutDisplay.exitCode, 1);
  EXPECT_NE(withoutDisplay.errors.find("display"), std::string::npos) << withoutDisplay.errors;
  EXPECT_EQ(velloraJson({"history", "list"})["sessions"].size(), 3u) << "what was not opened is still there";
}

TEST_F(HistoryTest, ForgetsEverythingWhenAsked) {
  EXPECT_EQ(velloraJson({"history", "clear"})["removed"], 3);
  EXPECT_EQ(velloraJson({"history", "list"})["sessions"].size(), 0u);
  const QDir sessions(home.filePath(QStringLiteral(".local/share/Vellora/Sessions")));
  EXPECT_TRUE(sessions.entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty());
}

/// The command line starts in milliseconds because it loads no font engine.
TEST(CommandLineProgram, LinksNoWindows) {
  const Finished libraries = test::runProgram({"ldd", VELLORA_BIN_DIR "/vellora"}, {});
  EXPECT_EQ(libraries.exitCode, 0);
  EXPECT_EQ(libraries.output.find("Qt6Gui"), std::string::npos) << libraries.output;
}

}  // namespace
}  // namespace vellora
