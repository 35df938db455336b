#include <optional>
#include <string_view>

#include "media/pictures/MetadataStrippers.h"

namespace vellora {
namespace {

constexpr std::uint32_t startOfImage = 0xD8, endOfImage = 0xD9, startOfScan = 0xDA, comment = 0xFE;
constexpr std::uint32_t app0 = 0xE0, app1 = 0xE1, app2 = 0xE2, app14 = 0xEE, app15 = 0xEF;
constexpr std::string_view exifStart("Exif\0\0", 6);
constexpr std::string_view jfifStart("JFIF\0", 5);
constexpr std::size_t jfifBytes = 14, adobeBytes = 12;

bool isRestart(std::uint32_t marker) {
  return marker >= 0xD0 && marker <= 0xD7;
}
/// The markers that this format defines (ITU-T T.81, B.1.1.3) and that a length follows.
bool isSegment(std::uint32_t marker) {
  return (marker >= 0xC0 && marker <= 0xDF && !isRestart(marker) && marker != startOfImage && marker != endOfImage &&
          marker != 0xC8) ||
         (marker >= app0 && marker <= app15) || marker == comment;
}

class JpegStripper {
 public:
  explicit JpegStripper(FileBytes file) : file_(file) { out_.reserve(file.size()); }

  StrippedFile run() {
    findFacts();
    append(out_, file_.first(2));
    for (at_ = 2;;) {
      const auto marker = nextMarker();
      if (!marker) return std::nullopt;
      if (*marker == endOfImage) {
        append(out_, "\xFF\xD9");
        return std::move(out_);
      }
      if (!isSegment(*marker)) return std::nullopt;
      const auto payload = takePayload();
      if (!payload) return std::nullopt;
      keep(*marker, *payload);
      if (*marker == startOfScan) keepScan();
    }
  }

 private:
  /// What the Exif block says that has to be said again, unless the file says it elsewhere.
  void findFacts() {
    bool hasDensity = false, hasExif = false;
    for (at_ = 2;;) {
      const auto marker = nextMarker();
      if (!marker || !isSegment(*marker) || *marker == startOfScan) break;
      const auto payload = takePayload();
      if (!payload) break;
      if (*marker == app0 && isJfif(*payload)) hasDensity = byteAt(*payload, 7) == 1 || byteAt(*payload, 7) == 2;
      if (*marker == app1 && holdsAt(*payload, 0, exifStart) && !hasExif) {
        hasExif = true;
        const FileBytes exif = payload->subspan(exifStart.size());
        facts_ = exifFacts({octets(exif), exif.size()});
      }
    }
    if (hasDensity) facts_.dotsPerInch = 0;
  }

  static bool isJfif(FileBytes payload) { return payload.size() >= jfifBytes && holdsAt(payload, 0, jfifStart); }

  std::optional<std::uint32_t> nextMarker() {
    if (at_ >= file_.size() || file_[at_] != std::byte{0xFF}) return std::nullopt;
    while (at_ < file_.size() && file_[at_] == std::byte{0xFF}) ++at_;
    if (at_ == file_.size()) return std::nullopt;
    return byteAt(file_, at_++);
  }

  std::optional<FileBytes> takePayload() {
    if (file_.size() - at_ < 2) return std::nullopt;
    const std::size_t length = big16(file_, at_);
    if (length < 2 || length > file_.size() - at_) return std::nullopt;
    const FileBytes payload = file_.subspan(at_ + 2, length - 2);
    at_ += length;
    return payload;
  }

  void appendSegment(std::uint32_t marker, FileBytes payload) {
    appendBig(out_, 0xFF00 | marker, 2);
    appendBig(out_, payload.size() + 2, 2);
    append(out_, payload);
  }

  void keep(std::uint32_t marker, FileBytes payload) {
    if (marker == app0 && isJfif(payload)) {
      appendSegment(marker, payload.first(jfifBytes));
      // No thumbnail.
      out_[out_.size() - 2] = out_[out_.size() - 1] = std::byte{0};
    } else if (marker == app1 && holdsAt(payload, 0, exifStart)) {
      restateFacts();
    } else if (marker == app14 && holdsAt(payload, 0, "Adobe") && payload.size() >= adobeBytes) {
      appendSegment(marker, payload.first(adobeBytes));
    } else if (marker == app2 && holdsAt(payload, 0, std::string_view("ICC_PROFILE\0", 12))) {
      appendSegment(marker, payload);
    } else if (marker != comment && (marker < app0 || marker > app15)) {
      appendSegment(marker, payload);
    }
  }

  void restateFacts() {
    std::vector<std::byte> exif = minimalExif(std::exchange(facts_, {}));
    if (exif.empty()) return;
    const auto start = std::as_bytes(std::span(exifStart));
    exif.insert(exif.begin(), start.begin(), start.end());
    appendSegment(app1, exif);
  }

  /// The coded data up to the next marker that is not part of it.
  void keepScan() {
    const std::size_t start = at_;
    while (at_ + 1 < file_.size()) {
      const std::uint32_t next = byteAt(file_, at_ + 1);
      if (file_[at_] == std::byte{0xFF} && next != 0 && next != 0xFF && !isRestart(next)) break;
      ++at_;
    }
    append(out_, file_.subspan(start, at_ - start));
  }

  const FileBytes file_;
  std::size_t at_ = 0;
  ExifFacts facts_;
  std::vector<std::byte> out_;
};

}  // namespace

StrippedFile strippedJpeg(FileBytes file) {
  return JpegStripper(file).run();
}

}  // namespace vellora
