#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QUrl>

#include "platform/linux/desktop/DesktopUrlOpener.h"
#include "platform/linux/desktop/XdgFileNames.h"
#include "platform/linux/desktop/XdgTrash.h"
#include "platform_desktop/DesktopSession.h"

namespace vellora::test {
namespace {

void writeFile(const QString& path, const QByteArray& content = "x") {
  QDir().mkpath(QFileInfo(path).absolutePath());
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(content);
}

TEST(FileNamesTest, FollowTheUserDirectories) {
  const QString home = QDir::homePath();
  const XdgFileNames names;
  EXPECT_EQ(names.desktop(), home);
  EXPECT_EQ(names.movies(), home + "/Videos");
  EXPECT_EQ(names.applicationSupport(), qEnvironmentVariable("XDG_DATA_HOME"));
  QDir(home).mkdir("Desktop");
  EXPECT_EQ(names.desktop(), home + "/Desktop");
  writeFile(qEnvironmentVariable("XDG_CONFIG_HOME") + "/user-dirs.dirs",
            "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\nXDG_VIDEOS_DIR=\"/srv/films/\"\n");
  EXPECT_EQ(names.desktop(), home + "/Schreibtisch");
  EXPECT_EQ(names.movies(), "/srv/films");
}

TEST(TrashTest, FilesAndFoldersCanBeBroughtBackByTheDesktop) {
  const QString home = QDir::homePath();
  XdgTrash trash;
  writeFile(home + "/papers/Aufnahme ä %20.png");
  writeFile(home + "/papers/project.vellorav/project.json");
  ASSERT_TRUE(trash.moveToTrash(home + "/papers/Aufnahme ä %20.png"));
  ASSERT_TRUE(trash.moveToTrash(home + "/papers/project.vellorav"));
  EXPECT_TRUE(QDir(home + "/papers").isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
  // Read by another implementation of the trash.
  const std::string listed = desktopSession().check({"trash-list"});
  EXPECT_NE(listed.find("/papers/Aufnahme ä %20.png"), std::string::npos) << listed;
  EXPECT_NE(listed.find("/papers/project.vellorav"), std::string::npos) << listed;

  // The same name again, a link that leads nowhere, and what is not there.
  writeFile(home + "/papers/other/project.vellorav");
  ASSERT_TRUE(trash.moveToTrash(home + "/papers/other/../other/project.vellorav"));
  ASSERT_TRUE(QFile::link("/nowhere", home + "/papers/link"));
  ASSERT_TRUE(trash.moveToTrash(home + "/papers/link"));
  const std::string again = desktopSession().check({"trash-list"});
  EXPECT_NE(again.find("/papers/other/project.vellorav"), std::string::npos) << again;
  EXPECT_EQ(std::count(again.begin(), again.end(), '\n'), 4);
  const auto gone = trash.moveToTrash(home + "/papers/gone.png");
  ASSERT_FALSE(gone);
  EXPECT_EQ(gone.error().kind, FileError::Kind::NotFound);
  EXPECT_EQ(desktopSession().check({"sh", "-c", "ls $XDG_DATA_HOME/Trash/info | wc -l"}), "4\n");
}

TEST(TrashTest, AnotherDiskHasATrashOfItsOwn) {
  // The shared memory of this machine is a disk of its own.
  const QString folder = QStringLiteral("/dev/shm/vellora-trash-test-%1").arg(QCoreApplication::applicationPid());
  writeFile(folder + "/a b.png");
  const QString trashed = QStringLiteral("/dev/shm/.Trash-%1").arg(getuid());
  const bool wasThere = QFileInfo::exists(trashed);
  ASSERT_TRUE(XdgTrash().moveToTrash(folder + "/a b.png"));
  EXPECT_TRUE(QFileInfo::exists(trashed + "/files/a b.png"));
  QFile record(trashed + "/info/a b.png.trashinfo");
  ASSERT_TRUE(record.open(QIODevice::ReadOnly));
  EXPECT_TRUE(record.readAll().contains("\nPath=" + folder.mid(9).toUtf8() + "/a%20b.png\n"));
  record.remove();
  QFile::remove(trashed + "/files/a b.png");
  if (!wasThere) QDir(trashed).removeRecursively();
  QDir(folder).removeRecursively();
}

/// Puts an xdg-open of the test's own first in PATH while it lives.
class RecordingOpener {
 public:
  RecordingOpener() : path_(qgetenv("PATH")) {
    writeFile(folder_ + "/xdg-open", "#!/bin/sh\nprintf '%s\\n' \"$@\" >> \"$HOME/opened\"\n");
    QFile::setPermissions(folder_ + "/xdg-open", QFile::ReadOwner | QFile::ExeOwner);
    qputenv("PATH", folder_.toLocal8Bit() + ":" + path_);
  }
  ~RecordingOpener() { qputenv("PATH", path_); }

 private:
  QByteArray path_;
  QString folder_ = QDir::homePath() + "/bin";
};

TEST(UrlOpenerTest, HandsOnWhatExistsAndNothingThatCouldBeAnOption) {
  const RecordingOpener recording;
  const QString home = QDir::homePath();
  writeFile(home + "/a b#1.png");
  DesktopUrlOpener opener;
  EXPECT_TRUE(opener.openFile(home + "/a b#1.png"));
  EXPECT_FALSE(opener.openFile(home + "/missing"));
  EXPECT_TRUE(opener.openUrl("https://example.org/?q=a%20b&c"));
  for (const char* refused : {"--help", "javascript:alert(1)", "/etc/passwd", "https://[bad"}) {
    EXPECT_FALSE(opener.openUrl(refused)) << refused;
  }
  QStringList opened;
  EXPECT_TRUE(waitFor([&] {
    QFile file(home + "/opened");
    if (file.open(QIODevice::ReadOnly)) opened = QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    return opened.size() == 2;
  }));
  opened.sort();
  EXPECT_EQ(opened, (QStringList{"file://" + home + "/a%20b%231.png", "https://example.org/?q=a%20b&c"}));
}

}  // namespace
}  // namespace vellora::test
