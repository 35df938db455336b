#include <algorithm>
#include <array>
#include <string_view>

#include "media/pictures/HeifItems.h"
#include "media/pictures/KeptRanges.h"
#include "media/pictures/MetadataStrippers.h"

namespace vellora {
namespace {

template <std::size_t count>
bool isOneOf(std::string_view type, const std::array<std::string_view, count>& types) {
  return std::find(types.begin(), types.end(), type) != types.end();
}

/// HEIC and AVIF files keep their layout, because offsets of the whole file stand in them: what no picture needs
/// becomes empty.
class HeifStripper {
 public:
  explicit HeifStripper(FileBytes file) : file_(file), out_(file.begin(), file.end()) {}

  StrippedFile run() {
    std::optional<IsoBox> meta;
    bool hasMovie = false;
    const bool isWhole = forEachBox(file_, 0, file_.size(), [&](const IsoBox& box) {
      if (box.type == "meta") return !std::exchange(meta, box).has_value();
      if (box.type == "moof") return false;
      if (box.type == "mdat") {
        data_.push_back(box);
      } else if (box.type == "moov") {
        hasMovie = true;
        blankMovie(box);
      } else if (box.type != "ftyp") {
        free(box);
      }
      return true;
    });
    if (!isWhole || !meta) return std::nullopt;
    const auto items = heifItems(file_, *meta);
    if (!items) return std::nullopt;
    blankDescriptions(*meta, 0);
    if (!isHandled_) return std::nullopt;
    const bool hasMetadata =
        std::any_of(items->begin(), items->end(), [](const HeifItem& item) { return item.isMetadata(); });
    // Where the frames of a movie lie is told in another way, so that nothing can be said to be free.
    if (hasMovie) return hasMetadata ? std::nullopt : StrippedFile(std::move(out_));
    forEachBox(file_, meta->content + 4, meta->end, [this](const IsoBox& box) {
      if (box.type == "idat") data_.push_back(box);
      return true;
    });
    if (!keepItems(*items)) return std::nullopt;
    for (const IsoBox& box : data_) kept_.blankOthers(out_, box.content, box.end);
    for (const HeifItem& item : *items) fill(item);
    return std::move(out_);
  }

 private:
  void zero(std::size_t begin, std::size_t end) {
    std::fill(out_.begin() + static_cast<std::ptrdiff_t>(begin), out_.begin() + static_cast<std::ptrdiff_t>(end),
              std::byte{0});
  }

  void free(const IsoBox& box) {
    constexpr std::string_view name = "free";
    std::transform(name.begin(), name.end(), out_.begin() + static_cast<std::ptrdiff_t>(box.start + 4),
                   [](char letter) { return static_cast<std::byte>(letter); });
    zero(box.content, box.end);
  }

  /// What a movie says about itself, and when it was made.
  void blankMovie(const IsoBox& movie) {
    isHandled_ = isHandled_ && forEachBox(file_, movie.content, movie.end, [this](const IsoBox& box) {
                   if (isOneOf(box.type, std::array<std::string_view, 3>{"udta", "meta", "uuid"})) {
                     free(box);
                   } else if (isOneOf(box.type, std::array<std::string_view, 3>{"mvhd", "tkhd", "mdhd"})) {
                     const std::size_t times = box.end > box.content && byteAt(file_, box.content) == 1 ? 16 : 8;
                     if (box.end - box.content < 4 + times) return false;
                     zero(box.content + 4, box.content + 4 + times);
                   } else if (isOneOf(box.type, std::array<std::string_view, 2>{"trak", "mdia"})) {
                     blankMovie(box);
                   }
                   return true;
                 });
  }

  /// Texts and times among the properties of pictures; a box of its own kind each, with a version in front.
  void blankDescriptions(const IsoBox& parent, int depth) {
    static constexpr std::array<std::string_view, 4> descriptions{"udes", "altt", "crtt", "mdft"};
    static constexpr std::array<std::string_view, 2> parents{"iprp", "ipco"};
    const std::size_t start = parent.content + (depth == 0 ? 4 : 0);
    isHandled_ = isHandled_ && forEachBox(file_, start, parent.end, [&](const IsoBox& box) {
                   if (isOneOf(box.type, descriptions)) {
                     zero(std::min(box.end, box.content + 4), box.end);
                   } else if (isOneOf(box.type, parents) && depth < 2) {
                     blankDescriptions(box, depth + 1);
                   } else if (box.type == "uuid" && depth < 2) {
                     free(box);
                   }
                   return true;
                 });
  }

  /// False when an item lies elsewhere than data do.
  bool keepItems(const std::vector<HeifItem>& items) {
    for (const HeifItem& item : items) {
      for (const auto& [at, size] : item.extents) {
        const bool isData = std::any_of(data_.begin(), data_.end(), [at = at, size = size](const IsoBox& box) {
          return at >= box.content && at + size <= box.end;
        });
        if (!isData) return false;
        if (!item.isMetadata()) kept_.add(at, size);
      }
    }
    kept_.settle();
    return true;
  }

  /// Makes of a block one that says nothing, but can still be read.
  void fill(const HeifItem& item) {
    if (!item.isMetadata()) return;
    static constexpr std::string_view emptyExif("\0\0\0\0II*\0\x08\0\0\0\0\0\0\0\0\0", 18);
    static constexpr std::string_view emptyXmp(
        "<x:xmpmeta xmlns:x='adobe:ns:meta/'>"
        "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'/></x:xmpmeta>");
    const std::string_view nothing = item.type == "Exif" ? emptyExif : emptyXmp;
    for (const auto& [at, size] : item.extents) {
      if (!kept_.isFree(at, size)) return;
      const auto start = out_.begin() + static_cast<std::ptrdiff_t>(at);
      if (item.type != "Exif") std::fill_n(start, size, std::byte{' '});
      if (item.extents.size() > 1 || size < nothing.size()) continue;
      std::copy_n(std::as_bytes(std::span(nothing)).begin(), nothing.size(), start);
    }
  }

  const FileBytes file_;
  std::vector<std::byte> out_;
  std::vector<IsoBox> data_;  // where items lie
  KeptRanges kept_;
  bool isHandled_ = true;
};

}  // namespace

StrippedFile strippedHeif(FileBytes file) {
  return HeifStripper(file).run();
}

}  // namespace vellora
