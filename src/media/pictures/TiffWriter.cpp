#include <libdeflate.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>

#include "media/pictures/FileBytes.h"
#include "media/pictures/PictureEncoders.h"
#include "media/pictures/RowConverter.h"
#include "media/pictures/TiffTags.h"

namespace vellora {
namespace {

constexpr std::uint32_t deflateCompression = 8, horizontalPredictor = 2, unassociatedAlpha = 2;
constexpr std::size_t stripBytes = std::size_t{1} << 20;
constexpr int quickLevel = 2, finalLevel = 9;
/// Offsets have 32 bits; what comes behind the pixels is short.
constexpr std::size_t mostBytes = std::size_t{0xF0000000};
constexpr std::size_t headerBytes = 8, entryBytes = 12;

struct Entry {
  std::uint32_t tag;
  std::uint32_t type;
  std::uint32_t count;
  std::array<std::byte, 4> value;  // or the offset of the values
};

/// A TIFF 6.0 file in the making. An Exif block is a TIFF structure itself: it becomes the beginning of the file, with
/// its byte order and all its offsets, and its entries about the picture are taken into the new directory.
class TiffFileWriter {
 public:
  explicit TiffFileWriter(const std::vector<std::uint8_t>& exif) {
    constexpr std::array<std::uint8_t, headerBytes> empty{'I', 'I', 42, 0, 0, 0, 0, 0};
    const FileBytes block = std::as_bytes(std::span(exif));
    const bool hasExif = isTiffStructure(block);
    const FileBytes start = hasExif ? block : std::as_bytes(std::span(empty));
    file_.assign(start.begin(), start.end());
    isLittle_ = holdsAt(start, 0, "II");
    if (hasExif) takeEntries(block);
  }

  bool isLittle() const { return isLittle_; }
  std::size_t size() const { return file_.size(); }

  std::uint32_t append(FileBytes bytes) {
    if (file_.size() % 2 != 0) file_.push_back(std::byte{0});
    const auto at = static_cast<std::uint32_t>(file_.size());
    file_.insert(file_.end(), bytes.begin(), bytes.end());
    return at;
  }

  void addNumbers(std::uint32_t tag, std::uint32_t type, const std::vector<std::uint32_t>& numbers) {
    const std::size_t each = type == tiff::shortType ? 2 : 4;
    std::vector<std::byte> bytes;
    for (const std::uint32_t number : numbers) putNumber(bytes, number, each);
    addBytes(tag, type, static_cast<std::uint32_t>(numbers.size()), bytes);
  }
  void addRational(std::uint32_t tag, double number) {
    constexpr std::uint32_t denominator = 1000;
    std::vector<std::byte> bytes;
    putNumber(bytes, static_cast<std::uint32_t>(std::lround(number * denominator)), 4);
    putNumber(bytes, denominator, 4);
    addBytes(tag, tiff::rationalType, 1, bytes);
  }
  void addBlock(std::uint32_t tag, std::uint32_t type, const std::vector<std::uint8_t>& block) {
    if (!block.empty()) addBytes(tag, type, static_cast<std::uint32_t>(block.size()), bytesOf(block));
  }

  std::vector<std::byte> finish() {
    std::stable_sort(entries_.begin(), entries_.end(), [](const Entry& a, const Entry& b) { return a.tag < b.tag; });
    std::vector<std::byte> directory;
    putNumber(directory, entries_.size(), 2);
    for (const Entry& entry : entries_) {
      putNumber(directory, entry.tag, 2);
      putNumber(directory, entry.type, 2);
      putNumber(directory, entry.count, 4);
      directory.insert(directory.end(), entry.value.begin(), entry.value.end());
    }
    putNumber(directory, 0, 4);
    std::vector<std::byte> offset;
    putNumber(offset, append(directory), 4);
    std::copy(offset.begin(), offset.end(), file_.begin() + 4);
    return std::move(file_);
  }

