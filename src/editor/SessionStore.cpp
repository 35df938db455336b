#include "editor/SessionStore.h"

#include <algorithm>
#include <cmath>

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QUuid>

#include "base/AtomicFile.h"
#include "base/Log.h"
#include "editor/RecoveryFolder.h"
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

SessionStore::SessionStore(QString sessionsDirectory, RunLoop& runLoop, PictureReader reader, DocumentRenderer renderer)
    : sessionsDirectory_(std::move(sessionsDirectory)),
      recoveryDirectory_(QDir::cleanPath(QDir(sessionsDirectory_).filePath(QStringLiteral("../Recovery")))),
      runLoop_(runLoop),
      reader_(std::move(reader)),
      renderer_(std::move(renderer)) {
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
    auto item = readItem(path);
    if (item) {
      found.push_back(std::move(*item));
    } else {
      removeFolderLater(path);
    }
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

std::optional<SessionStore::Item> SessionStore::readItem(const QString& directory) const {
  Item item;
  // A session's folder never changes: what is known of one need not be read again.
  const auto known = std::ranges::find(items_, directory, &Item::directory);
  if (known != items_.end() && sessionFolder::isOwnFile(QDir(directory).filePath(sessionFolder::documentName))) {
    item = *known;
  } else {
    const auto document = sessionFolder::readDocument(directory);
    if (!document) return std::nullopt;
    item = {directory, document->pixelWidth, document->pixelHeight, document->savedAt, false};
  }
  item.hasThumbnail = sessionFolder::isOwnFile(item.thumbnailFile());
  return item;
}

void SessionStore::prune() {
  while (items_.size() > limit) {
    removeFolderLater(items_.back().directory);
    items_.pop_back();
  }
}

void SessionStore::removeFolderLater(const QString& directory) {
  ioQueue_.async([directory] { sessionFolder::remove(directory); });
}

void SessionStore::push(const ImageDocument& document, Date capturedAt) {
  record(document, capturedAt, nullptr);
}

void SessionStore::record(const ImageDocument& document, Date capturedAt, std::shared_ptr<RecoveryFolder> recovery) {
  if (document.pieces.empty()) {
    if (recovery) ioQueue_.async([recovery = std::move(recovery)] { recovery->remove(); });
    return;
  }
  const Date savedAt = runLoop_.now();
  const QString id = makeSessionId(savedAt);
  const QString directory = QDir(sessionsDirectory_).filePath(id);
  const SessionDocument facts =
      makeSessionDocument(document, std::vector<QString>(document.pieces.size()), capturedAt, savedAt);
  items_.insert(items_.begin(), Item{directory, facts.pixelWidth, facts.pixelHeight, savedAt, false});
  pendingWrites_.push_back(id);
  prune();

  ioQueue_.async([this, id, directory, kept = ImageDocument(document), capturedAt, savedAt,
                  recovery = std::move(recovery),
                  finished = lifetime_.guard([this](const QString& session, bool success, bool hasThumbnail) {
                    writeFinished(session, success, hasThumbnail);
                  })]() mutable {
    // Kept before anything that takes its time, and for a later start should it become no session.
    if (recovery) recovery->save(kept, capturedAt, savedAt);
    const auto pieceFiles = recovery ? recovery->pieceFiles(kept) : std::vector<QString>();
    const auto written = sessionFolder::write(directory, kept, capturedAt, savedAt, pieceFiles, renderer_);
    if (recovery && written) recovery->remove();
    recovery.reset();
    kept = {};
    runLoop_.post([finished, id, success = written.has_value(),
                   hasThumbnail = written && written->hasThumbnail]() mutable { finished(id, success, hasThumbnail); });
  });
}

std::unique_ptr<OpenDocument> SessionStore::open(const ImageDocument& document, Date capturedAt) {
  auto folder = std::make_shared<RecoveryFolder>(recoveryDirectory_, makeSessionId(runLoop_.now()));
  std::unique_ptr<OpenDocument> result(new OpenDocument(*this, std::move(folder), capturedAt));
  result->unsaved_ = document;
  result->save();
  return result;
}

void SessionStore::recoverAbandoned(std::function<void(int)> done) {
  ioQueue_.async([this, done = lifetime_.guard([this, done = std::move(done)](int count) {
    loadIndex();
    done(count);
  })]() mutable {
    const int count = recoverOnQueue();
    if (count > 0) runLoop_.post([done = std::move(done), count]() mutable { done(count); });
  });
}

int SessionStore::recoverOnQueue() {
  int count = 0;
  for (const QString& directory : RecoveryFolder::all(recoveryDirectory_)) {
    const auto folder = RecoveryFolder::claim(directory);
    if (!folder) continue;
    if (const auto left = sessionFolder::load(directory, reader_)) {
      // Saved now: by its old time it might be older than everything in a full history.
      const Date savedAt = runLoop_.now();
      const QString target = QDir(sessionsDirectory_).filePath(makeSessionId(savedAt));
      if (!sessionFolder::write(target, left->document, left->capturedAt, savedAt, left->pieceFiles, renderer_)) {
        continue;
      }
      ++count;
    }
    folder->remove();
  }
  return count;
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
  const QString id = items_[index].id();
  items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(index));
  auto folder = std::make_shared<RecoveryFolder>(recoveryDirectory_, id);
  ioQueue_.async([this, directory, folder,
                  completion = lifetime_.guard(
                      [this, folder, completion = std::move(completion)](std::optional<sessionFolder::Loaded> loaded) {
                        if (!loaded) return completion(std::nullopt);
                        Entry entry{std::move(loaded->document), loaded->capturedAt, nullptr};
                        entry.open.reset(new OpenDocument(*this, folder, entry.capturedAt));
                        completion(std::move(entry));
                      })]() mutable {
    auto loaded = sessionFolder::load(directory, reader_);
    // Where it cannot be moved the entry is written anew, and stays in the history until that has succeeded.
    if (!loaded ||
        (!folder->adopt(directory, *loaded) && folder->save(loaded->document, loaded->capturedAt, loaded->savedAt))) {
      sessionFolder::remove(directory);
    }
    runLoop_.post(
        [completion = std::move(completion), loaded = std::move(loaded)]() mutable { completion(std::move(loaded)); });
  });
}

void SessionStore::clear() {
  for (const Item& item : items_) removeFolderLater(item.directory);
  items_.clear();
}

}  // namespace vellora
