#include "media/PngStrip.h"

#include <libdeflate.h>

#include <algorithm>
#include <cstring>

#include "media/DeflateBlock.h"
#include "media/PixelMatcher.h"
#include "media/PngPalette.h"
#include "media/RowFilterChooser.h"

namespace vellora {
namespace {

constexpr std::uint32_t colorBits = 0x00FFFFFF, allBits = 0xFFFFFFFF;

/// What strips of every kind share: checksums over rows, rows that repeat, the blocks.
template <class Pixel>
class StripEncoderBase : public PngStripEncoder {
 public:
  bool encode(int begin, int end, bool last, PngStrip& strip) override {
    strip_ = &strip;
    matcher_.restart();
    pending_ = {};
    start(begin);
    for (int y = begin; y < end; ++y) {
      if (y > 0 && samePixels(bitmap_.row(y - 1), bitmap_.row(y), width(), mask_)) {
        repeatRow();
      } else {
        codeRow(y);
      }
      if (block_.isFull() && !block_.flush(strip.deflated, pending_)) return false;
    }
    return block_.flush(strip.deflated, pending_) && endDeflateRun(strip.deflated, pending_.bits, pending_.count, last);
  }

 protected:
  StripEncoderBase(const Bitmap& bitmap, int bytesPerPixel)
      : bitmap_(bitmap),
        mask_(bitmap.alpha() == PixelAlpha::Opaque ? colorBits : allBits),
        bytesPerPixel_(bytesPerPixel),
        matcher_(static_cast<std::size_t>(bitmap.width()), bytesPerPixel),
        block_(bytesPerPixel),
        // Four bytes are written for a pixel of three.
        bytes_(1 + width() * static_cast<std::size_t>(bytesPerPixel) + 1) {}

  virtual void start(int firstRow) = 0;
  /// Codes a row unlike the one above it.
  virtual void codeRow(int y) = 0;

  std::size_t width() const { return static_cast<std::size_t>(bitmap_.width()); }
  std::size_t rowBytes() const { return 1 + width() * static_cast<std::size_t>(bytesPerPixel_); }

  /// Takes a filtered row into checksum and blocks; it lies at the matcher's place.
  void take(const Pixel* row, RowFilter filter) {
    bytes_[0] = static_cast<std::uint8_t>(filter);
    std::uint8_t* out = bytes_.data() + 1;
    if (bytesPerPixel_ == 3) {
      for (std::size_t x = 0; x < width(); ++x, out += 3) {
        const auto word = static_cast<std::uint32_t>(row[x]);
        std::memcpy(out, &word, sizeof(word));
      }
    } else {
      std::memcpy(out, row, width() * sizeof(Pixel));
    }
    addChecksum();
    bytesAreZero_ = false;
    matcher_.match(bytes_[0], block_);
  }

  /// A row like the one above: what the Up filter leaves is 0, the cheapest row there is.
  void repeatRow() {
    if (!bytesAreZero_) std::fill(bytes_.begin(), bytes_.end(), std::uint8_t{0});
    bytes_[0] = static_cast<std::uint8_t>(RowFilter::Up);
    bytesAreZero_ = true;
    addChecksum();
    matcher_.passZeros(bytes_[0], block_);
  }

  const Bitmap& bitmap_;
  const std::uint32_t mask_;
  const int bytesPerPixel_;
  PixelMatcher<Pixel> matcher_;

 private:
  void addChecksum() {
    strip_->checksum = libdeflate_adler32(strip_->checksum, bytes_.data(), rowBytes());
    strip_->filteredBytes += rowBytes();
  }

  DeflateBlock<Pixel> block_;
  typename DeflateBlock<Pixel>::PendingBits pending_;
  PngStrip* strip_ = nullptr;
  std::vector<std::uint8_t> bytes_;  ///< a row as it stands in the file, for the checksum
  bool bytesAreZero_ = false;
};

class IndexedStripEncoder final : public StripEncoderBase<std::uint8_t> {
 public:
  IndexedStripEncoder(const Bitmap& bitmap, const PngPalette& palette)
      : StripEncoderBase(bitmap, 1), palette_(palette) {}

 private:
  void start(int) override {}
  void codeRow(int y) override {
    std::uint8_t* out = matcher_.place();
    const std::byte* source = bitmap_.row(y);
    std::uint32_t before = ~std::uint32_t{0};
    std::uint8_t index = 0;
    for (std::size_t x = 0; x < width(); ++x, source += 4) {
      std::uint32_t word = 0;
      std::memcpy(&word, source, sizeof(word));
      word &= colorBits;
      if (word != before) index = palette_.indexOf(word);
      before = word;
      out[x] = index;
    }
    take(out, RowFilter::None);
  }

  const PngPalette& palette_;
};

class ColorStripEncoder final : public StripEncoderBase<std::uint32_t> {
 public:
  ColorStripEncoder(const Bitmap& bitmap, int bytesPerPixel)
      : StripEncoderBase(bitmap, bytesPerPixel),
        now_(width()),
        above_(width()),
        second_(width()),
        chooser_(width(), bytesPerPixel) {}

 private:
  void start(int firstRow) override {
    std::fill(now_.begin(), now_.end(), 0U);
    std::fill(above_.begin(), above_.end(), 0U);
    if (firstRow > 1) readRow(firstRow - 2, above_);
    if (firstRow > 0) readRow(firstRow - 1, now_);
    chooser_.restart();
  }

  void readRow(int y, std::span<std::uint32_t> row) const {
    if (bitmap_.alpha() == PixelAlpha::Opaque) {
      readOpaqueRow(bitmap_.row(y), row);
    } else {
      readPremultipliedRow(bitmap_.row(y), row);
    }
  }

  void codeRow(int y) override {
    std::swap(second_, above_);
    std::swap(above_, now_);
    readRow(y, now_);
    const RowFilter filter = chooser_.choose(now_, above_, second_);
    auto* out = matcher_.place();
    filterRow(filter, now_, above_, {out, width()});
    take(out, filter);
  }

  std::vector<std::uint32_t> now_, above_, second_;  ///< the row last read, the one over it, the one over that
  RowFilterChooser chooser_;
};

}  // namespace

std::unique_ptr<PngStripEncoder> PngStripEncoder::create(const Bitmap& bitmap, PngPixels pixels,
                                                         const PngPalette* palette) {
  if (pixels == PngPixels::Indexed) return std::make_unique<IndexedStripEncoder>(bitmap, *palette);
  return std::make_unique<ColorStripEncoder>(bitmap, pixels == PngPixels::Rgb ? 3 : 4);
}

}  // namespace vellora