 private:
  void takeEntries(FileBytes block) {
    const TiffNumbers numbers{block, isLittle_};
    const std::size_t directory = *numbers.at(4, 4);
    const auto count = numbers.at(directory, 2);
    for (std::size_t i = 0; count && i < *count; ++i) {
      const std::size_t at = directory + 2 + entryBytes * i;
      const auto tag = numbers.at(at, 2), type = numbers.at(at + 2, 2), values = numbers.at(at + 4, 4);
      if (!tag || !type || !values || !numbers.at(at + 8, 4)) return;
      // What describes pixels describes those of the new directory.
      if (tiff::isAboutPixels(static_cast<std::uint32_t>(*tag)) || *tag == tiff::xmp) continue;
      Entry entry{
          static_cast<std::uint32_t>(*tag), static_cast<std::uint32_t>(*type), static_cast<std::uint32_t>(*values), {}};
      std::copy_n(block.begin() + static_cast<std::ptrdiff_t>(at + 8), 4, entry.value.begin());
      entries_.push_back(entry);
    }
  }

  void putNumber(std::vector<std::byte>& target, std::size_t number, std::size_t bytes) const {
    for (std::size_t i = 0; i < bytes; ++i) {
      target.push_back(static_cast<std::byte>(number >> (8 * (isLittle_ ? i : bytes - 1 - i))));
    }
  }

  void addBytes(std::uint32_t tag, std::uint32_t type, std::uint32_t count, FileBytes bytes) {
    Entry entry{tag, type, count, {}};
    if (bytes.size() <= 4) {
      std::copy(bytes.begin(), bytes.end(), entry.value.begin());
    } else {
      std::vector<std::byte> offset;
      putNumber(offset, append(bytes), 4);
      std::copy(offset.begin(), offset.end(), entry.value.begin());
    }
    entries_.push_back(entry);
  }

  std::vector<std::byte> file_;
  std::vector<Entry> entries_;
  bool isLittle_ = true;
};

/// Each sample's difference to that of the pixel before (section 14).
template <class Sample>
void takeDifferences(Sample* row, std::size_t samples, std::size_t step) {
  for (std::size_t i = samples - 1; i >= step; --i) row[i] = static_cast<Sample>(row[i] - row[i - step]);
}

/// The strips' bytes, before and after compression.
class StripEncoder {
 public:
  StripEncoder(const Raster& raster, bool isLittle, bool hasPredictor, int level)
      : raster_(raster),
        isLittle_(isLittle),
        hasPredictor_(hasPredictor),
        compressor_(libdeflate_alloc_compressor(level), libdeflate_free_compressor) {
    if (!compressor_) throw std::bad_alloc();
  }

  FileBytes encode(int begin, int end) {
    const std::size_t rowBytes = raster_.stride();
    pixels_.resize(rowBytes * static_cast<std::size_t>(end - begin));
    for (int y = begin; y < end; ++y) {
      std::byte* const row = pixels_.data() + rowBytes * static_cast<std::size_t>(y - begin);
      std::memcpy(row, raster_.row(y), rowBytes);
      prepare(row);
    }
    deflated_.resize(libdeflate_zlib_compress_bound(compressor_.get(), pixels_.size()));
    const std::size_t size =
        libdeflate_zlib_compress(compressor_.get(), pixels_.data(), pixels_.size(), deflated_.data(), deflated_.size());
    return FileBytes(deflated_).first(size);
  }

 private:
  void prepare(std::byte* row) const {
    const auto step = static_cast<std::size_t>(samplesOf(raster_.layout()));
    const std::size_t samples = step * static_cast<std::size_t>(raster_.width());
    if (raster_.bitsPerSample() == 8) {
      if (hasPredictor_) takeDifferences(reinterpret_cast<std::uint8_t*>(row), samples, step);
      return;
    }
    if (hasPredictor_) takeDifferences(reinterpret_cast<std::uint16_t*>(row), samples, step);
    if (isLittle_ == (std::endian::native == std::endian::little)) return;
    for (std::size_t i = 0; i < samples; ++i) std::swap(row[2 * i], row[2 * i + 1]);
  }

