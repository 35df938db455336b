// The program as a person uses it: on a display with a window manager, a tray and a session bus, by keys, pointer and
// commands.

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include <QDir>
#include <QFile>
#include <QImage>

#include "base/Json.h"
#include "support/XClient.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

const std::string program = VELLORA_BIN_DIR "/vellora";

class AppFlowTest : public testing::Test {
 protected:
  void SetUp() override { startDesktop({.windowManager = true, .tray = true, .bus = true}); }

  void startDesktop(XServer::Options options) {
    server = XServer::start(std::move(options));
    ASSERT_TRUE(server);
    QDir().mkpath(home(QStringLiteral("Desktop")));
    window =
        std::make_unique<TestWindow>(*server, TestWindow::Options{.frame = {300, 200, 400, 300}, .colour = 0x2244AA});
    window->client().fill(window->id(), {40, 30, 100, 60}, 0xDD8822);
    window->client().sync();
  }

  QString home(const QString& path) const { return QString::fromStdString(server->home()) + u'/' + path; }

  /// Runs the command line to its end.
  Finished vellora(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), program);
    return server->run(arguments);
  }
  Json velloraJson(std::vector<std::string> arguments) const {
    arguments.emplace_back("--json");
    const Finished finished = vellora(arguments);
    const auto parsed = json::parse(QByteArray::fromStdString(finished.output));
    EXPECT_TRUE(parsed) << finished.output << finished.errors;
    return parsed ? *parsed : Json();
  }

  /// Starts the resident program and waits until it answers.
  void startResident() {
    resident = server->spawn({program});
    ASSERT_TRUE(resident);
    ASSERT_TRUE(waitFor([this] { return answers(); })) << "the program does not answer on the bus";
  }
  bool answers() const {
    return server
               ->run({"gdbus", "call", "--session", "--timeout", "1", "--dest", "dev.orlo.Vellora", "--object-path",
                      "/dev/orlo/Vellora", "--method", "dev.orlo.Vellora.Ping"})
               .exitCode == 0;
  }

  std::uint32_t pixelAt(PixelPoint at) const { return server->pixels({at.x, at.y, 1, 1})[0]; }
  bool isDimmed() const { return pixelAt({310, 495}) != 0x2244AA; }
  bool waitForOverlay() const {
    return waitFor([this] { return isDimmed(); });
  }
  bool waitForOverlayGone() const {
    return waitFor([this] { return !isDimmed(); });
  }

  void drag(PixelPoint from, PixelPoint to) const {
    const XClient client(*server);
    client.movePointer(from);
    client.button(1, true);
    for (int step = 1; step <= 5; ++step) {
      client.movePointer({from.x + (to.x - from.x) * step / 5, from.y + (to.y - from.y) * step / 5});
    }
    client.button(1, false);
    client.sync();
  }

  /// Waits for the `count`th saved file and returns the newest's path.
  QString savedFile(int count) const {
    const QDir desktop(home(QStringLiteral("Desktop")));
    EXPECT_TRUE(waitFor([&] { return desktop.entryList({QStringLiteral("Vellora *.png")}).size() >= count; }));
    const auto files = desktop.entryInfoList({QStringLiteral("Vellora *.png")}, QDir::Files, QDir::Name);
    return files.isEmpty() ? QString() : files.last().absoluteFilePath();
  }

  /// Compares a picture with what the display shows there.
  void expectShows(const QString& path, const PixelRect& region) const {
    const QImage image = QImage(path).convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(image.width(), region.width) << path.toStdString();
    ASSERT_EQ(image.height(), region.height);
    const auto pixels = server->pixels(region);
    int different = 0;
    for (int y = 0; y < region.height; ++y) {
      for (int x = 0; x < region.width; ++x) {
        if ((image.pixel(x, y) & 0xFFFFFF) != pixels[static_cast<std::size_t>(y * region.width + x)]) ++different;
      }
    }
    EXPECT_EQ(different, 0);
  }

  /// Folders of recordings.
  QStringList recordings() const {
    const QDir folder(home(QStringLiteral("Videos/Vellora/Projects")));
    QStringList paths;
    for (const QFileInfo& each : folder.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
      paths << each.absoluteFilePath();
    return paths;
  }

  /// Waits for the one open editor and returns the middle of its window.
  PixelPoint editorMiddle() const {
    const std::vector<std::string> search{"xdotool", "search", "--onlyvisible", "--name", "^Vellora 20"};
    EXPECT_TRUE(waitFor([&] { return server->run(search).exitCode == 0; }));
    auto measure = search;
    measure.insert(measure.end(), {"getwindowgeometry", "--shell"});
    std::map<std::string, int> numbers;
    std::istringstream lines(server->run(measure).output);
    for (std::string line; std::getline(lines, line);) {
      const auto equals = line.find('=');
      if (equals != std::string::npos) numbers[line.substr(0, equals)] = std::atoi(line.c_str() + equals + 1);
    }
    return {numbers["X"] + numbers["WIDTH"] / 2, numbers["Y"] + numbers["HEIGHT"] / 2};
  }

  /// Opens the menu of the icon in the tray, and waits until it is there.
  void openTrayMenu() const {
    const auto before = server->pixels(besideTray);
    const XClient client(*server);
    ASSERT_TRUE(waitFor([&] {
      client.movePointer({1908, 14});
      client.button(3, true);
      client.button(3, false);
      client.sync();
      return waitFor([&] { return server->pixels(besideTray) != before; }, 1);
    }));
  }

  QByteArray clipboard(const std::string& target) const {
    return QByteArray::fromStdString(server->run({"xclip", "-selection", "clipboard", "-t", target, "-o"}).output);
  }

  /// Where the menu of the icon in the tray opens.
  static constexpr PixelRect besideTray{1300, 60, 500, 500};

  std::unique_ptr<XServer> server;
  std::unique_ptr<TestWindow> window;
  std::unique_ptr<ChildProcess> resident;
};

