#include "editor/RecoveryFolder.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "base/AtomicFile.h"
#include "base/Log.h"

namespace vellora {
namespace {

const QString lockName = QStringLiteral("lock");

}  // namespace

RecoveryFolder::RecoveryFolder(QString root, const QString& id) : RecoveryFolder(QDir(root).filePath(id)) {}

RecoveryFolder::~RecoveryFolder() {
  if (lock_ >= 0) ::close(lock_);
}

bool RecoveryFolder::lock() {
  if (lock_ >= 0) return true;
  const QByteArray path = QFile::encodeName(QDir(directory_).filePath(lockName));
  const int file = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (file < 0) return false;
  if (::flock(file, LOCK_EX | LOCK_NB) != 0) {
    ::close(file);
    return false;
  }
  lock_ = file;
  return true;
}

bool RecoveryFolder::adopt(const QString& sessionDirectory, const sessionFolder::Loaded& session) {
  QDir().mkpath(QFileInfo(directory_).path());
  // Locked where it is: another process that looks for folders left behind must not find it unlocked for a moment.
  const QString target = std::exchange(directory_, sessionDirectory);
  const bool isLocked = lock();
  directory_ = target;
  if (!isLocked ||
      ::rename(QFile::encodeName(sessionDirectory).constData(), QFile::encodeName(directory_).constData()) != 0) {
    return false;
  }
  for (std::size_t i = 0; i < session.document.pieces.size(); ++i) {
    files_[session.document.pieces[i].id] = QFileInfo(session.pieceFiles[i]).fileName();
  }
  nextFile_ = sessionLimits::pieces;  // no stored piece has such a number
  return true;
}

std::unique_ptr<RecoveryFolder> RecoveryFolder::claim(const QString& directory) {
  std::unique_ptr<RecoveryFolder> folder(new RecoveryFolder(directory));
  if (!folder->lock()) return nullptr;
  // Its owner may have removed it, lock and all, a moment ago.
  if (!QFileInfo(directory).isDir()) return nullptr;
  return folder;
}

std::vector<QString> RecoveryFolder::all(const QString& root) {
  std::vector<QString> found;
  for (const QFileInfo& entry : QDir(root).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks)) {
    found.push_back(entry.absoluteFilePath());
  }
  return found;
}

bool RecoveryFolder::save(const ImageDocument& document, Date capturedAt, Date savedAt) {
  const QDir folder(directory_);
  if (!folder.mkpath(QStringLiteral(".")) || !lock()) {
    log::error(QStringLiteral("recovery folder failed: cannot use %1").arg(directory_));
    return false;
  }
  std::vector<QString> names;
  for (const CapturePiece& piece : document.pieces) {
    QString& name = files_[piece.id];
    if (name.isEmpty()) {
      const QString next = sessionFolder::pieceFileName(nextFile_++);
      if (!sessionFolder::writePiece(folder.filePath(next), piece)) return false;
      name = next;
    }
    names.push_back(name);
  }
  const QByteArray text = encode(makeSessionDocument(document, names, capturedAt, savedAt));
  const auto written = AtomicFile::write(folder.filePath(sessionFolder::documentName), text);
  if (!written) log::error(QStringLiteral("recovery document failed: %1").arg(written.error().description()));
  return written.has_value();
}

std::vector<QString> RecoveryFolder::pieceFiles(const ImageDocument& document) const {
  std::vector<QString> paths;
  for (const CapturePiece& piece : document.pieces) {
    const auto known = files_.find(piece.id);
    const bool isThere = known != files_.end() && !known->second.isEmpty();
    paths.push_back(isThere ? QDir(directory_).filePath(known->second) : QString());
  }
  return paths;
}

void RecoveryFolder::remove() {
  QDir(directory_).removeRecursively();
}

}  // namespace vellora
