#include <algorithm>
#include <array>
#include <utility>

#include "media/pictures/ExifBlock.h"
#include "media/pictures/TiffStructure.h"

namespace vellora {
namespace {

constexpr std::size_t maximumBytes = std::size_t{16} << 20;
constexpr std::uint32_t exifTag = 0x8769, gpsTag = 0x8825, interoperabilityTag = 0xA005;
constexpr std::uint32_t orientationTag = 0x0112;

/// Of the first directory: description, maker, model, orientation, resolution with its unit, software, date, artist,
/// host, copyright, and the two directories. The others tell how the pixels stand in the file.
constexpr std::array<std::uint32_t, 14> keptTags{0x010E, 0x010F, 0x0110, orientationTag, 0x011A, 0x011B,  0x0128,
                                                 0x0131, 0x0132, 0x013B, 0x013C,         0x8298, exifTag, gpsTag};

/// The bytes of a value of each of the types 1 to 13.
constexpr std::array<std::size_t, 14> typeBytes{0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};

/// Copies directories of a file, with what their entries point to, one behind the other.
class DirectoryCopier {
 public:
  DirectoryCopier(const TiffStructure& tiff, std::span<const std::uint8_t> file) : tiff_(tiff), file_(file) {
    block_.assign(file.begin(), file.begin() + 8);
  }

  /// Where the copy stands in the block; nothing when the directory is broken.
  std::optional<std::size_t> copy(std::size_t directory, bool isFirst, int depth = 0) {
    std::vector<TiffEntry> entries;
    const auto end = tiff_.entries(directory, [&](const TiffEntry& entry) {
      const bool isKept = !isFirst || std::find(keptTags.begin(), keptTags.end(), entry.tag) != keptTags.end();
      if (isKept && bytesOf(entry)) entries.push_back(entry);
    });
    if (!end) return std::nullopt;
    const std::size_t start = grow(2 + 12 * entries.size() + 4);
    write(start, entries.size(), 2);
    for (std::size_t i = 0; i < entries.size(); ++i) copyEntry(entries[i], start + 2 + 12 * i, depth);
    saysMore_ = saysMore_ || std::any_of(entries.begin(), entries.end(),
                                         [](const TiffEntry& entry) { return entry.tag != orientationTag; });
    return start;
  }

  std::vector<std::uint8_t> finish(std::size_t first) {
    write(4, first, 4);
    if (!saysMore_ || isTooLong_) return {};
    return std::move(block_);
  }

 private:
  /// Nothing when the value does not lie in the file.
  std::optional<std::size_t> bytesOf(const TiffEntry& entry) const {
    if (entry.type == 0 || entry.type >= typeBytes.size() || entry.count > file_.size()) return std::nullopt;
    const std::size_t bytes = typeBytes[entry.type] * entry.count;
    if (bytes <= 4) return bytes;
    const std::size_t at = *tiff_.number(entry.valueAt, 4);
    if (at > file_.size() || file_.size() - at < bytes) return std::nullopt;
    return bytes;
  }

  void copyEntry(const TiffEntry& entry, std::size_t place, int depth) {
    const auto* source = &file_[entry.valueAt - 8];
    std::copy(source, source + 12, &block_[place]);
    const bool isDirectory = (depth == 0 && (entry.tag == exifTag || entry.tag == gpsTag)) ||
                             (depth == 1 && entry.tag == interoperabilityTag);
    const bool isAgain = std::find(directories_.begin(), directories_.end(), entry.tag) != directories_.end();
    const std::size_t bytes = *bytesOf(entry), at = *tiff_.number(entry.valueAt, 4);
    if (isDirectory) {
      if (!isAgain) directories_.push_back(entry.tag);
      write(place + 8, isAgain ? 0 : copy(at, false, depth + 1).value_or(0), 4);
    } else if (bytes > 4) {
      // Entries may point to the same bytes over and over; what has become too long is given up at the end.
      if (block_.size() + bytes > maximumBytes) {
        isTooLong_ = true;
        return;
      }
      const std::size_t target = grow(bytes);
      std::copy_n(&file_[at], bytes, &block_[target]);
      write(place + 8, target, 4);
    }
  }

  /// Makes room at an even place behind what there is.
  std::size_t grow(std::size_t bytes) {
    const std::size_t start = block_.size() + block_.size() % 2;
    block_.resize(start + bytes);
    return start;
  }

  void write(std::size_t at, std::size_t value, std::size_t bytes) {
    for (std::size_t i = 0; i < bytes; ++i) {
      block_[tiff_.isLittle() ? at + i : at + bytes - 1 - i] = static_cast<std::uint8_t>(value >> 8 * i);
    }
  }

  const TiffStructure& tiff_;
  std::span<const std::uint8_t> file_;
  std::vector<std::uint8_t> block_;
  std::vector<std::uint32_t> directories_;  // whose copying has begun, by the tags that lead to them
  bool isTooLong_ = false;
  bool saysMore_ = false;  // than how the picture is to be turned
};

}  // namespace

std::vector<std::uint8_t> exifOfTiff(std::span<const std::uint8_t> file) {
  const TiffStructure tiff(file);
  if (!tiff.isValid()) return {};
  DirectoryCopier copier(tiff, file);
  const auto first = copier.copy(*tiff.number(4, 4), true);
  return first ? copier.finish(*first) : std::vector<std::uint8_t>();
}

}  // namespace vellora