TEST_F(AppFlowTest, TheCommandLineCapturesWithoutARunningInstance) {
  XClient(*server).movePointer({5, 900});
  const QString output = home(QStringLiteral("all.png"));
  const Json all = velloraJson({"capture", "fullscreen", "--output", output.toStdString()});
  EXPECT_EQ(all["width"], 1920);
  expectShows(output, {0, 0, 1920, 1080});
  EXPECT_TRUE(velloraJson({"history", "list"})["sessions"].empty()) << "an output file alone is no history entry";

  const Json area = velloraJson({"capture", "area", "--region", "310,210,123,77", "--save", "--copy"});
  EXPECT_EQ(area["copied"], true);
  const QString saved = savedFile(1);
  EXPECT_EQ(area["saved"], saved.toStdString());
  expectShows(saved, {310, 210, 123, 77});
  EXPECT_EQ(QImage::fromData(clipboard("image/png")), QImage(saved)) << "read after the command has ended";
  EXPECT_EQ(QImage::fromData(clipboard("image/tiff")).size(), QSize(123, 77));
  EXPECT_TRUE(clipboard("text/uri-list").startsWith("file:///"));
  const Json sessions = velloraJson({"history", "list"})["sessions"];
  ASSERT_EQ(sessions.size(), 1u);
  EXPECT_EQ(sessions[0]["width"], 123);

  const Json windows = velloraJson({"windows"})["windows"];
  const auto ours = std::ranges::find_if(windows, [](const Json& entry) { return entry["title"] == "Test window"; });
  ASSERT_NE(ours, windows.end());
  const std::string id = std::to_string((*ours)["id"].get<std::uint32_t>());
  EXPECT_EQ(velloraJson({"capture", "window", "--window", id, "--save"})["result"], "done");
  window->destroy();
  const Finished gone = vellora({"capture", "window", "--window", id, "--save"});
  EXPECT_EQ(gone.exitCode, 1);
  EXPECT_NE(gone.errors.find("window gone"), std::string::npos) << gone.errors;
}

