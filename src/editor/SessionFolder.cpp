#include "editor/SessionFolder.h"

#include <signal.h>
#include <stdio.h>
#include <unistd.h>

#include <cerrno>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "base/AtomicFile.h"
#include "base/Log.h"
#include "media/PngEncoder.h"
#include "media/SharedPng.h"
#include "media/Thumbnail.h"

namespace vellora::sessionFolder {
namespace {

const QString temporaryPrefix = QStringLiteral(".writing-");
constexpr qint64 abandonedAfterSeconds = 3600;
constexpr qint64 unseenWriterSeconds = 60;

bool writeThumbnail(const QString& folder, const std::vector<CapturePiece>& pieces) {
  std::vector<ThumbnailPiece> parts;
  Rect all = pieces.front().frame();
  for (const CapturePiece& piece : pieces) {
    parts.push_back({piece.image, piece.frame()});
    all = all.united(piece.frame());
  }
  const auto thumbnail = renderThumbnail(parts, all);
  if (!thumbnail) return false;
  const auto png = encodePng(*thumbnail, {});
  return png && AtomicFile::write(QDir(folder).filePath(thumbnailName), std::span<const std::byte>(*png)).has_value();
}

bool writePieces(const QString& folder, const std::vector<CapturePiece>& pieces) {
  const QDir dir(folder);
  if (!dir.mkpath(QStringLiteral("."))) {
    log::error(QStringLiteral("session folder failed: cannot create %1").arg(folder));
    return false;
  }
  for (std::size_t index = 0; index < pieces.size(); ++index) {
    const auto png = pieces[index].png->bytes();
    if (!png) {
      log::error(QStringLiteral("session piece failed: the picture cannot be encoded"));
      return false;
    }
    const auto written = AtomicFile::write(dir.filePath(pieceFileName(index)), *png);
    if (!written) {
      log::error(QStringLiteral("session piece failed: %1").arg(written.error().description()));
      return false;
    }
  }
  return true;
}

}  // namespace

QString pieceFileName(std::size_t index) {
  return QStringLiteral("piece-%1.png").arg(index);
}

std::optional<Written> write(const QString& directory, const SessionDocument& document,
                             const std::vector<CapturePiece>& pieces) {
  const QFileInfo target(directory);
  const QString temporary =
      target.dir().filePath(temporaryPrefix + QString::number(::getpid()) + u'-' + target.fileName());
  const auto abandon = [&temporary]() -> std::optional<Written> {
    QDir(temporary).removeRecursively();
    return std::nullopt;
  };
  if (!writePieces(temporary, pieces)) return abandon();
  Written result;
  result.hasThumbnail = writeThumbnail(temporary, pieces);
  const auto written = AtomicFile::write(QDir(temporary).filePath(documentName), encode(document));
  if (!written) {
    log::error(QStringLiteral("session document failed: %1").arg(written.error().description()));
    return abandon();
  }
  if (::rename(QFile::encodeName(temporary).constData(), QFile::encodeName(directory).constData()) != 0) {
    log::error(QStringLiteral("session folder failed: %1").arg(FileError::fromErrno(errno, directory).description()));
    return abandon();
  }
  return result;
}

std::optional<SessionDocument> readDocument(const QString& directory) {
  const auto text = AtomicFile::read(QDir(directory).filePath(documentName), sessionLimits::documentBytes);
  if (!text) return std::nullopt;
  auto document = decodeSessionDocument(*text);
  if (!document) return std::nullopt;
  return std::move(*document);
}

std::optional<QString> piecePath(const QString& directory, const PieceRecord& piece) {
  const QString name = piece.file.section(u'/', -1);
  if (name.isEmpty() || name == u"." || name == u"..") return std::nullopt;
  const QString path = QDir(directory).filePath(name);
  const QFileInfo info(path);
  if (info.isSymLink() || !info.isFile()) return std::nullopt;
  return path;
}

bool isTemporary(const QString& name) {
  return name.startsWith(temporaryPrefix);
}

bool isAbandoned(const QString& path) {
  const qint64 age = QFileInfo(path).lastModified().secsTo(QDateTime::currentDateTime());
  if (age > abandonedAfterSeconds) return true;
  bool isNumber = false;
  const pid_t writer = QFileInfo(path).fileName().mid(temporaryPrefix.size()).section(u'-', 0, 0).toInt(&isNumber);
  // A writer that is not found may still live on another machine that shares this home: writing takes it no minute.
  return isNumber && writer > 0 && age > unseenWriterSeconds && ::kill(writer, 0) != 0 && errno == ESRCH;
}

}  // namespace vellora::sessionFolder
