#include <gtest/gtest.h>
#include <signal.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>

#include <QByteArray>
#include <QFile>

#include "base/QtRunLoop.h"
#include "platform/linux/clipboard/ClipboardPayload.h"
#include "platform/linux/clipboard/HolderLauncher.h"
#include "platform/linux/clipboard/UriList.h"
#include "platform/linux/desktop/DesktopPasteboard.h"
#include "platform_desktop/DesktopSession.h"
#include "support/XClient.h"

namespace vellora::test {
namespace {

/// The holders of this display, by process id.
std::set<int> holders() {
  std::set<int> found;
  for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
    const std::string name = entry.path().filename();
    if (name.find_first_not_of("0123456789") != std::string::npos) continue;
    std::ifstream environment(entry.path() / "environ");
    const std::string all((std::istreambuf_iterator<char>(environment)), {});
    std::ifstream commandFile(entry.path() / "comm");
    std::string command;
    std::getline(commandFile, command);
    const bool here = all.find("XDG_RUNTIME_DIR=" + desktopSession().home() + "/run") != std::string::npos;
    if (here && command == "vellora-clipboa") found.insert(std::stoi(name));
  }
  return found;
}

std::string paste(const std::string& target) {
  return desktopSession().run({"xclip", "-selection", "clipboard", "-o", "-t", target}).output;
}

std::set<std::string> offered() {
  std::set<std::string> targets;
  std::istringstream lines(paste("TARGETS"));
  for (std::string line; std::getline(lines, line);) targets.insert(line);
  return targets;
}

/// A picture others made: `size` as "800x600", colours noisy enough not to compress away.
QByteArray picture(const std::string& size, const std::string& kind = "png:-") {
  return QByteArray::fromStdString(
      desktopSession().check({"convert", "-size", size, "plasma:red-blue", "-depth", "8", kind}));
}

class ClipboardTest : public ::testing::Test {
 protected:
  void SetUp() override { display_ = std::make_unique<ScopedDisplay>(desktopSession()); }
  void TearDown() override {
    // Whatever a test left on the clipboard is taken away by another program, and with it the holder.
    const XClient client(desktopSession());
    const xcb_window_t window = xcb_generate_id(client.connection());
    xcb_create_window(client.connection(), 0, window, client.root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, 0, 0,
                      nullptr);
    xcb_set_selection_owner(client.connection(), window, client.atom("CLIPBOARD"), XCB_CURRENT_TIME);
    client.sync();
    EXPECT_TRUE(waitFor([] { return holders().empty(); })) << "a holder outlived its content";
  }

  std::optional<Pasteboard::ImageOffer> read() {
    std::optional<Pasteboard::ImageOffer> result;
    bool answered = false;
    pasteboard_.readImage([&](std::optional<Pasteboard::ImageOffer> offer) {
      result = std::move(offer);
      answered = true;
    });
    EXPECT_FALSE(answered);
    EXPECT_TRUE(processUntil([&] { return answered; }));
    return result;
  }

