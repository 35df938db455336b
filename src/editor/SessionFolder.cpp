#include "editor/SessionFolder.h"

#include <signal.h>
#include <stdio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <span>
#include <thread>

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

/// What is visible of a piece.
Bitmap visiblePart(const CapturePiece& piece) {
  const auto pixels = [&piece](double points) { return static_cast<int>(std::lround(points * piece.scale)); };
  const Rect& visible = piece.visibleRect;
  return piece.image.cropped({pixels(visible.minX()), pixels(visible.minY()), std::max(pixels(visible.size.width), 1),
                              std::max(pixels(visible.size.height), 1)});
}

/// What the thumbnail shows, as pictures at their places; nothing when it must not be shown or cannot be drawn.
std::vector<ThumbnailPiece> thumbnailParts(const ImageDocument& document, const DocumentRenderer& renderer) {
  if (!renderer) {
    std::vector<ThumbnailPiece> parts;
    const bool isRedacted =
        std::ranges::any_of(document.annotations, [](const AnnotationPtr& one) { return isRedaction(*one); });
    if (isRedacted) return parts;
    for (const CapturePiece& piece : document.pieces) parts.push_back({visiblePart(piece), piece.frame()});
    return parts;
  }
  const Rect all = document.contentRect();
  // Twice the pixels needed, so that the reduction has something to average.
  const double scale = 2 * std::max(thumbnailSize.width / all.size.width, thumbnailSize.height / all.size.height);
  auto finished = renderer(document, std::min(scale, document.outputScale()));
  if (!finished) return {};
  const Size size{static_cast<double>(finished->width()), static_cast<double>(finished->height())};
  return {{std::move(*finished), {{0, 0}, size}}};
}

bool writeThumbnail(const QString& folder, const ImageDocument& document, const DocumentRenderer& renderer) {
  const auto parts = thumbnailParts(document, renderer);
  if (parts.empty()) return false;
  Rect all = parts.front().frame;
  for (const ThumbnailPiece& part : parts) all = all.united(part.frame);
  const auto thumbnail = renderThumbnail(parts, all);
  if (!thumbnail) return false;
  const auto png = encodePng(*thumbnail, {});
  return png && AtomicFile::write(QDir(folder).filePath(thumbnailName), std::span<const std::byte>(*png)).has_value();
}

/// Makes `path` another name of `existing`, or a copy where the file system has no second names.
bool adopt(const QString& existing, const QString& path) {
  return ::link(QFile::encodeName(existing).constData(), QFile::encodeName(path).constData()) == 0 ||
         QFile::copy(existing, path);
}

bool writePieces(const QString& folder, const std::vector<CapturePiece>& pieces, const std::vector<QString>& existing) {
  const QDir dir(folder);
  if (!dir.mkpath(QStringLiteral("."))) {
    log::error(QStringLiteral("session folder failed: cannot create %1").arg(folder));
    return false;
  }
  for (std::size_t index = 0; index < pieces.size(); ++index) {
    const QString path = dir.filePath(pieceFileName(index));
    if (index < existing.size() && !existing[index].isEmpty() && adopt(existing[index], path)) continue;
    if (!writePiece(path, pieces[index])) return false;
  }
  return true;
}

/// How many pictures are decoded at the same time.
std::size_t readAtOnce() {
  constexpr unsigned most = 4;
  return std::clamp(std::thread::hardware_concurrency(), 1U, most);
}

/// Decodes the first few of the files, each on a thread of its own.
std::vector<std::optional<Bitmap>> readTogether(std::span<const QString> files, const PictureReader& reader) {
  files = files.first(std::min(files.size(), readAtOnce()));
  std::vector<std::optional<Bitmap>> images(files.size());
  std::vector<std::jthread> threads;
  for (std::size_t i = 1; i < files.size(); ++i) {
    threads.emplace_back([&image = images[i], &file = files[i], &reader] { image = reader(file); });
  }
  images[0] = reader(files[0]);
  threads.clear();
  return images;
}

}  // namespace

