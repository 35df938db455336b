#include "record_editor/VideoImport.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>

#include <QFile>
#include <QFileInfo>

#include "base/Log.h"
#include "record_editor/ProjectCompletion.h"

namespace vellora {
namespace {

constexpr qint64 pieceSize = 4 << 20;  // bytes

const QString defaultExtension = QStringLiteral("mov");

/// An extension that is safe in a file's name.
QString extensionOf(const QString& file) {
  const QString extension = QFileInfo(file).suffix().toLower();
  const bool isPlain = !extension.isEmpty() && extension.size() <= 8 &&
                       std::ranges::all_of(extension, [](QChar c) { return c.isLetterOrNumber() && c < u'\x80'; });
  return isPlain ? extension : defaultExtension;
}

bool copyPieces(QFile& from, QFile& to, const VideoImport::Progress& progress) {
  QByteArray piece(static_cast<qsizetype>(pieceSize), Qt::Uninitialized);
  const auto whole = static_cast<double>(std::max<qint64>(1, from.size()));
  for (qint64 copied = 0;;) {
    const qint64 count = from.read(piece.data(), pieceSize);
    if (count < 0 || to.write(piece.constData(), count) != count) return false;
    copied += count;
    if (progress && !progress(std::min(1.0, static_cast<double>(copied) / whole))) return false;
    if (count == 0) return to.flush() && ::fsync(to.handle()) == 0;
  }
}

/// The file's contents under another name, which appears when it is whole.
bool copyWhole(const QString& from, const QString& to, const VideoImport::Progress& progress) {
  QFile source(from);
  const QString unfinished = to + QStringLiteral(".part");
  QFile target(unfinished);
  if (!source.open(QIODevice::ReadOnly) || !target.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return false;
  const bool isShared = ::ioctl(target.handle(), FICLONE, source.handle()) == 0;
  if (!isShared && !copyPieces(source, target, progress)) return false;
  target.close();
  return QFile::rename(unfinished, to);
}

}  // namespace

QString VideoImport::projectName(const QString& file) {
  return QFileInfo(file).completeBaseName();
}

Result<RecordProjectBundle, VideoImport::Error> VideoImport::run(const RecordingFiles& files, const QString& file,
                                                                 const Inspect& inspect, const Progress& progress) {
  // What is looked at is what is copied, though a link is led somewhere else meanwhile.
  const QString source = QFileInfo(file).canonicalFilePath();
  if (source.isEmpty() || !QFileInfo(source).isFile() || !inspect(source)) return failure(Error::Unreadable);
  const auto bundle = RecordProjectBundle::create(files, projectName(file));
  if (!bundle) {
    log::error(QStringLiteral("video import failed: ") + bundle.error().description());
    return failure(Error::NotCopied);
  }
  const QString video = bundle->file(QStringLiteral("screen.") + extensionOf(file));
  if (!copyWhole(source, video, progress)) {
    if (const auto removed = bundle->remove(); !removed) {
      log::warning(QStringLiteral("import not removed: ") + removed.error().description());
    }
    return failure(Error::NotCopied);
  }
  projectCompletion::complete(*bundle);
  return *bundle;
}

}  // namespace vellora