  const Raster& raster_;
  const bool isLittle_, hasPredictor_;
  std::vector<std::byte> pixels_, deflated_;
  std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> compressor_;
};

struct Strips {
  std::vector<std::uint32_t> offsets, sizes;
  std::uint32_t rows = 0;
};

void describe(TiffFileWriter& file, const Raster& raster, const PictureMetadata& metadata, const Strips& strips,
              bool hasPredictor) {
  const auto samples = static_cast<std::uint32_t>(samplesOf(raster.layout()));
  file.addNumbers(tiff::imageWidth, tiff::longType, {static_cast<std::uint32_t>(raster.width())});
  file.addNumbers(tiff::imageLength, tiff::longType, {static_cast<std::uint32_t>(raster.height())});
  file.addNumbers(tiff::bitsPerSample, tiff::shortType,
                  std::vector<std::uint32_t>(samples, static_cast<std::uint32_t>(raster.bitsPerSample())));
  file.addNumbers(tiff::compression, tiff::shortType, {deflateCompression});
  file.addNumbers(tiff::photometric, tiff::shortType, {samples < 3 ? 1U : 2U});
  file.addNumbers(tiff::stripOffsets, tiff::longType, strips.offsets);
  file.addNumbers(tiff::samplesPerPixel, tiff::shortType, {samples});
  file.addNumbers(tiff::rowsPerStrip, tiff::longType, {strips.rows});
  file.addNumbers(tiff::stripByteCounts, tiff::longType, strips.sizes);
  file.addNumbers(tiff::planarConfiguration, tiff::shortType, {1});
  if (metadata.dotsPerInch > 0 && metadata.dotsPerInch < 1e6) {
    file.addRational(tiff::xResolution, metadata.dotsPerInch);
    file.addRational(tiff::yResolution, metadata.dotsPerInch);
    file.addNumbers(tiff::resolutionUnit, tiff::shortType, {2});
  }
  if (hasPredictor) file.addNumbers(tiff::predictor, tiff::shortType, {horizontalPredictor});
  if (hasAlpha(raster.layout())) file.addNumbers(tiff::extraSamples, tiff::shortType, {unassociatedAlpha});
  file.addBlock(tiff::xmp, tiff::byteType, metadata.xmp);
  file.addBlock(tiff::profile, tiff::undefinedType, metadata.profile);
}

/// Whether differences of neighbors get shorter than the samples themselves, as seen in some of the strips.
bool isPredictable(const Raster& raster, const Strips& layout) {
  constexpr int tried = 6;
  const int strips = (raster.height() + static_cast<int>(layout.rows) - 1) / static_cast<int>(layout.rows);
  std::size_t plain = 0, predicted = 0;
  StripEncoder plainly(raster, true, false, quickLevel), predicting(raster, true, true, quickLevel);
  for (int i = 0; i < std::min(strips, tried); ++i) {
    const int strip = strips <= tried ? i : static_cast<int>(std::int64_t{i} * (strips - 1) / (tried - 1));
    const int begin = strip * static_cast<int>(layout.rows);
    const int end = std::min(raster.height(), begin + static_cast<int>(layout.rows));
    plain += plainly.encode(begin, end).size();
    predicted += predicting.encode(begin, end).size();
  }
  return predicted <= plain;
}

}  // namespace

EncodedPicture writeTiff(const Raster& raster, const PictureMetadata& metadata, const WriteOptions& options) {
  Strips strips;
  strips.rows = static_cast<std::uint32_t>(
      std::clamp<std::size_t>(stripBytes / raster.stride(), 1, static_cast<std::size_t>(raster.height())));
  const bool hasPredictor = isPredictable(raster, strips);
  TiffFileWriter file(metadata.exif);
  StripEncoder encoder(raster, file.isLittle(), hasPredictor, finalLevel);
  for (int y = 0; y < raster.height(); y += static_cast<int>(strips.rows)) {
    if (isCancelled(options)) return refused(PictureError::Cancelled);
    const FileBytes strip = encoder.encode(y, std::min(raster.height(), y + static_cast<int>(strips.rows)));
    if (file.size() + strip.size() > mostBytes) return refused(PictureError::CannotEncode, "more than 4 GB");
    strips.offsets.push_back(file.append(strip));
    strips.sizes.push_back(static_cast<std::uint32_t>(strip.size()));
  }
  describe(file, raster, metadata, strips, hasPredictor);
  return file.finish();
}

}  // namespace vellora
