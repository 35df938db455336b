#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "editor/SessionStore.h"
#include "support/TestBitmaps.h"
#include "support/VirtualRunLoop.h"

namespace vellora::test {

/// A history in a folder of its own, with time that stands still. Its pictures are read as green squares of 2 × 2.
class SessionStoreTest : public testing::Test {
 protected:
  std::unique_ptr<SessionStore> makeStore() {
    return std::make_unique<SessionStore>(sessions, runLoop, [](const QString& path) -> std::optional<Bitmap> {
      if (!QFile::exists(path)) return std::nullopt;
      return solidBitmap({2, 2}, 0xFF00FF00);
    });
  }

  static ImageDocument documentOf(PixelSize size, double scale = 1) {
    ImageDocument document;
    document.pieces.push_back(makePiece(solidBitmap(size, 0xFF336699), scale));
    return document;
  }

  /// Waits for the store's queue and for what it reports.
  void settle(SessionStore& store) {
    store.waitForPendingWrites();
    runLoop.runPosted();
  }

  void push(SessionStore& store, PixelSize size = {40, 20}, double scale = 2) {
    runLoop.advance(1);
    store.push(documentOf(size, scale), runLoop.now());
    settle(store);
  }

  std::optional<SessionStore::Entry> take(SessionStore& store, std::size_t index) {
    std::optional<SessionStore::Entry> entry;
    store.take(index, [&entry](std::optional<SessionStore::Entry> taken) { entry = std::move(taken); });
    settle(store);
    return entry;
  }

  static QStringList foldersIn(const QString& place) {
    return QDir(place).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name);
  }
  QStringList folders() const { return foldersIn(sessions); }
  QStringList leftBehind() const { return foldersIn(recovery); }

  static void writeFile(const QString& folder, const QString& name, const QByteArray& text) {
    QDir().mkpath(folder);
    QFile file(folder + u'/' + name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }

  QTemporaryDir root;
  const QString sessions = root.filePath(QStringLiteral("Sessions"));
  const QString recovery = root.filePath(QStringLiteral("Recovery"));
  VirtualRunLoop runLoop;
};

}  // namespace vellora::test