  QtRunLoop runLoop_;
  DesktopPasteboard pasteboard_{runLoop_};
  std::unique_ptr<ScopedDisplay> display_;
};

TEST_F(ClipboardTest, APictureAndItsFileArePastedByOtherPrograms) {
  const QByteArray png = picture("640x360");
  ASSERT_TRUE(pasteboard_.write({png, "/tmp/Vellora 2026 ä#.png"}));
  EXPECT_EQ(offered(), (std::set<std::string>{"TARGETS", "TIMESTAMP", "MULTIPLE", "image/png", "image/tiff",
                                              "text/uri-list", "x-special/gnome-copied-files"}));
  EXPECT_EQ(paste("image/png"), png.toStdString());
  EXPECT_EQ(paste("text/uri-list"), "file:///tmp/Vellora%202026%20%C3%A4%23.png\r\n");
  EXPECT_EQ(paste("x-special/gnome-copied-files"), "copy\nfile:///tmp/Vellora%202026%20%C3%A4%23.png");
  EXPECT_EQ(paste("text/html"), "");
  // The TIFF shows the same pixels to a program others wrote.
  std::ofstream(desktopSession().home() + "/a.tiff", std::ios::binary) << paste("image/tiff");
  std::ofstream(desktopSession().home() + "/a.png", std::ios::binary) << png.toStdString();
  const std::string home = desktopSession().home();
  EXPECT_EQ(desktopSession().run({"compare", "-metric", "AE", home + "/a.tiff", home + "/a.png", "null:"}).errors, "0");
}

TEST_F(ClipboardTest, ContentOutlivesItsMakerAndOneHolderIsEnough) {
  ASSERT_TRUE(pasteboard_.write({picture("20x20"), {}}));
  const auto first = holders();
  ASSERT_EQ(first.size(), 1U);
  // It belongs to no terminal, no session and no folder of this program, and holds none of its descriptors.
  const std::string process = "/proc/" + std::to_string(*first.begin());
  EXPECT_NE(getsid(*first.begin()), getsid(0));
  EXPECT_EQ(std::filesystem::read_symlink(process + "/cwd"), "/");
  EXPECT_TRUE(waitFor([&] {
    return std::ranges::all_of(std::filesystem::directory_iterator(process + "/fd"), [](const auto& fd) {
      const std::string target = std::filesystem::read_symlink(fd.path());
      return target == "/dev/null" || target.starts_with("socket:");
    });
  }));

  const QByteArray second = picture("30x30");
  ASSERT_TRUE(pasteboard_.write({second, {}}));
  EXPECT_TRUE(waitFor([&] { return holders().size() == 1; }));
  EXPECT_EQ(holders().count(*first.begin()), 0U);
  EXPECT_EQ(paste("image/png"), second.toStdString());

  ASSERT_TRUE(pasteboard_.write({{}, "/tmp/only file.png"}));
  EXPECT_EQ(offered(), (std::set<std::string>{"TARGETS", "TIMESTAMP", "MULTIPLE", "text/uri-list",
                                              "x-special/gnome-copied-files", "UTF8_STRING"}));
  EXPECT_EQ(paste("UTF8_STRING"), "/tmp/only file.png");
}

TEST_F(ClipboardTest, LargePicturesGoToSeveralProgramsAtOnceEvenWhileTheNextOneTakesOver) {
  const QByteArray png = picture("2600x1600");
  ASSERT_GT(png.size(), 4 << 20);
  ASSERT_TRUE(pasteboard_.write({png, {}}));
  const std::string home = desktopSession().home();
  std::vector<std::unique_ptr<ChildProcess>> readers;
  for (int i = 0; i < 3; ++i) {
    const std::string file = home + "/copy" + std::to_string(i);
    readers.push_back(desktopSession().spawn({"sh", "-c", "xclip -selection clipboard -o -t image/png > " + file}));
  }
  for (const auto& reader : readers) EXPECT_EQ(reader->wait(20), 0);
  for (int i = 0; i < 3; ++i) {
    std::ifstream file(home + "/copy" + std::to_string(i), std::ios::binary);
    EXPECT_TRUE(std::string((std::istreambuf_iterator<char>(file)), {}) == png.toStdString());
  }
  const auto offer = read();
  ASSERT_TRUE(offer);
  EXPECT_TRUE(offer->encoded == png);

  // A program that has begun to fetch and vanishes leaves the holder serving the others.
  auto rude = desktopSession().spawn({"xclip", "-selection", "clipboard", "-o", "-t", "image/png"});
  rude->signal(SIGSTOP);
  rude->signal(SIGKILL);
  EXPECT_TRUE(paste("image/png") == png.toStdString());
}

/// A second program's window with what it asks for, by the rules of the protocol, without a toolkit.
class Requestor {
 public:
  Requestor() : client_(desktopSession()), window_(xcb_generate_id(client_.connection())) {
    xcb_create_window(client_.connection(), 0, window_, client_.root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, 0,
                      0, nullptr);
  }
  /// The property the owner answered in; XCB_ATOM_NONE when it refused.
  xcb_atom_t convert(const std::string& target, xcb_timestamp_t time = XCB_CURRENT_TIME) {
    xcb_convert_selection(client_.connection(), window_, client_.atom("CLIPBOARD"), client_.atom(target),
                          client_.atom("ANSWER"), time);
    xcb_flush(client_.connection());
    while (xcb_generic_event_t* event = xcb_wait_for_event(client_.connection())) {
      const bool notice = (event->response_type & 0x7F) == XCB_SELECTION_NOTIFY;
      const xcb_atom_t property = reinterpret_cast<xcb_selection_notify_event_t*>(event)->property;
      std::free(event);
      if (notice) return property;
    }
    return XCB_ATOM_NONE;
  }
  XClient& client() { return client_; }
  xcb_window_t window() const { return window_; }

