#include "media/pictures/HeifItems.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr std::size_t fullBoxBytes = 4;
constexpr std::size_t mostItems = 100000, mostExtents = 1000000;

/// Takes big-endian numbers of any width one after another.
class Cursor {
 public:
  Cursor(FileBytes file, std::size_t at, std::size_t end) : file_(file), at_(at), end_(end) {}

  std::uint64_t take(std::size_t bytes) {
    if (end_ - at_ < bytes) {
      isGood_ = false;
      return 0;
    }
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < bytes; ++i) number = number << 8 | byteAt(file_, at_++);
    return number;
  }
  std::size_t at() const { return at_; }
  bool isGood() const { return isGood_; }

 private:
  FileBytes file_;
  std::size_t at_, end_;
  bool isGood_ = true;
};

bool readInfos(FileBytes file, const IsoBox& infos, std::vector<HeifItem>& items) {
  Cursor cursor(file, infos.content, infos.end);
  const auto version = cursor.take(1);
  cursor.take(3);
  cursor.take(version == 0 ? 2 : 4);
  if (!cursor.isGood()) return false;
  return forEachBox(file, cursor.at(), infos.end, [&](const IsoBox& box) {
    if (box.type != "infe") return true;
    Cursor entry(file, box.content, box.end);
    const auto entryVersion = entry.take(1);
    entry.take(3);
    if (entryVersion < 2 || items.size() == mostItems) return false;
    HeifItem item{static_cast<std::uint32_t>(entry.take(entryVersion == 2 ? 2 : 4))};
    entry.take(2);
    for (int i = 0; i < 4; ++i) item.type.push_back(static_cast<char>(entry.take(1)));
    items.push_back(std::move(item));
    return entry.isGood();
  });
}

/// ISO/IEC 14496-12, 8.11.3.
class LocationReader {
 public:
  LocationReader(FileBytes file, const IsoBox& box, const std::optional<IsoBox>& data)
      : file_(file), data_(data), cursor_(file, box.content, box.end) {}

  bool run(std::vector<HeifItem>& items) {
    version_ = cursor_.take(1);
    cursor_.take(3);
    const auto sizes = cursor_.take(2);
    offsetBytes_ = sizes >> 12;
    lengthBytes_ = sizes >> 8 & 15;
    baseBytes_ = sizes >> 4 & 15;
    indexBytes_ = version_ == 0 ? 0 : sizes & 15;
    if (version_ > 2 || std::max({offsetBytes_, lengthBytes_, baseBytes_, indexBytes_}) > 8) return false;
    const auto count = cursor_.take(version_ < 2 ? 2 : 4);
    for (std::uint64_t i = 0; i < count; ++i) {
      const auto id = cursor_.take(version_ < 2 ? 2 : 4);
      const auto item = std::find_if(items.begin(), items.end(), [id](const HeifItem& each) { return each.id == id; });
      // A place of nothing, or two places of one thing.
      if (item == items.end() || !item->extents.empty() || !readExtents(*item)) return false;
    }
    return cursor_.isGood();
  }

 private:
  bool readExtents(HeifItem& item) {
    const auto method = version_ == 0 ? 0 : cursor_.take(2) & 15;
    const auto otherFile = cursor_.take(2);
    if (method > 1 || otherFile != 0 || (method == 1 && !data_)) return false;
    const std::uint64_t base = cursor_.take(baseBytes_);
    const auto count = cursor_.take(2);
    for (std::uint64_t i = 0; i < count; ++i) {
      cursor_.take(indexBytes_);
      const std::uint64_t offset = cursor_.take(offsetBytes_), length = cursor_.take(lengthBytes_);
      const std::uint64_t start = method == 1 ? data_->content : 0, end = method == 1 ? data_->end : file_.size();
      if (!cursor_.isGood() || base > end || offset > end || start + base + offset > end) return false;
      const std::uint64_t at = start + base + offset;
      if (length == 0 || length > end - at || extents_++ == mostExtents) return false;
      item.extents.push_back({static_cast<std::size_t>(at), static_cast<std::size_t>(length)});
    }
    return true;
  }

  const FileBytes file_;
  const std::optional<IsoBox>& data_;
  Cursor cursor_;
  std::uint64_t version_ = 0;
  std::size_t offsetBytes_ = 0, lengthBytes_ = 0, baseBytes_ = 0, indexBytes_ = 0;
  std::size_t extents_ = 0;
};

}  // namespace

std::optional<std::vector<HeifItem>> heifItems(FileBytes file, const IsoBox& meta) {
  if (meta.end - meta.content < fullBoxBytes) return std::nullopt;
  std::optional<IsoBox> infos, locations, data;
  const bool isWhole = forEachBox(file, meta.content + fullBoxBytes, meta.end, [&](const IsoBox& box) {
    const auto once = [&box](std::optional<IsoBox>& place) { return !std::exchange(place, box).has_value(); };
    if (box.type == "iinf") return once(infos);
    if (box.type == "iloc") return once(locations);
    if (box.type == "idat") return once(data);
    return true;
  });
  if (!isWhole || !infos || !locations) return std::nullopt;
  std::vector<HeifItem> items;
  if (!readInfos(file, *infos, items)) return std::nullopt;
  if (!LocationReader(file, *locations, data).run(items)) return std::nullopt;
  return items;
}

}  // namespace vellora
