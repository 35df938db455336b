#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <fstream>

#include "editor/compressor/PictureFolder.h"
#include "editor/compressor/RunFixture.h"

namespace vellora::test {
namespace {

namespace fs = std::filesystem;
using enum CompressionState;

class CompressionFiles : public RunFixture {
 protected:
  PictureError errorOf(const std::string& name) const {
    const CompressionItem& it = item(name);
    EXPECT_EQ(it.state, failed) << name;
    return it.failure ? it.failure->error : PictureError::Cancelled;
  }
  std::string outputOf(const std::string& name) const {
    const CompressionItem& it = item(name);
    return it.lastOutput ? it.lastOutput->file.string() : "none";
  }
};

TEST_F(CompressionFiles, AnyNameIsKept) {
  const std::string longest(251, 'n');
  const std::vector<std::string> sources{
      "new\nline.png",        "\xE9\xFF.png", longest + ".png", "-rf.png",         "a  b (2).png",
      "\xF0\x9F\x92\xBE.png", ".png",         "many.dots.png",  "-compressed.png", "%s%n.png"};
  for (const std::string& name : sources) picture("in/" + name);
  fs::create_directories(path("d\xE9j\xE0 \n/vu"));
  picture("d\xE9j\xE0 \n/vu/x.png");
  std::vector<fs::path> paths{path("d\xE9j\xE0 \n")};
  for (const std::string& name : sources) paths.push_back(path("in/" + name));
  add(paths, true);
  ASSERT_EQ(run_->items().size(), sources.size() + 1);
  carryOut();
  for (const CompressionItem& item : run_->items()) {
    EXPECT_EQ(item.state, done) << item.sourceURL << (item.failure ? item.failure->detail : "");
    if (item.state != done) continue;
    const std::string name = item.sourceURL.filename().string();
    EXPECT_EQ(item.displayName, name);
    EXPECT_EQ(item.lastOutput->file.parent_path(), item.sourceURL.parent_path());
    const std::string stem = item.sourceURL.stem().string();
    const bool hasExtension = item.sourceURL.has_extension();
    const std::string extension = hasExtension ? item.sourceURL.extension().string() : ".png";
    if (stem.size() < 200) {
      EXPECT_EQ(item.lastOutput->file.filename(), stem + "-compressed" + extension);
    }
    EXPECT_TRUE(fs::is_regular_file(item.lastOutput->file));
    EXPECT_TRUE(fs::is_regular_file(item.sourceURL));
  }
  EXPECT_EQ(names("in").size(), 2 * sources.size());
}

TEST_F(CompressionFiles, NothingThatExistsIsReplaced) {
  picture("in/a.png", 40, 30, 1);
  picture("in/a-compressed.png", 41, 30, 2);
  picture("in/b.jpg", 42, 30, 3);
  picture("other/b.jpg", 43, 30, 4);
  std::map<fs::path, std::vector<std::byte>> before;
  for (const char* name : {"in/a.png", "in/a-compressed.png", "in/b.jpg", "other/b.jpg"})
    before[name] = contentOf(path(name));
  add({path("in"), path("other")});
  // The folder of the sources themselves, by another name.
  fs::create_directory_symlink("in", path("link"));
  carryOut({}, folder("link"));
  EXPECT_EQ(names("in"),
            (std::set<std::string>{"a.png", "a-compressed.png", "a (2).png", "b.jpg", "b (2).jpg", "b (3).jpg"}));
  carryOut();
  EXPECT_TRUE(fs::exists(path("in/a-compressed (2).png")));
  for (const auto& [name, content] : before) {
    EXPECT_EQ(contentOf(path(name)), content) << name;
  }
  // Each picture of the same name has a result of its own.
  EXPECT_NE(contentOf(path("in/b (2).jpg")), contentOf(path("in/b (3).jpg")));
}

TEST_F(CompressionFiles, LinksAreFollowedToFilesAndNotFromFolderToFolder) {
  picture("far/a.png");
  picture("far/below/b.png");
  fs::create_directories(path("near/sub"));
  fs::create_symlink("../far/a.png", path("near/linked.png"));
  fs::create_symlink("nowhere.png", path("near/dangling.png"));
  fs::create_symlink("round.png", path("near/round.png"));
  fs::create_directory_symlink("..", path("near/sub/up"));
  fs::create_directory_symlink("../far", path("near/away"));
  add({path("near")}, true);
  EXPECT_EQ(run_->items().size(), 1U);
  add({path("near/dangling.png"), path("near/round.png"), path("near/away/below"), path("near/away/../nothing.png")});
  carryOut();
  // Beside the link, where whoever named it looks.
  EXPECT_EQ(outputOf("linked.png"), path("near/linked-compressed.png"));
  EXPECT_FALSE(fs::is_symlink(path("near/linked-compressed.png")));
  EXPECT_EQ(names("far"), (std::set<std::string>{"a.png", "below"}));
  EXPECT_EQ(errorOf("dangling.png"), PictureError::NotFound);
  EXPECT_NE(errorOf("round.png"), PictureError::Cancelled);
  EXPECT_EQ(errorOf("nothing.png"), PictureError::NotFound);
  EXPECT_EQ(item("b.png").state, done);
}

TEST_F(CompressionFiles, TheWayBackFromALinkIsTheFoldersOwn) {
  picture("far/below/x.png", 40, 30, 1);
  picture("far/y.png", 41, 30, 2);
  fs::create_directories(path("near"));
  fs::create_directory_symlink("../far/below", path("near/link"));
  // The system goes from where the link leads to: this is far/y.png.
  add({path("near/link/../y.png"), path("./far/./y.png")});
  carryOut();
  EXPECT_EQ(count(done), 2U);
  for (const CompressionItem& each : run_->items()) {
    EXPECT_EQ(each.pixelSize.width, 41);
  }
}

TEST_F(CompressionFiles, WhatIsNoFileNeverHoldsUp) {
  picture("in/a.png");
  ASSERT_EQ(::mkfifo(path("in/pipe.png").c_str(), 0600), 0);
  const int listener = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
  path("in/socket.png").string().copy(address.sun_path, sizeof(address.sun_path) - 1);
  ASSERT_EQ(::bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
  fs::create_symlink("pipe.png", path("in/link.png"));
  fs::create_symlink("/dev/zero", path("in/zero.png"));
  fs::create_directory(path("in/folder.png"));
  save(path("in/empty.png"), {});
  add({path("in")}, true);
  EXPECT_EQ(run_->items().size(), 2U);
  add({path("in/pipe.png"), path("in/socket.png"), path("in/zero.png"), path("in/link.png"), "/dev/null", "",
       "/proc/self/mem", "/proc/cpuinfo"});
  EXPECT_EQ(run_->items().size(), 10U);
  for (const CompressionItem& each : run_->items()) run_->requestThumbnail(each.id);
  carryOut();
  ::close(listener);
  EXPECT_EQ(count(done), 1U);
  EXPECT_EQ(count(failed), 9U);
  for (const char* name : {"pipe.png", "socket.png", "zero.png", "link.png", "null"}) {
    EXPECT_EQ(errorOf(name), PictureError::NotAFile) << name;
  }
  EXPECT_EQ(errorOf("empty.png"), PictureError::NotAPicture);
}

TEST_F(CompressionFiles, FoldersShowTheirPicturesAndNotTheirResults) {
  for (const char* name :
       {"b.png", "a.JPG", "a-compressed.jpg", "a-compressed (2).jpg", "kept-compressed.png", "one-compressed (x).png",
        "below/c.webp", "below/deep/d.gif", "out/e.png", ".hidden.png", ".cache/f.png"}) {
    picture(name);
  }
  fs::copy(path("b.png"), path("without extension"));
  save(path("words.txt"), {});
  save(path("words.png"), {});
  const auto found = [this](bool isRecursive, std::size_t limit = 1000) {
    std::vector<std::string> all;
    for (const fs::path& file : picturesIn(root_, {isRecursive, path("out"), limit, {}}))
      all.push_back(file.lexically_relative(root_).string());
    return all;
  };
  const std::vector<std::string> flat{
      "a.JPG", "b.png", "kept-compressed.png", "one-compressed (x).png", "without extension", "words.png"};
  EXPECT_EQ(found(false), flat);
  auto deep = flat;
  deep.insert(deep.end(), {"below/c.webp", "below/deep/d.gif"});
  EXPECT_EQ(found(true), deep);
  EXPECT_EQ(found(true, 3), std::vector<std::string>(flat.begin(), flat.begin() + 3));
}

TEST_F(CompressionFiles, WhatMayNotBeReadOrWrittenIsSaid) {
  for (const char* name : {"in/a.png", "in/secret.png", "in/locked/b.png", "in/sealed/c.png"}) picture(name);
  fs::permissions(root_, fs::perms::all);
  fs::permissions(path("in"), fs::perms::all);
  fs::permissions(path("in/secret.png"), fs::perms::none);
  fs::permissions(path("in/locked"), fs::perms::none);
  fs::permissions(path("in/sealed"), fs::perms{0555});
  {
    const WithoutRights person;
    add({path("in")}, true);
    carryOut();
  }
  EXPECT_EQ(item("a.png").state, done);
  EXPECT_EQ(errorOf("secret.png"), PictureError::NotPermitted);
  EXPECT_NE(errorOf("locked"), PictureError::Cancelled);
  EXPECT_EQ(errorOf("c.png"), PictureError::WriteFailed);
  EXPECT_EQ(names("in/sealed"), (std::set<std::string>{"c.png"}));
  EXPECT_EQ(names("in"), (std::set<std::string>{"a.png", "a-compressed.png", "secret.png", "locked", "sealed"}));
  fs::permissions(path("in/locked"), fs::perms::owner_all);
}

TEST_F(CompressionFiles, ResultsAreNoMorePublicThanTheirSources) {
  picture("private.png");
  picture("program.png");
  fs::permissions(path("private.png"), fs::perms::owner_read | fs::perms::owner_write);
  fs::permissions(path("program.png"), fs::perms::all | fs::perms::set_uid);
  add({path("private.png"), path("program.png")});
  carryOut();
  EXPECT_EQ(fs::status(outputOf("private.png")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  const mode_t mask = ::umask(0);
  ::umask(mask);
  EXPECT_EQ(fs::status(outputOf("program.png")).permissions(), fs::perms{0666U & ~mask});
}

TEST_F(CompressionFiles, FilesAndFoldersMayGoOrChangeWhileItRuns) {
  for (int i = 0; i < 20; ++i) picture("in/" + std::to_string(i) + ".png", 100, 80);
  fs::create_directory(path("out"));
  makeRun(1);
  add({path("in")});
  fs::remove(path("in/0.png"));
  bool isChanged = false;
  onItem_ = [&](std::uint64_t) {
    if (count(done) != 3 || isChanged) return;
    isChanged = true;
    fs::remove(path("in/9.png"));
    save(path("in/8.png"), std::as_bytes(std::span("no picture any more")));
    fs::rename(path("out"), path("elsewhere"));
  };
  carryOut({}, folder("out"));
  EXPECT_EQ(errorOf("0.png"), PictureError::NotFound);
  EXPECT_EQ(errorOf("9.png"), PictureError::NotFound);
  EXPECT_EQ(errorOf("8.png"), PictureError::NotAPicture);
  EXPECT_GE(count(failed), 10U);
  EXPECT_FALSE(fs::exists(path("out")));
  for (const std::string& name : names("elsewhere")) {
    EXPECT_TRUE(decodePicture(contentOf(path("elsewhere") / name)));
  }
  // With the folder back, the rest is made up for.
  onItem_ = {};
  fs::rename(path("elsewhere"), path("out"));
  carryOut({}, folder("out"));
  EXPECT_EQ(count(failed), 3U);
  expectOnlyWholeOutputsIn("out");
}

TEST_F(CompressionFiles, DatesAreKeptWhenWanted) {
  const auto then = fs::file_time_type::clock::now() - std::chrono::hours(5000);
  for (const char* name : {"a.png", "b.png"}) fs::last_write_time(picture(name), then);
  add({path("a.png")});
  carryOut({.keepsDates = true});
  EXPECT_EQ(fs::last_write_time(outputOf("a.png")), then);
  run_->clear();
  add({path("b.png")});
  carryOut();
  EXPECT_GT(fs::last_write_time(outputOf("b.png")), then + std::chrono::hours(4000));
}

}  // namespace
}  // namespace vellora::test
