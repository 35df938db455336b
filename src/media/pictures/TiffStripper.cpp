#include <algorithm>
#include <array>
#include <unordered_set>

#include "media/pictures/KeptRanges.h"
#include "media/pictures/MetadataStrippers.h"
#include "media/pictures/TiffTags.h"

namespace vellora {
namespace {

constexpr std::size_t mostDirectories = 65536;
constexpr std::uint64_t oldJpeg = 6, uncompressed = 1;

std::size_t bytesOfType(std::uint64_t type) {
  static constexpr std::array<std::uint8_t, 19> bytes{0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4, 0, 0, 8, 8, 8};
  return type < bytes.size() ? bytes[type] : 0;
}

struct Entry {
  std::uint64_t place, tag, type, count;
  std::uint64_t valuesAt;  // in the entry itself or elsewhere
  std::uint64_t bytes;
};

/// Walks all directories of pages and of what they hold, leaves in them what is about pixels, and blanks everything
/// that nothing points to any more.
class TiffStripper {
 public:
  explicit TiffStripper(FileBytes file) : numbers_{file, holdsAt(file, 0, "II")}, out_(file.begin(), file.end()) {
    isBig_ = numbers_.at(2, 2) == 43;
  }

  StrippedFile run() {
    if (isBig_ && (numbers_.at(4, 2) != 8 || numbers_.at(6, 2) != 0)) return std::nullopt;
    const std::uint64_t headerBytes = isBig_ ? 16 : 8;
    if (out_.size() < headerBytes) return std::nullopt;
    kept_.add(0, headerBytes);
    pending_.push_back(*numbers_.at(headerBytes - wide(), wide()));
    while (!pending_.empty()) {
      const std::uint64_t directory = pending_.back();
      pending_.pop_back();
      if (!walk(directory)) return std::nullopt;
    }
    kept_.settle();
    for (const auto& [at, size] : directories_) {
      if (!kept_.isFree(at, size)) return std::nullopt;
    }
    if (overlap(directories_)) return std::nullopt;
    for (const auto& [at, size] : directories_) kept_.add(at, size);
    kept_.settle();
    kept_.blankOthers(out_, 0, out_.size());
    for (const auto& [at, bytes] : rewritten_) {
      std::copy(bytes.begin(), bytes.end(), out_.begin() + static_cast<std::ptrdiff_t>(at));
    }
    return std::move(out_);
  }

 private:
  std::size_t wide() const { return isBig_ ? 8 : 4; }
  std::size_t countBytes() const { return isBig_ ? 8 : 2; }
  std::size_t entryBytes() const { return isBig_ ? 20 : 12; }

  static bool overlap(std::vector<std::pair<std::uint64_t, std::uint64_t>> ranges) {
    std::sort(ranges.begin(), ranges.end());
    for (std::size_t i = 1; i < ranges.size(); ++i) {
      if (ranges[i - 1].first + ranges[i - 1].second > ranges[i].first) return true;
    }
    return false;
  }

  bool holds(std::uint64_t at, std::uint64_t size) const { return size <= out_.size() && at <= out_.size() - size; }

  bool walk(std::uint64_t directory) {
    const auto count = numbers_.at(directory, countBytes());
    if (!count || *count == 0 || *count > 65535 || directories_.size() == mostDirectories) return false;
    const std::uint64_t size = countBytes() + *count * entryBytes() + wide();
    if (!holds(directory, size) || !seen_.insert(directory).second) return false;
    directories_.emplace_back(directory, size);
    std::vector<Entry> entries;
    for (std::uint64_t i = 0; i < *count; ++i) {
      const auto entry = entryAt(directory + countBytes() + i * entryBytes());
      if (entry.tag == tiff::dngVersion) return false;  // raw data of a camera cannot do without the rest
      if (!tiff::isAboutPixels(static_cast<std::uint32_t>(entry.tag))) continue;
      if (entry.bytes == 0 || !holds(entry.valuesAt, entry.bytes)) return false;
      if (!entries.empty() && entries.back().tag >= entry.tag) return false;
      if (entry.bytes > wide()) kept_.add(entry.valuesAt, entry.bytes);
      entries.push_back(entry);
    }
    const std::uint64_t next = *numbers_.at(directory + size - wide(), wide());
    if (next != 0) pending_.push_back(next);
    rewrite(directory, size, entries, next);
    return keepPixels(entries) && follow(entries);
  }

  Entry entryAt(std::uint64_t place) const {
    Entry entry{place, *numbers_.at(place, 2), *numbers_.at(place + 2, 2), *numbers_.at(place + 4, wide()), 0, 0};
    const std::size_t each = bytesOfType(entry.type);
    entry.bytes = entry.count > out_.size() ? 0 : entry.count * each;
    entry.valuesAt = place + 4 + wide();
    if (entry.bytes > wide()) entry.valuesAt = *numbers_.at(entry.valuesAt, wide());
    return entry;
  }

