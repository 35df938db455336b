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

RecoveryFolder::RecoveryFolder(const QString& root, const QString& id) : RecoveryFolder(QDir(root).filePath(id)) {}

RecoveryFolder::~RecoveryFolder() {
  unlock();
}

bool RecoveryFolder::lock(const QString& directory) {
  const QByteArray path = QFile::encodeName(QDir(directory).filePath(lockName));
  const int file = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (file < 0) return false;
  if (::flock(file, LOCK_EX | LOCK_NB) != 0) {
    ::close(file);
    return false;
  }
  lock_ = file;
  return true;
}

void RecoveryFolder::unlock() {
  if (lock_ >= 0) ::close(std::exchange(lock_, -1));
}

bool RecoveryFolder::make() {
  if (lock_ >= 0) {
    if (QFileInfo(directory_).isDir()) return true;
    // Somebody removed it: everything is written again.
    unlock();
    files_.clear();
  }
  // Nobody may find it before it is locked.
  const QString hidden = sessionFolder::temporaryFor(directory_);
  if (!QDir().mkpath(hidden) || !lock(hidden)) return false;
  if (::rename(QFile::encodeName(hidden).constData(), QFile::encodeName(directory_).constData()) == 0) return true;
  unlock();
  QDir(hidden).removeRecursively();
  return false;
}

bool RecoveryFolder::adopt(const QString& sessionDirectory, const sessionFolder::Loaded& session) {
  QDir().mkpath(QFileInfo(directory_).path());
  // Locked where it is: another process that looks for folders left behind must not find it unlocked for a moment.
  if (!lock(sessionDirectory)) return false;
  if (::rename(QFile::encodeName(sessionDirectory).constData(), QFile::encodeName(directory_).constData()) != 0) {
    unlock();
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
  if (!folder->lock(directory)) return nullptr;
  // Its owner may have removed it, lock and all, a moment ago.
  if (!QFileInfo(directory).isDir()) return nullptr;
  return folder;
}

std::vector<QString> RecoveryFolder::all(const QString& root) {
  std::vector<QString> found;
  constexpr auto folders = QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks | QDir::Hidden;
  for (const QFileInfo& entry : QDir(root).entryInfoList(folders, QDir::Name)) {
    const QString path = entry.absoluteFilePath();
    if (!sessionFolder::isTemporary(entry.fileName())) {
      found.push_back(path);
    } else if (sessionFolder::isAbandoned(path)) {
      QDir(path).removeRecursively();
    }
  }
  return found;
}

bool RecoveryFolder::save(const ImageDocument& document, Date capturedAt, Date savedAt) {
  const QDir folder(directory_);
  if (!make()) {
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
  sessionFolder::remove(directory_);
}

}  // namespace vellora
