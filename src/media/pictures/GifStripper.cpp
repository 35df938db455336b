#include <string_view>

#include "media/pictures/MetadataStrippers.h"

namespace vellora {
namespace {

constexpr std::uint32_t extension = 0x21, image = 0x2C, trailer = 0x3B;
constexpr std::uint32_t graphicControl = 0xF9, application = 0xFF;

/// The blocks of GIF89a, one after another.
class GifStripper {
 public:
  explicit GifStripper(FileBytes file) : file_(file) { out_.reserve(file.size()); }

  StrippedFile run() {
    constexpr std::size_t headerBytes = 13;
    if (file_.size() < headerBytes || !skip(headerBytes + tableBytes(byteAt(file_, 10)))) return std::nullopt;
    append(out_, file_.first(at_));
    for (bool hasPixels = false;;) {
      const std::size_t start = at_;
      if (at_ == file_.size()) return std::nullopt;
      const std::uint32_t kind = byteAt(file_, at_++);
      if (kind == trailer) {
        append(out_, "\x3B");
        return hasPixels ? StrippedFile(std::move(out_)) : std::nullopt;
      }
      if (kind != image && kind != extension) return std::nullopt;
      const bool isWhole = kind == image ? skipImage() : skipExtension();
      if (!isWhole) return std::nullopt;
      hasPixels = hasPixels || kind == image;
      const FileBytes block = file_.subspan(start, at_ - start);
      if (kind == image || isKept(block)) append(out_, block);
    }
  }

 private:
  /// Extensions that tell how to show the pixels.
  static bool isKept(FileBytes block) {
    if (byteAt(block, 1) == graphicControl) return true;
    if (byteAt(block, 1) != application) return false;
    return holdsAt(block, 2, "\x0BNETSCAPE2.0") || holdsAt(block, 2, "\x0B\x41NIMEXTS1.0") ||
           holdsAt(block, 2, "\x0BICCRGBG1012");
  }

  /// A color table's length, from the byte of flags that announces it.
  static std::size_t tableBytes(std::uint32_t flags) {
    return (flags & 0x80) == 0 ? 0 : std::size_t{3} << ((flags & 7) + 1);
  }

  bool skip(std::size_t bytes) {
    if (bytes > file_.size() - at_) return false;
    at_ += bytes;
    return true;
  }

  bool skipSubBlocks() {
    while (at_ < file_.size()) {
      const std::size_t length = byteAt(file_, at_++);
      if (length == 0) return true;
      if (!skip(length)) return false;
    }
    return false;
  }

  bool skipExtension() { return skip(1) && skipSubBlocks(); }

  bool skipImage() {
    constexpr std::size_t descriptorBytes = 9;
    if (!skip(descriptorBytes)) return false;
    // Readers disagree on what follows an image of no pixels.
    if (little16(file_, at_ - 5) == 0 || little16(file_, at_ - 3) == 0) return false;
    return skip(tableBytes(byteAt(file_, at_ - 1)) + 1) && skipSubBlocks();
  }

  const FileBytes file_;
  std::size_t at_ = 0;
  std::vector<std::byte> out_;
};

}  // namespace

StrippedFile strippedGif(FileBytes file) {
  return GifStripper(file).run();
}

}  // namespace vellora
