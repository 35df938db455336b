#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <functional>

#include "base/AtomicFile.h"

namespace vellora {
namespace {

class AtomicFileTest : public testing::Test {
 protected:
  QString path(const QString& name) const { return folder_.filePath(name); }
  /// What the folder holds, hidden files too.
  QStringList entries() const {
    return QDir(folder_.path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
  }
  mode_t modeOf(const QString& name) const {
    struct stat info {};
    EXPECT_EQ(::stat(QFile::encodeName(path(name)).constData(), &info), 0);
    return info.st_mode & 07777;
  }

  QTemporaryDir folder_;
};

/// Runs `body` in a process of its own, which ends without running this one's destructors.
pid_t inChild(const std::function<void()>& body) {
  const pid_t child = ::fork();
  if (child == 0) {
    body();
    ::_exit(0);
  }
  return child;
}

/// Does something as a user without rights, also when the tests run as root.
class WithoutRights {
 public:
  WithoutRights() : user_(::geteuid()) {
    constexpr uid_t nobody = 65534;
    EXPECT_TRUE(user_ != 0 || ::seteuid(nobody) == 0);
  }
  ~WithoutRights() { EXPECT_TRUE(user_ != 0 || ::seteuid(user_) == 0); }

 private:
  const uid_t user_;
};

TEST_F(AtomicFileTest, WritesReplacesAndReadsBack) {
  const QString file = path(QStringLiteral("a.json"));
  for (const QByteArray& content :
       {QByteArray("first"), QByteArray(3'000'000, 'x'), QByteArray(), QByteArray("a\0b", 3)}) {
    for (const Durability durability : {Durability::Kill, Durability::PowerCut}) {
      ASSERT_TRUE(AtomicFile::write(file, content, durability));
      EXPECT_EQ(AtomicFile::read(file, 10'000'000), content);
    }
  }
  EXPECT_EQ(entries(), QStringList{QStringLiteral("a.json")}) << "a temporary file was left";
}

TEST_F(AtomicFileTest, AKilledWriterLeavesTheOldContentOrTheNew) {
  const QString file = path(QStringLiteral("session.json"));
  const QByteArray first(8'000'000, '1'), second(9'000'000, '2');
  ASSERT_TRUE(AtomicFile::write(file, first));
  for (int round = 0; round < 12; ++round) {
    int begun[2];
    ASSERT_EQ(::pipe2(begun, O_CLOEXEC), 0);
    const pid_t child = inChild([&] {
      for (int i = 0;; ++i) {
        [[maybe_unused]] const auto told = ::write(begun[1], "b", 1);
        [[maybe_unused]] const auto written = AtomicFile::write(file, i % 2 ? first : second);
      }
    });
    ASSERT_GT(child, 0);
    ::close(begun[1]);
    // Killed at the start of some write, each round another one.
    char byte;
    for (int i = 0; i <= round % 4; ++i) ASSERT_EQ(::read(begun[0], &byte, 1), 1);
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    ::close(begun[0]);
    const auto content = AtomicFile::read(file, 20'000'000);
    ASSERT_TRUE(content);
    EXPECT_TRUE(*content == first || *content == second) << "round " << round << ", " << content->size() << " bytes";
  }
}

TEST_F(AtomicFileTest, KeepsPermissionsAndFollowsLinks) {
  const QString file = path(QStringLiteral("kept"));
  ASSERT_TRUE(AtomicFile::write(file, QByteArray("1")));
  ASSERT_EQ(::chmod(QFile::encodeName(file).constData(), 0640), 0);
  ASSERT_TRUE(QFile::link(file, path(QStringLiteral("link"))));
  ASSERT_TRUE(AtomicFile::write(path(QStringLiteral("link")), QByteArray("2")));
  EXPECT_EQ(AtomicFile::read(file, 10), QByteArray("2"));
  EXPECT_EQ(modeOf(QStringLiteral("kept")), 0640U);
  EXPECT_TRUE(QFileInfo(path(QStringLiteral("link"))).isSymLink());

  const mode_t mask = ::umask(027);
  EXPECT_TRUE(AtomicFile::write(path(QStringLiteral("new")), QByteArray("3")));
  ::umask(mask);
  EXPECT_EQ(modeOf(QStringLiteral("new")), 0640U) << "a new file ignores the user's mask";
}

TEST_F(AtomicFileTest, NewFilesTakeTheFirstFreeNameAndReplaceNothing) {
  const auto writeNew = [this](const char* content) {
    const auto written =
        AtomicFile::writeNew(folder_.path(), QStringLiteral("Shot"), QStringLiteral("png"), QByteArray(content));
    return written ? QFileInfo(*written).fileName() : QString();
  };
  EXPECT_EQ(writeNew("1"), QStringLiteral("Shot.png"));
  EXPECT_EQ(writeNew("2"), QStringLiteral("Shot (2).png"));
  // A dangling link takes a name too: writing through it would put the file somewhere else.
  ASSERT_TRUE(QFile::link(path(QStringLiteral("nowhere")), path(QStringLiteral("Shot (3).png"))));
  EXPECT_EQ(writeNew("3"), QStringLiteral("Shot (4).png"));
  EXPECT_EQ(AtomicFile::read(path(QStringLiteral("Shot.png")), 10), QByteArray("1"));
  EXPECT_EQ(entries().size(), 4);
}

TEST_F(AtomicFileTest, TwoProcessesNeverTakeTheSameName) {
  constexpr int filesEach = 150;
  std::vector<pid_t> children;
  for (const char* content : {"left", "right"}) {
    children.push_back(inChild([&] {
      for (int i = 0; i < filesEach; ++i) {
        const auto written =
            AtomicFile::writeNew(folder_.path(), QStringLiteral("Shot"), QStringLiteral("png"), QByteArray(content));
        if (!written) ::_exit(1);
      }
    }));
  }
  for (const pid_t child : children) {
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  const QStringList names = entries();
  EXPECT_EQ(names.size(), 2 * filesEach);
  int left = 0;
  for (const QString& name : names) left += AtomicFile::read(path(name), 10) == QByteArray("left");
  EXPECT_EQ(left, filesEach);
}

TEST_F(AtomicFileTest, SaysWhatIsWrong) {
  using Kind = FileError::Kind;
  const auto readKind = [](const QString& file, qint64 limit = 100) {
    const auto read = AtomicFile::read(file, limit);
    EXPECT_FALSE(read);
    return read ? Kind::NoSpace : read.error().kind;
  };
  const QString missing = path(QStringLiteral("none/x"));
  EXPECT_EQ(readKind(missing), Kind::NotFound);
  EXPECT_EQ(AtomicFile::write(missing, QByteArray("x")).error().kind, Kind::NotFound);
  EXPECT_EQ(readKind(folder_.path()), Kind::Other);
  EXPECT_EQ(readKind(QStringLiteral("/dev/zero")), Kind::Other);
  EXPECT_FALSE(AtomicFile::write(folder_.path(), QByteArray("x"))) << "a folder was replaced";

  ASSERT_EQ(::mkfifo(QFile::encodeName(path(QStringLiteral("pipe"))).constData(), 0600), 0);
  EXPECT_EQ(readKind(path(QStringLiteral("pipe"))), Kind::Other) << "must not wait for a writer either";

  const QString file = path(QStringLiteral("private"));
  ASSERT_TRUE(AtomicFile::write(file, QByteArray(101, 'x')));
  EXPECT_EQ(readKind(file), Kind::TooLarge);
  EXPECT_TRUE(AtomicFile::read(file, 101));
  ASSERT_EQ(::chmod(QFile::encodeName(file).constData(), 0), 0);
  ASSERT_EQ(::chmod(QFile::encodeName(folder_.path()).constData(), 0555), 0);
  {
    const WithoutRights user;
    EXPECT_EQ(readKind(file, 1000), Kind::NotPermitted);
    const auto written = AtomicFile::write(file, QByteArray("x"));
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().kind, Kind::NotPermitted);
    EXPECT_TRUE(written.error().description().contains(folder_.path()));
    EXPECT_FALSE(AtomicFile::writeNew(folder_.path(), QStringLiteral("a"), QStringLiteral("b"), QByteArray("x")));
  }
  ASSERT_EQ(::chmod(QFile::encodeName(folder_.path()).constData(), 0755), 0);
  EXPECT_EQ(entries().filter(QStringLiteral(".tmp")), QStringList());
}

TEST_F(AtomicFileTest, ReadsFilesThatStateNoSizeWithinTheLimit) {
  const auto whole = AtomicFile::read(QStringLiteral("/proc/self/status"), 1'000'000);
  ASSERT_TRUE(whole);
  EXPECT_TRUE(whole->startsWith("Name:"));
  const auto cut = AtomicFile::read(QStringLiteral("/proc/self/status"), 10);
  ASSERT_FALSE(cut);
  EXPECT_EQ(cut.error().kind, FileError::Kind::TooLarge);
}

}  // namespace
}  // namespace vellora
