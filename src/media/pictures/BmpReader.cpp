#include <algorithm>
#include <array>
#include <bit>
#include <limits>
#include <optional>
#include <utility>

#include "media/pictures/PictureFormats.h"

namespace vellora {
namespace {

constexpr std::size_t headerAt = 14;
constexpr std::size_t maximumProfileBytes = std::size_t{16} << 20;
constexpr double inchesPerMeter = 0.0254;

enum Compression : std::uint32_t { Plain = 0, Rle8 = 1, Rle4 = 2, BitFields = 3, AlphaBitFields = 6 };

/// What the headers of a BMP file say.
struct Header {
  int width = 0;
  int height = 0;
  bool isTopDown = false;
  std::uint32_t bits = 24;
  std::uint32_t compression = Plain;
  std::array<std::uint32_t, 4> masks{};  ///< red, green, blue, alpha
  bool mayHaveAlpha = false;
  FileBytes palette;
  std::size_t paletteStep = 4;  ///< bytes of an entry: blue, green, red…
  FileBytes pixels;
  FileBytes profile;
  double dotsPerInch = 0;

  bool isIndexed() const { return bits <= 8; }
  std::size_t stride() const { return (static_cast<std::size_t>(width) * bits + 31) / 32 * 4; }
};

std::optional<PictureFailure> readFields(FileBytes file, std::uint32_t size, Header& header) {
  const FileBytes fields = file.subspan(headerAt, size);
  std::int64_t width = 0, height = 0;
  if (size == 12) {
    width = little16(fields, 4);
    height = little16(fields, 6);
    header.bits = little16(fields, 10);
    header.paletteStep = 3;
  } else {
    width = static_cast<std::int32_t>(little32(fields, 4));
    height = static_cast<std::int32_t>(little32(fields, 8));
    header.bits = little16(fields, 14);
  }
  header.isTopDown = height < 0;
  height = std::abs(height);
  if (width <= 0 || height == 0) return PictureFailure{PictureError::Damaged, "no pixels"};
  if (width > Raster::maximumEdge || height > Raster::maximumEdge) return PictureFailure{PictureError::TooLarge};
  header.width = static_cast<int>(width);
  header.height = static_cast<int>(height);
  if (size >= 40) {
    header.compression = little32(fields, 16);
    header.dotsPerInch = static_cast<std::int32_t>(little32(fields, 24)) * inchesPerMeter;
    // OS/2 gave other meanings to the numbers from 3 on.
    if (size == 64 && header.compression >= BitFields) header.compression = std::numeric_limits<std::uint32_t>::max();
  }
  constexpr std::uint32_t embeddedProfile = 0x4D424544;
  if (size == 124 && little32(fields, 56) == embeddedProfile) {
    const std::size_t at = headerAt + std::size_t{little32(fields, 112)}, bytes = little32(fields, 116);
    if (at <= file.size() && bytes <= file.size() - at && bytes <= maximumProfileBytes) {
      header.profile = file.subspan(at, bytes);
    }
  }
  return std::nullopt;
}

/// Which bits of a pixel are what; `masksAt` is moved behind the masks where they follow the header.
std::optional<PictureFailure> readMasks(FileBytes file, std::uint32_t size, std::size_t& masksAt, Header& header) {
  if (header.bits == 16) header.masks = {0x7C00, 0x03E0, 0x001F, 0};
  if (header.bits == 32) header.masks = {0x00FF0000, 0x0000FF00, 0x000000FF, 0xFF000000};
  header.mayHaveAlpha = header.bits == 32;
  if (header.compression != BitFields && header.compression != AlphaBitFields) return std::nullopt;
  std::size_t at = headerAt + 40, count = size >= 56 ? 4 : 3;
  if (size == 40) {
    if (header.compression == AlphaBitFields) count = 4;
    masksAt += 4 * count;
  }
  if (file.size() < at + 4 * count) return PictureFailure{PictureError::Damaged, "the file is incomplete"};
  header.masks = {};
  for (std::size_t i = 0; i < count; ++i, at += 4) header.masks[i] = little32(file, at);
  header.mayHaveAlpha = header.masks[3] != 0;
  return std::nullopt;
}

bool isKnown(const Header& header) {
  switch (header.compression) {
    case Plain:
      return header.bits == 1 || header.bits == 2 || header.bits == 4 || header.bits == 8 || header.bits == 16 ||
             header.bits == 24 || header.bits == 32;
    case Rle8:
      return header.bits == 8 && !header.isTopDown;
    case Rle4:
      return header.bits == 4 && !header.isTopDown;
    case BitFields:
    case AlphaBitFields:
      return header.bits == 16 || header.bits == 32;
    default:
      return false;
  }
}

Result<Header, PictureFailure> readHeader(FileBytes file) {
  const std::uint32_t size = little32(file, headerAt);
  if (file.size() < headerAt + size) return refused(PictureError::Damaged, "the file is incomplete");
  Header header;
  if (auto fault = readFields(file, size, header)) return failure(std::move(*fault));
  if (!isKnown(header)) {
    return refused(PictureError::Unsupported, std::to_string(header.bits) + " bits per pixel, compression " +
                                                  std::to_string(static_cast<std::int32_t>(header.compression)));
  }
  std::size_t at = headerAt + size;
  if (auto fault = readMasks(file, size, at, header)) return failure(std::move(*fault));
  const std::size_t pixelsAt = little32(file, 10);
  if (pixelsAt < at || pixelsAt > file.size()) return refused(PictureError::Damaged, "the file is incomplete");
  header.pixels = file.subspan(pixelsAt);
  if (header.isIndexed()) {
    std::size_t colors = std::size_t{1} << header.bits;
    if (size >= 40 && little32(file, headerAt + 32) != 0) {
      colors = std::min<std::size_t>(colors, little32(file, headerAt + 32));
    }
    colors = std::min(colors, (pixelsAt - at) / header.paletteStep);
    if (colors == 0) return refused(PictureError::Damaged, "no palette");
    header.palette = file.subspan(at, colors * header.paletteStep);
  }
  const bool isRunLength = header.compression == Rle8 || header.compression == Rle4;
  if (!isRunLength && header.pixels.size() / header.stride() < static_cast<std::size_t>(header.height)) {
    return refused(PictureError::Damaged, "the file is incomplete");
  }
  return header;
}

PictureInfo infoOf(const Header& header) {
  PictureInfo info{.type = PictureType::Bmp, .width = header.width, .height = header.height};
  info.bitsPerSample = header.isIndexed() ? static_cast<int>(header.bits) : 8;
  info.colors = header.isIndexed() ? PictureColors::Palette : PictureColors::Rgb;
  info.hasAlpha = header.mayHaveAlpha;
  info.hasProfile = !header.profile.empty();
  return info;
}

/// The pixels of an indexed picture as they are told one after another, from the bottom row up or the top row down.
class IndexedCanvas {
 public:
  IndexedCanvas(const Header& header, Raster& raster) : raster_(raster), isTopDown_(header.isTopDown) {
    for (std::size_t i = 0; i < header.palette.size() / header.paletteStep; ++i) {
      for (std::size_t part = 0; part < 3; ++part) {
        colors_[i][part] = static_cast<std::uint8_t>(byteAt(header.palette, header.paletteStep * i + 2 - part));
      }
    }
  }