  /// The directory's bytes with fewer entries, in the place it has.
  void rewrite(std::uint64_t directory, std::uint64_t size, const std::vector<Entry>& entries, std::uint64_t next) {
    std::vector<std::byte> bytes;
    putNumber(bytes, entries.size(), countBytes());
    for (const Entry& entry : entries) append(bytes, numbers_.bytes.subspan(entry.place, entryBytes()));
    putNumber(bytes, next, wide());
    bytes.resize(size);
    rewritten_.emplace_back(directory, std::move(bytes));
  }

  void putNumber(std::vector<std::byte>& bytes, std::uint64_t number, std::size_t size) const {
    for (std::size_t i = 0; i < size; ++i) {
      bytes.push_back(static_cast<std::byte>(number >> (8 * (numbers_.isLittle ? i : size - 1 - i))));
    }
  }

  static const Entry* find(const std::vector<Entry>& entries, std::uint32_t tag) {
    const auto found =
        std::find_if(entries.begin(), entries.end(), [tag](const Entry& entry) { return entry.tag == tag; });
    return found == entries.end() ? nullptr : &*found;
  }

  std::uint64_t valueOf(const Entry& entry, std::uint64_t index) const {
    const std::size_t each = bytesOfType(entry.type);
    return *numbers_.at(entry.valuesAt + index * each, each);
  }
  std::uint64_t valueOf(const std::vector<Entry>& entries, std::uint32_t tag, std::uint64_t otherwise) const {
    const Entry* entry = find(entries, tag);
    return entry != nullptr && bytesOfType(entry->type) <= 8 ? valueOf(*entry, 0) : otherwise;
  }

  static bool isCounting(const Entry& entry) {
    return entry.type == tiff::shortType || entry.type == tiff::longType || entry.type == tiff::long8Type;
  }

  /// The strips or tiles of a page.
  bool keepPixels(const std::vector<Entry>& entries) {
    const std::uint64_t compression = valueOf(entries, tiff::compression, uncompressed);
    if (compression == oldJpeg) return false;
    const bool hasTiles = find(entries, tiff::tileOffsets) != nullptr;
    const Entry* offsets = find(entries, hasTiles ? tiff::tileOffsets : tiff::stripOffsets);
    const Entry* sizes = find(entries, hasTiles ? tiff::tileByteCounts : tiff::stripByteCounts);
    if (hasTiles && find(entries, tiff::stripOffsets) != nullptr) return false;
    // Some writers put the sizes of tiles where those of strips go.
    if (hasTiles && sizes == nullptr) sizes = find(entries, tiff::stripByteCounts);
    if (offsets == nullptr || sizes == nullptr || offsets->count != sizes->count) return false;
    if (!isCounting(*offsets) || !isCounting(*sizes)) return false;
    std::uint64_t total = 0;
    for (std::uint64_t i = 0; i < offsets->count; ++i) {
      const std::uint64_t at = valueOf(*offsets, i), size = valueOf(*sizes, i);
      if (at == 0 || size == 0 || !holds(at, size)) return false;
      kept_.add(at, size);
      total += size;
    }
    return compression != uncompressed || total >= plainBytes(entries);
  }

  /// What plain pixels take at least: readers do not trust sizes that say less.
  std::uint64_t plainBytes(const std::vector<Entry>& entries) const {
    const std::uint64_t width = valueOf(entries, tiff::imageWidth, 0), height = valueOf(entries, tiff::imageLength, 0);
    const std::uint64_t bits = valueOf(entries, tiff::bitsPerSample, 1) * valueOf(entries, tiff::samplesPerPixel, 1);
    if (width > UINT32_MAX || height > UINT32_MAX || bits > 65535) return UINT64_MAX;
    const std::uint64_t rowBytes = (width * bits + 7) / 8;
    return rowBytes > out_.size() || height > out_.size() ? UINT64_MAX : rowBytes * height;
  }

  bool follow(const std::vector<Entry>& entries) {
    const Entry* children = find(entries, tiff::subDirectories);
    if (children == nullptr) return true;
    const bool isPlace = children->type == tiff::longType || children->type == tiff::ifdType ||
                         children->type == tiff::long8Type || children->type == tiff::ifd8Type;
    if (!isPlace || children->count > mostDirectories) return false;
    for (std::uint64_t i = 0; i < children->count; ++i) pending_.push_back(valueOf(*children, i));
    return true;
  }

  const TiffNumbers numbers_;
  bool isBig_ = false;
  std::vector<std::byte> out_;
  KeptRanges kept_;
  std::vector<std::uint64_t> pending_;
  std::unordered_set<std::uint64_t> seen_;
  std::vector<std::pair<std::uint64_t, std::uint64_t>> directories_;
  std::vector<std::pair<std::uint64_t, std::vector<std::byte>>> rewritten_;
};

}  // namespace

StrippedFile strippedTiff(FileBytes file) {
  if (file.size() < 8) return std::nullopt;
  return TiffStripper(file).run();
}

}  // namespace vellora