 private:
  XClient client_;
  xcb_window_t window_;
};

TEST_F(ClipboardTest, FollowsTheSelectionProtocol) {
  ASSERT_TRUE(pasteboard_.write({picture("20x20"), "/tmp/x.png"}));
  Requestor requestor;
  const XClient& client = requestor.client();
  ASSERT_NE(requestor.convert("TIMESTAMP"), XCB_ATOM_NONE);
  const auto since = client.property(requestor.window(), "ANSWER");
  ASSERT_EQ(since.size(), 1U);
  EXPECT_NE(requestor.convert("TARGETS", since[0]), XCB_ATOM_NONE);
  EXPECT_EQ(requestor.convert("TARGETS", since[0] - 1), XCB_ATOM_NONE) << "older than the content";
  EXPECT_EQ(requestor.convert("SAVE_TARGETS"), XCB_ATOM_NONE);

  client.setProperty(requestor.window(), "ANSWER", "ATOM_PAIR",
                     {client.atom("text/uri-list"), client.atom("A"), client.atom("text/html"), client.atom("B"),
                      client.atom("MULTIPLE"), client.atom("C"), client.atom("image/png")});
  ASSERT_NE(requestor.convert("MULTIPLE"), XCB_ATOM_NONE);
  const auto pairs = client.property(requestor.window(), "ANSWER");
  ASSERT_GE(pairs.size(), 6U);
  EXPECT_EQ(pairs[1], client.atom("A"));
  EXPECT_EQ(pairs[3], XCB_ATOM_NONE);
  EXPECT_EQ(pairs[5], XCB_ATOM_NONE);
}

/// Has another program copy the file's content as `target`.
void copyElsewhere(const std::string& target, const std::string& file) {
  const std::string command = "xclip -selection clipboard -t " + target + " -i " + file + " >/dev/null 2>&1";
  desktopSession().check({"sh", "-c", command});
  // It goes into the background before the server has heard of it.
  EXPECT_TRUE(waitFor([&] { return offered().count(target) == 1; })) << target;
}

TEST_F(ClipboardTest, ReadsPicturesOfOtherPrograms) {
  EXPECT_FALSE(read());
  const std::string home = desktopSession().home();
  const QByteArray jpeg = picture("1200x900", "jpeg:-");
  std::ofstream(home + "/p.jpg", std::ios::binary) << jpeg.toStdString();
  copyElsewhere("image/jpeg", home + "/p.jpg");
  auto offer = read();
  ASSERT_TRUE(offer);
  EXPECT_TRUE(offer->encoded == jpeg);
  EXPECT_TRUE(offer->filePath.isEmpty());

  std::ofstream(home + "/list") << "#c\r\nhttp://x/\r\nfile:///tmp/%C3%A4%20b.png\r\n";
  copyElsewhere("text/uri-list", home + "/list");
  offer = read();
  ASSERT_TRUE(offer);
  EXPECT_EQ(offer->filePath, "/tmp/ä b.png");

  copyElsewhere("UTF8_STRING", home + "/list");
  EXPECT_FALSE(read());
}

TEST_F(ClipboardTest, AnOwnerThatNeverAnswersCostsTwoSecondsOfAnotherThread) {
  const XClient owner(desktopSession());
  const xcb_window_t window = xcb_generate_id(owner.connection());
  xcb_create_window(owner.connection(), 0, window, owner.root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, 0, 0,
                    nullptr);
  xcb_set_selection_owner(owner.connection(), window, owner.atom("CLIPBOARD"), XCB_CURRENT_TIME);
  owner.sync();
  EXPECT_FALSE(read());
  // Whoever asked may be gone when the answer comes.
  bool called = false;
  double before = 0;
  {
    DesktopPasteboard other(runLoop_);
    other.readImage([&](const auto&) { called = true; });
    before = runLoop_.hostTime();
  }
  EXPECT_LT(runLoop_.hostTime() - before, 1.5) << "the end of the program waits for nobody";
  processUntil([] { return true; });
  EXPECT_FALSE(called);
}

TEST_F(ClipboardTest, FailuresAreReported) {
  EXPECT_FALSE(pasteboard_.write({}));
  EXPECT_FALSE(DesktopPasteboard(runLoop_, "/nonexistent").write({"x", {}}));
  EXPECT_FALSE(DesktopPasteboard(runLoop_, "/bin/true").write({"x", {}}));
  qputenv("DISPLAY", ":9999");
  EXPECT_FALSE(pasteboard_.write({"x", {}}));
  EXPECT_FALSE(read());
  EXPECT_TRUE(holders().empty());
}

TEST(ClipboardPayloadTest, RefusesWhatItDidNotPack) {
  const std::string text = "picture";
  const auto packed = ClipboardPayload::pack({std::as_bytes(std::span(text)), "/p"});
  ASSERT_TRUE(packed);
  const auto opened = ClipboardPayload::open(packed->get());
  ASSERT_TRUE(opened);
  EXPECT_EQ(opened->parts().filePath, "/p");
  EXPECT_EQ(std::memcmp(opened->parts().png.data(), text.data(), text.size()), 0);
  EXPECT_EQ(opened->parts().png.size(), text.size());
  EXPECT_FALSE(ClipboardPayload::open(0));
  EXPECT_FALSE(ClipboardPayload::open(-1));
}

TEST(UriListTest, ReadsLocalFilesOnly) {
  EXPECT_EQ(uriList::firstLocalPath("file:///a%20b"), "/a b");
  EXPECT_EQ(uriList::firstLocalPath("# c\nhttps://x/y\r\nfile://localhost/z\r\nfile:///w"), "/z");
  EXPECT_EQ(uriList::firstLocalPath("file:/plain"), "/plain");
  for (const char* none : {"", "file://", "file://elsewhere.example/a", "file:///a%", "file:///a%2", "file:///a%zz",
                           "file:///a%00b", "file:relative", "FILE"}) {
    EXPECT_EQ(uriList::firstLocalPath(none), std::nullopt) << none;
  }
  const std::string odd = "/tmp/\xC3\xA4 \x01%#?~.png";
  EXPECT_EQ(uriList::firstLocalPath(uriList::fileAddress(odd)), odd);
}

}  // namespace
}  // namespace vellora::test
