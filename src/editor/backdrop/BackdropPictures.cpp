#include "editor/backdrop/BackdropPictures.h"

#include <algorithm>
#include <list>
#include <mutex>

#include <QDateTime>
#include <QFileInfo>

#include "base/Log.h"
#include "media/codecs/ImageConversion.h"
#include "media/codecs/ImageLoader.h"

namespace vellora {
namespace {

constexpr int longestEdge = 4096;
constexpr std::size_t kept = 2;

struct Entry {
  QString path;
  QDateTime modified;
  qint64 bytes;
  std::shared_ptr<const QImage> picture;  // null: cannot be read
};

std::mutex mutex;
std::list<Entry>& entries() {
  static std::list<Entry> list;
  return list;
}

std::shared_ptr<const QImage> load(const QString& path) {
  const auto loaded = ImageLoader::fromFile(path);
  if (!loaded) {
    log::warning(QStringLiteral("cannot read the backdrop's picture %1").arg(path));
    return nullptr;
  }
  QImage image = toImage(loaded->bitmap, AlphaByte::Filled);
  if (std::max(image.width(), image.height()) > longestEdge) {
    image = image.scaled(longestEdge, longestEdge, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  }
  if (image.isNull()) return nullptr;
  return std::make_shared<const QImage>(std::move(image));
}

}  // namespace

std::shared_ptr<const QImage> backdropPicture(const QString& path) {
  const QFileInfo file(path);
  if (!file.isAbsolute() || !file.isFile()) return nullptr;
  const QDateTime modified = file.lastModified();
  const qint64 bytes = file.size();
  {
    const std::lock_guard lock(mutex);
    auto& list = entries();
    const auto found = std::ranges::find_if(list, [&](const Entry& entry) {
      return entry.path == path && entry.modified == modified && entry.bytes == bytes;
    });
    if (found != list.end()) {
      list.splice(list.begin(), list, found);
      return found->picture;
    }
  }
  const auto picture = load(path);
  const std::lock_guard lock(mutex);
  auto& list = entries();
  list.remove_if([&](const Entry& entry) { return entry.path == path; });
  list.push_front({path, modified, bytes, picture});
  if (list.size() > kept) list.pop_back();
  return picture;
}

}  // namespace vellora
