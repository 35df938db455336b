#include "editor/SessionStore.h"

#include <algorithm>
#include <cmath>

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QUuid>

#include "base/AtomicFile.h"
#include "base/Log.h"
#include "editor/SessionFolder.h"

namespace vellora {
namespace {

/// Backup programs leave out folders that carry this file (the Cache Directory Tagging Specification).
void excludeFromBackup(const QString& directory) {
  const QString tag = QDir(directory).filePath(QStringLiteral("CACHEDIR.TAG"));
  if (QFileInfo::exists(tag)) return;
  const QByteArray text =
      "Signature: 8a477f597d28d172789f06886806bc55\n"
      "# Vellora's capture history. Backup programs need not keep it.\n";
  if (const auto written = AtomicFile::write(tag, text); !written) {
    log::debug(QStringLiteral("history folder not excluded from backup: %1").arg(written.error().description()));
  }
}

QString makeSessionId(Date savedAt) {
  const QString stamp = QLocale::c().toString(savedAt.toDateTime(), QStringLiteral("yyyyMMdd-HHmmss"));
  return stamp + u'-' + QUuid::createUuid().toString(QUuid::WithoutBraces).left(8).toLower();
}

std::optional<SessionStore::Entry> loadEntry(const QString& directory, const SessionStore::PictureReader& reader) {
  const auto document = sessionFolder::readDocument(directory);
  if (!document) return std::nullopt;
  SessionStore::Entry entry;
  entry.annotations = document->annotations;
  entry.backdrop = document->backdrop;
  entry.capturedAt = document->capturedAt;
  for (const PieceRecord& record : document->pieces) {
    const auto path = sessionFolder::piecePath(directory, record);
    const auto image = path ? reader(*path) : std::nullopt;
    if (!image) return std::nullopt;
    CapturePiece piece = makePiece(*image, record.scale);
    piece.origin = record.origin;
    piece.pointSize = record.pointSize;
    if (record.visibleRect) piece.visibleRect = *record.visibleRect;
    entry.pieces.push_back(std::move(piece));
  }
  return entry;
}

}  // namespace

QString SessionStore::Item::id() const {
  return QFileInfo(directory).fileName();
}

QString SessionStore::Item::thumbnailFile() const {
  return QDir(directory).filePath(sessionFolder::thumbnailName);
}

QString SessionStore::Item::label(const QLocale& locale, Date now) const {
  const QDateTime saved = savedAt.toDateTime();
  const qint64 daysAgo = saved.date().daysTo(now.toDateTime().date());
  QString when;
  if (daysAgo == 0) {
    when = saved.toString(QStringLiteral("HH:mm:ss"));
  } else {
    //% "Yesterday"
    const QString day =
        daysAgo == 1 ? qtTrId("history.yesterday") : locale.toString(saved.date(), QLocale::ShortFormat);
    when = day + QStringLiteral(", ") + locale.toString(saved.time(), QLocale::ShortFormat);
  }
  return QStringLiteral("%1 × %2 — %3").arg(pixelWidth).arg(pixelHeight).arg(when);
}

QString SessionStore::defaultDirectory(const QString& applicationSupport) {
  return applicationSupport + QStringLiteral("/Vellora/Sessions");
}

SessionStore::SessionStore(QString sessionsDirectory, RunLoop& runLoop, PictureReader reader)
    : sessionsDirectory_(std::move(sessionsDirectory)), runLoop_(runLoop), reader_(std::move(reader)) {
  loadIndex();
}

SessionStore::~SessionStore() = default;

void SessionStore::loadIndex() {
  QDir().mkpath(sessionsDirectory_);
  excludeFromBackup(sessionsDirectory_);
  std::vector<Item> found;
  const QDir root(sessionsDirectory_);
  const auto folders =
      root.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden | QDir::NoSymLinks, QDir::Name);
  for (const QFileInfo& folder : folders) {
    const QString path = folder.absoluteFilePath();
    if (sessionFolder::isTemporary(folder.fileName())) {
      if (sessionFolder::isAbandoned(path)) removeFolderLater(path);
      continue;
    }
    const auto document = sessionFolder::readDocument(path);
    if (!document) {
      removeFolderLater(path);
      continue;
    }
    Item item{path, document->pixelWidth, document->pixelHeight, document->savedAt, false};
    item.hasThumbnail = QFileInfo(item.thumbnailFile()).isFile();
    found.push_back(std::move(item));
  }
  for (const Item& item : items_) {
    const bool isPending = std::ranges::find(pendingWrites_, item.id()) != pendingWrites_.end();
    const bool isFound = std::ranges::any_of(found, [&](const Item& other) { return other.id() == item.id(); });
    if (isPending && !isFound) found.push_back(item);
  }
  std::ranges::stable_sort(found, [](const Item& a, const Item& b) { return a.savedAt > b.savedAt; });
  items_ = std::move(found);
  prune();
}