TEST_F(AppFlowTest, WrongUsageAndFailuresHaveTheirExitCodes) {
  for (const std::vector<std::string>& wrong : {std::vector<std::string>{"capture", "area", "--region", "1,2,3"},
                                                {"capture", "area", "--region", "0,0,0,5"},
                                                {"capture", "fullscreen", "--delay", "-1"},
                                                {"capture", "fullscreen", "--edit", "--pin"},
                                                {"settings", "set", "clipboardMode", "everything"},
                                                {"settings", "get", "nothing"},
                                                {"settings", "set", "hotkey.area", "shift+a"}}) {
    const Finished finished = vellora(wrong);
    EXPECT_EQ(finished.exitCode, 2) << wrong.back();
    EXPECT_TRUE(finished.output.empty());
    EXPECT_FALSE(finished.errors.empty());
  }
  EXPECT_EQ(vellora({"capture", "fullscreen", "--output", "/nonexistent/folder/x.png"}).exitCode, 1);
  EXPECT_EQ(vellora({"capture", "fullscreen", "--display", "no-such-display", "--save"}).exitCode, 1);
  EXPECT_EQ(vellora({"settings", "set", "hotkey.window", "alt+1"}).exitCode, 1) << "the area capture has it";
  EXPECT_EQ(vellora({"history", "reopen", "3"}).exitCode, 1);
}

TEST_F(AppFlowTest, TheHotKeyCapturesADraggedArea) {
  ASSERT_EQ(vellora({"settings", "set", "afterCaptureActions", "copy,save"}).exitCode, 0);
  startResident();
  const XClient client(*server);
  client.chord({56, 2});  // Alt+1
  ASSERT_TRUE(waitForOverlay());
  drag({320, 220}, {519, 339});
  const QString saved = savedFile(1);
  ASSERT_TRUE(waitForOverlayGone());
  expectShows(saved, {320, 220, 200, 120});
  ASSERT_TRUE(waitFor([this] { return clipboard("image/png").size() > 8; }));

  // The clipboard outlives the program, also one that is killed.
  resident->signal(SIGKILL);
  resident->wait(5);
  EXPECT_EQ(QImage::fromData(clipboard("image/png")), QImage(saved));
}

TEST_F(AppFlowTest, EscapeLeavesWithoutACapture) {
  auto command = server->spawn({program, "capture", "area", "--save"});
  ASSERT_TRUE(waitForOverlay());
  ASSERT_TRUE(waitFor([&] {
    server->check({"xdotool", "key", "Escape"});  // again if it came before the overlay had the keyboard
    return waitFor([&] { return !command->isRunning(); }, 0.5);
  }));
  EXPECT_EQ(command->wait(1), 1);
  EXPECT_TRUE(waitForOverlayGone());
  EXPECT_TRUE(QDir(home(QStringLiteral("Desktop"))).isEmpty());
}

TEST_F(AppFlowTest, ChangedSettingsReachTheRunningProgram) {
  ASSERT_EQ(vellora({"settings", "set", "afterCaptureActions", "save"}).exitCode, 0);
  startResident();
  ASSERT_EQ(vellora({"settings", "set", "hotkey.fullscreen", "ctrl+shift+f9"}).exitCode, 0);
  const XClient client(*server);
  const QDir desktop(home(QStringLiteral("Desktop")));
  ASSERT_TRUE(waitFor([&] {
    client.chord({29, 42, 67});  // Ctrl+Shift+F9, until the program has taken the new combination
    return waitFor([&] { return !desktop.isEmpty(); }, 0.3);
  }));
}

TEST_F(AppFlowTest, TheTrayMenuStartsAFullScreenCaptureThatDoesNotShowIt) {
  ASSERT_EQ(vellora({"settings", "set", "afterCaptureActions", "save"}).exitCode, 0);
  startResident();
  const auto before = server->pixels(besideTray);
  openTrayMenu();
  server->check({"xdotool", "key", "Down", "Down", "Down", "Return"});
  const QImage image(savedFile(1));
  ASSERT_EQ(image.size(), QSize(1920, 1080));
  int different = 0;
  for (int y = 0; y < 500; ++y) {
    for (int x = 0; x < 500; ++x) {
      if ((image.pixel(1300 + x, 60 + y) & 0xFFFFFF) != before[static_cast<std::size_t>(y * 500 + x)]) ++different;
    }
  }
  EXPECT_EQ(different, 0) << "the menu is in the picture";
}