QString pieceFileName(std::size_t index) {
  return QStringLiteral("piece-%1.png").arg(index);
}

bool writePiece(const QString& path, const CapturePiece& piece) {
  const auto png = piece.png->bytes();
  if (!png) {
    log::error(QStringLiteral("session piece failed: the picture cannot be encoded"));
    return false;
  }
  const auto written = AtomicFile::write(path, *png);
  if (!written) log::error(QStringLiteral("session piece failed: %1").arg(written.error().description()));
  return written.has_value();
}

std::optional<Written> write(const QString& directory, const ImageDocument& document, Date capturedAt, Date savedAt,
                             const std::vector<QString>& pieceFiles, const DocumentRenderer& renderer) {
  const QString temporary = temporaryFor(directory);
  const auto abandon = [&temporary]() -> std::optional<Written> {
    QDir(temporary).removeRecursively();
    return std::nullopt;
  };
  if (!writePieces(temporary, document.pieces, pieceFiles)) return abandon();
  Written result;
  result.hasThumbnail = writeThumbnail(temporary, document, renderer);
  std::vector<QString> names;
  for (std::size_t index = 0; index < document.pieces.size(); ++index) names.push_back(pieceFileName(index));
  const QByteArray text = encode(makeSessionDocument(document, names, capturedAt, savedAt));
  const auto written = AtomicFile::write(QDir(temporary).filePath(documentName), text);
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

std::optional<Loaded> load(const QString& directory, const PictureReader& reader) {
  const auto session = readDocument(directory);
  if (!session) return std::nullopt;
  Loaded loaded;
  loaded.capturedAt = session->capturedAt;
  loaded.savedAt = session->savedAt;
  loaded.document.annotations = session->annotations;
  loaded.document.backdrop = session->backdrop;
  for (const PieceRecord& record : session->pieces) {
    const auto path = piecePath(directory, record);
    if (!path) return std::nullopt;
    loaded.pieceFiles.push_back(*path);
  }
  std::size_t bytes = 0;
  for (std::size_t first = 0; first < loaded.pieceFiles.size(); first += readAtOnce()) {
    const auto images = readTogether(std::span(loaded.pieceFiles).subspan(first), reader);
    for (std::size_t i = 0; i < images.size(); ++i) {
      if (!images[i]) return std::nullopt;
      bytes += static_cast<std::size_t>(images[i]->height()) * images[i]->stride();
      auto piece = makePiece(session->pieces[first + i], *images[i]);
      if (!piece || bytes > sessionLimits::decodedBytes) return std::nullopt;
      loaded.document.pieces.push_back(std::move(*piece));
    }
  }
  return loaded;
}

std::optional<SessionDocument> readDocument(const QString& directory) {
  const QString path = QDir(directory).filePath(documentName);
  if (!isOwnFile(path)) return std::nullopt;
  const auto text = AtomicFile::read(path, sessionLimits::documentBytes);
  if (!text) return std::nullopt;
  auto document = decodeSessionDocument(*text);
  if (!document) return std::nullopt;
  return std::move(*document);
}

std::optional<QString> piecePath(const QString& directory, const PieceRecord& piece) {
  const QString name = piece.file.section(u'/', -1);
  if (name.isEmpty() || name == u"." || name == u"..") return std::nullopt;
  const QString path = QDir(directory).filePath(name);
  return isOwnFile(path) ? std::optional(path) : std::nullopt;
}

bool isOwnFile(const QString& path) {
  const QFileInfo info(path);
  return info.isFile() && !info.isSymLink();
}

QString temporaryFor(const QString& directory) {
  const QFileInfo target(directory);
  return target.dir().filePath(temporaryPrefix + QString::number(::getpid()) + u'-' + target.fileName());
}

void remove(const QString& directory) {
  const QDir folder(directory);
  QFile::remove(folder.filePath(documentName));
  QDir(directory).removeRecursively();
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