  void set(int x, int line, std::size_t index) {
    if (x >= raster_.width() || line >= raster_.height()) return;
    const int y = isTopDown_ ? line : raster_.height() - 1 - line;
    std::copy(colors_[index].begin(), colors_[index].end(), raster_.row(y) + std::ptrdiff_t{3} * x);
  }

 private:
  Raster& raster_;
  bool isTopDown_;
  std::array<std::array<std::uint8_t, 3>, 256> colors_{};  // an index outside the palette shows black
};

std::size_t packedAt(FileBytes row, std::size_t x, std::size_t bits) {
  const std::size_t bit = x * bits;
  return byteAt(row, bit / 8) >> (8 - bits - bit % 8) & ((1U << bits) - 1);
}

void decodeIndexed(const Header& header, IndexedCanvas& canvas) {
  for (int line = 0; line < header.height; ++line) {
    const FileBytes row = header.pixels.subspan(static_cast<std::size_t>(line) * header.stride());
    for (int x = 0; x < header.width; ++x) canvas.set(x, line, packedAt(row, static_cast<std::size_t>(x), header.bits));
  }
}

/// Runs of equal pixels, pixels told one by one, and jumps over pixels, which keep color 0. False when the data ends
/// before the picture.
bool decodeRuns(const Header& header, IndexedCanvas& canvas) {
  enum Escape : std::uint32_t { EndOfLine = 0, EndOfPicture = 1, Jump = 2 };
  for (int line = 0; line < header.height; ++line) {
    for (int x = 0; x < header.width; ++x) canvas.set(x, line, 0);
  }
  const bool isNibbles = header.compression == Rle4;
  FileBytes rest = header.pixels;
  int x = 0, line = 0;
  while (rest.size() >= 2) {
    const std::uint32_t count = byteAt(rest, 0), value = byteAt(rest, 1);
    rest = rest.subspan(2);
    if (count > 0) {
      for (std::uint32_t i = 0; i < count; ++i) {
        canvas.set(x, line, isNibbles ? (i % 2 == 0 ? value >> 4 : value & 15) : value);
        x = std::min(x + 1, header.width);
      }
    } else if (value == EndOfLine) {
      x = 0;
      line = std::min(line + 1, header.height);
    } else if (value == EndOfPicture) {
      return true;
    } else if (value == Jump) {
      if (rest.size() < 2) return false;
      x = std::min(x + static_cast<int>(byteAt(rest, 0)), header.width);
      line = std::min(line + static_cast<int>(byteAt(rest, 1)), header.height);
      rest = rest.subspan(2);
    } else {
      const std::size_t bytes = isNibbles ? (value + 1) / 2 : value, padded = (bytes + 1) / 2 * 2;
      if (rest.size() < padded) return false;
      for (std::uint32_t i = 0; i < value; ++i) {
        canvas.set(x, line, packedAt(rest, i, header.bits));
        x = std::min(x + 1, header.width);
      }
      rest = rest.subspan(padded);
    }
  }
  return false;
}

/// One color of a pixel cut out of its word, as 8 bits.
class Field {
 public:
  explicit Field(std::uint32_t mask)
      : mask_(mask), shift_(mask == 0 ? 0 : std::countr_zero(mask)), highest_(mask >> shift_) {}