void SessionStore::prune() {
  while (items_.size() > limit) {
    removeFolderLater(items_.back().directory);
    items_.pop_back();
  }
}

void SessionStore::removeFolderLater(const QString& directory) {
  ioQueue_.async([directory] { QDir(directory).removeRecursively(); });
}

void SessionStore::push(std::vector<CapturePiece> pieces, const Json& annotations, const Json& backdrop,
                        Date capturedAt) {
  if (pieces.empty()) return;
  const Date savedAt = runLoop_.now();
  const QString id = makeSessionId(savedAt);
  const QString directory = QDir(sessionsDirectory_).filePath(id);

  SessionDocument document;
  document.capturedAt = capturedAt;
  document.savedAt = savedAt;
  document.backdrop = backdrop;
  document.annotations = annotations;
  Rect all = pieces.front().frame();
  double outputScale = 0;
  for (const CapturePiece& piece : pieces) {
    all = all.united(piece.frame());
    outputScale = std::max(outputScale, piece.scale);
    PieceRecord record{
        sessionFolder::pieceFileName(document.pieces.size()), piece.scale, piece.origin, piece.pointSize, {}};
    if (piece.isCropped()) record.visibleRect = piece.visibleRect;
    document.pieces.push_back(std::move(record));
  }
  document.pixelWidth = std::llround(all.size.width * outputScale);
  document.pixelHeight = std::llround(all.size.height * outputScale);

  items_.insert(items_.begin(), Item{directory, document.pixelWidth, document.pixelHeight, savedAt, false});
  pendingWrites_.push_back(id);
  prune();

  ioQueue_.async([this, id, directory, document = std::move(document), pieces = std::move(pieces),
                  finished = lifetime_.guard([this](const QString& session, bool success, bool hasThumbnail) {
                    writeFinished(session, success, hasThumbnail);
                  })]() mutable {
    const auto written = sessionFolder::write(directory, document, pieces);
    pieces.clear();
    runLoop_.post([finished, id, success = written.has_value(),
                   hasThumbnail = written && written->hasThumbnail]() mutable { finished(id, success, hasThumbnail); });
  });
}

void SessionStore::writeFinished(const QString& id, bool success, bool hasThumbnail) {
  std::erase(pendingWrites_, id);
  if (success) {
    for (Item& item : items_) {
      if (item.id() == id) item.hasThumbnail = hasThumbnail;
    }
  } else {
    std::erase_if(items_, [&id](const Item& item) { return item.id() == id; });
  }
}

void SessionStore::take(std::size_t index, std::function<void(std::optional<Entry>)> completion) {
  if (index >= items_.size()) {
    completion(std::nullopt);
    return;
  }
  const QString directory = items_[index].directory;
  items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(index));
  ioQueue_.async([this, directory, completion = lifetime_.guard(std::move(completion))]() mutable {
    auto entry = loadEntry(directory, reader_);
    QDir(directory).removeRecursively();
    runLoop_.post(
        [completion = std::move(completion), entry = std::move(entry)]() mutable { completion(std::move(entry)); });
  });
}

void SessionStore::clear() {
  for (const Item& item : items_) removeFolderLater(item.directory);
  items_.clear();
}

}  // namespace vellora