TEST_F(AppFlowTest, TheTrayMenuRecordsTheScreenWithoutWindowsOfOurOwn) {
  startResident();
  const auto shown = server->pixels({0, 0, 1920, 1080});
  openTrayMenu();
  server->check({"xdotool", "key", "Up", "Up", "Up", "Up", "Up", "Return"});
  ASSERT_TRUE(waitFor([&] { return server->pixels({0, 0, 1920, 1080}) != shown; })) << "the bar is shown";
  ASSERT_TRUE(waitFor([&] {
    server->check({"xdotool", "key", "Return"});
    return !recordings().isEmpty();
  }));
  const QString bundle = recordings().first();
  const QString movie = bundle + QStringLiteral("/screen.mov");
  ASSERT_TRUE(waitFor([&] { return QFileInfo(movie).size() > 4096; }));
  EXPECT_NE(server->pixels({0, 0, 1920, 1080}), shown) << "the bar and the border are";

  openTrayMenu();
  server->check({"xdotool", "key", "Up", "Up", "Up", "Up", "Up", "Up", "Return"});
  const auto title = QFileInfo(bundle).completeBaseName().toStdString();
  ASSERT_TRUE(waitFor([&] {
    return server->run({"xdotool", "search", "--onlyvisible", "--name", title}).exitCode == 0;
  })) << "the project opens";
  EXPECT_TRUE(QFile::exists(bundle + QStringLiteral("/project.json")));
  EXPECT_FALSE(QFile::exists(bundle + QStringLiteral("/.recording")));

  const Finished frame = server->run({"ffmpeg", "-nostdin", "-v", "error", "-i", movie.toStdString(), "-frames:v", "1",
                                      "-pix_fmt", "bgra", "-f", "rawvideo", "-"});
  ASSERT_EQ(frame.output.size(), shown.size() * 4) << frame.errors;
  int different = 0;
  for (std::size_t i = 0; i < shown.size(); ++i) {
    for (int byte = 0; byte < 3; ++byte) {
      const int before = static_cast<int>(shown[i] >> (8 * byte) & 0xFF);
      if (std::abs(before - static_cast<unsigned char>(frame.output[4 * i + static_cast<std::size_t>(byte)])) > 40)
        ++different;
    }
  }
  EXPECT_LT(different, 3000) << "only the pointer and edges may differ";
}

TEST_F(AppFlowTest, OfSeveralStartsOneStaysAndIsWoken) {
  std::vector<std::unique_ptr<ChildProcess>> starts;
  for (int i = 0; i < 4; ++i) starts.push_back(server->spawn({program}));
  ASSERT_TRUE(waitFor([this] { return answers(); }));
  const auto running = [&] {
    return std::ranges::count_if(starts, [](const auto& start) { return start->isRunning(); });
  };
  EXPECT_TRUE(waitFor([&] { return running() == 1; }));
  EXPECT_TRUE(waitFor([this] {
    return server->run({"xdotool", "search", "--onlyvisible", "--name", "^Vellora$"}).exitCode == 0;
  })) << "a later start shows the window of commands";
  for (const auto& start : starts) {
    if (start->isRunning()) {
      start->signal(SIGTERM);
      EXPECT_EQ(start->wait(5), 0) << "ends in good order";
    }
  }
}