  std::uint8_t of(std::uint32_t word) const {
    if (highest_ == 0) return 0;
    const std::uint64_t value = (word & mask_) >> shift_;
    return static_cast<std::uint8_t>(highest_ == 255 ? value : (value * 255 + highest_ / 2) / highest_);
  }

 private:
  std::uint32_t mask_;
  int shift_;
  std::uint64_t highest_;
};

void decodeDirect(const Header& header, Raster& raster) {
  const std::array<Field, 4> fields{Field(header.masks[0]), Field(header.masks[1]), Field(header.masks[2]),
                                    Field(header.masks[3])};
  const auto samples = static_cast<std::size_t>(samplesOf(raster.layout()));
  const std::size_t step = header.bits / 8;
  for (int line = 0; line < header.height; ++line) {
    const FileBytes row = header.pixels.subspan(static_cast<std::size_t>(line) * header.stride());
    std::uint8_t* target = raster.row(header.isTopDown ? line : header.height - 1 - line);
    for (std::size_t x = 0; x < static_cast<std::size_t>(header.width); ++x, target += samples) {
      if (step == 3) {
        for (std::size_t i = 0; i < 3; ++i) target[i] = static_cast<std::uint8_t>(byteAt(row, 3 * x + 2 - i));
        continue;
      }
      const std::uint32_t word = step == 4 ? little32(row, 4 * x) : little16(row, 2 * x);
      for (std::size_t i = 0; i < samples; ++i) target[i] = fields[i].of(word);
    }
  }
}

/// Whether the bits for alpha were used: many writers leave them all 0.
bool usesAlpha(const Header& header) {
  if (!header.mayHaveAlpha) return false;
  const std::size_t step = header.bits / 8;
  std::uint32_t some = 0, every = header.masks[3];
  for (int line = 0; line < header.height; ++line) {
    const FileBytes row = header.pixels.subspan(static_cast<std::size_t>(line) * header.stride());
    for (std::size_t x = 0; x < static_cast<std::size_t>(header.width); ++x) {
      const std::uint32_t word = step == 4 ? little32(row, 4 * x) : little16(row, 2 * x);
      some |= word & header.masks[3];
      every &= word;
    }
  }
  return some != 0 && every != header.masks[3];
}

}  // namespace

Result<PictureInfo, PictureFailure> inspectBmp(FileBytes file) {
  const auto header = readHeader(file);
  if (!header) return failure(header.error());
  return infoOf(*header);
}

Result<DecodedPicture, PictureFailure> decodeBmp(FileBytes file, const DecodeOptions&) {
  const auto header = readHeader(file);
  if (!header) return failure(header.error());
  DecodedPicture picture{.info = infoOf(*header)};
  picture.info.hasAlpha = usesAlpha(*header);
  auto raster =
      rasterFor(header->width, header->height, picture.info.hasAlpha ? RasterLayout::Rgba : RasterLayout::Rgb);
  if (!raster) return failure(raster.error());
  if (header->isIndexed()) {
    IndexedCanvas canvas(*header, *raster);
    if (header->compression == Plain) {
      decodeIndexed(*header, canvas);
    } else if (!decodeRuns(*header, canvas)) {
      return refused(PictureError::Damaged, "the file is incomplete");
    }
    picture.palette = static_cast<int>(header->palette.size() / header->paletteStep);
  } else {
    decodeDirect(*header, *raster);
  }
  picture.raster = std::move(*raster);
  picture.metadata.profile = copyOf(header->profile);
  picture.metadata.dotsPerInch = header->dotsPerInch;
  return picture;
}

}  // namespace vellora