TEST_F(AppFlowTest, WorkInTheEditorSurvivesAKillAndComesBack) {
  velloraJson({"capture", "area", "--region", "300,200,360,280", "--save"});
  startResident();
  EXPECT_EQ(vellora({"history", "reopen", "1"}).exitCode, 0);
  const PixelPoint middle = editorMiddle();
  EXPECT_TRUE(velloraJson({"history", "list"})["sessions"].empty()) << "open, so not in the history";
  drag({middle.x, middle.y + 60}, {middle.x + 1, middle.y + 60});  // the window has the keys now
  const XClient client(*server);
  client.chord({30});  // A
  client.sync();
  drag({middle.x - 60, middle.y - 40}, {middle.x + 60, middle.y + 40});
  const auto savedArrows = [this] {
    const auto found = server->run({"sh", "-c",
                                    "cat ~/.local/share/Vellora/Recovery/*/session.json \"$XDG_DATA_HOME\"/Vellora/"
                                    "Recovery/*/session.json 2> /dev/null | grep -c '\"kind\":0'"});
    return found.output.substr(0, 1) == "1";
  };
  EXPECT_TRUE(waitFor(savedArrows)) << "within a second of the change it is on disk";

  resident->signal(SIGKILL);
  resident->wait(5);
  startResident();
  EXPECT_TRUE(waitFor([this] { return velloraJson({"history", "list"})["sessions"].size() == 1; }));
  const Json shown = velloraJson({"history", "show", "1"});
  ASSERT_TRUE(shown.contains("document"));
  EXPECT_EQ(shown["document"]["annotations"].size(), 1u);

  // Reopened and closed it is an entry again, with all its layers.
  EXPECT_EQ(vellora({"history", "reopen", "1"}).exitCode, 0);
  const PixelPoint again = editorMiddle();
  drag({again.x, again.y + 60}, {again.x + 1, again.y + 60});
  client.chord({29, 17});  // Ctrl+W
  client.sync();
  EXPECT_TRUE(waitFor([this] { return velloraJson({"history", "list"})["sessions"].size() == 1; }));
  EXPECT_EQ(velloraJson({"history", "show", "1"})["document"]["annotations"].size(), 1u);
  EXPECT_EQ(vellora({"history", "clear"}).exitCode, 0);
  EXPECT_TRUE(velloraJson({"history", "list"})["sessions"].empty());
}

TEST_F(AppFlowTest, EditorsOfSingleCommandsStayOpenAndSurviveAKill) {
  velloraJson({"capture", "area", "--region", "300,200,360,280", "--save"});
  const auto entries = [this] { return velloraJson({"history", "list"})["sessions"].size(); };
  ASSERT_EQ(entries(), 1U);
  const auto reopening = server->spawn({program, "history", "reopen", "1"});
  ASSERT_TRUE(reopening);
  editorMiddle();
  EXPECT_EQ(entries(), 0U) << "open, so not in the history";
  reopening->signal(SIGKILL);
  reopening->wait(5);
  const auto editing = server->spawn({program, "edit", savedFile(1).toStdString()});
  ASSERT_TRUE(editing);
  EXPECT_TRUE(waitFor([&] { return entries() == 1; })) << "the lost one is found";
  editorMiddle();
  editing->signal(SIGTERM);
  editing->wait(10);
  EXPECT_EQ(entries(), 2U);
}

TEST_F(AppFlowTest, PinsAndOpenFilesEnterTheHistoryWhenTheProgramEnds) {
  velloraJson({"capture", "area", "--region", "300,200,50,40", "--save"});
  const QString file = savedFile(1);
  EXPECT_EQ(vellora({"history", "clear"}).exitCode, 0);
  startResident();
  EXPECT_EQ(vellora({"edit", file.toStdString()}).exitCode, 0);
  editorMiddle();
  EXPECT_EQ(vellora({"edit", home(QStringLiteral("nothing.png")).toStdString()}).exitCode, 1);
  EXPECT_EQ(vellora({"capture", "area", "--region", "320,220,200,150", "--pin"}).exitCode, 0);
  EXPECT_TRUE(velloraJson({"history", "list"})["sessions"].empty());
  resident->signal(SIGTERM);
  EXPECT_EQ(resident->wait(10), 0);
  EXPECT_EQ(velloraJson({"history", "list"})["sessions"].size(), 2u);
}

TEST_F(AppFlowTest, WithoutATrayTheCommandsAreInAWindow) {
  window.reset();
  startDesktop({.windowManager = true, .bus = true});
  startResident();
  EXPECT_EQ(vellora({"settings"}).exitCode, 0);
  const auto shows = [this](const std::string& name) {
    return server->run({"xdotool", "search", "--onlyvisible", "--name", name}).exitCode == 0;
  };
  EXPECT_TRUE(waitFor([&] { return shows("^Vellora$"); }));
  EXPECT_TRUE(waitFor([&] { return shows("Settings"); }));
}

TEST(AppWithoutDisplay, SaysSo) {
  const Finished finished = runProgram({program, "capture", "fullscreen", "--save"}, {"DISPLAY=", "WAYLAND_DISPLAY="});
  EXPECT_EQ(finished.exitCode, 1);
  EXPECT_NE(finished.errors.find("display"), std::string::npos);
}

}  // namespace
}  // namespace vellora::test
