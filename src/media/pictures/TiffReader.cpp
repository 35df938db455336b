#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "media/pictures/ColorConversion.h"
#include "media/pictures/ExifBlock.h"
#include "media/pictures/Orientation.h"
#include "media/pictures/PictureFormats.h"
#include "media/pictures/TiffFile.h"

namespace vellora {
namespace {

constexpr int mostPages = 10000;
constexpr std::size_t maximumProfileBytes = std::size_t{16} << 20;
constexpr double centimetersPerInch = 2.54;

enum class Alpha : std::uint8_t { None, Straight, Premultiplied };

/// How the pixels of the first page stand in the file.
struct Page {
  int width = 0;
  int height = 0;
  std::size_t bits = 1;     ///< per sample
  std::size_t samples = 1;  ///< per pixel
  std::size_t colors = 1;   ///< of them; more may be alpha and things nobody knows
  std::uint16_t photometric = PHOTOMETRIC_MINISBLACK;
  Alpha alpha = Alpha::None;
  bool isPlanar = false;
  bool isTiled = false;
  int cellWidth = 0;  ///< of a tile or strip
  int cellHeight = 0;
  /// libtiff itself has to make RGB of it.
  bool isForeign = false;

  int rasterBits() const { return bits == 16 ? 16 : 8; }
  std::size_t planes() const { return isPlanar ? samples : 1; }
  std::size_t samplesPerPlane() const { return isPlanar ? 1 : samples; }
  /// The bytes of one row of one plane of a cell.
  std::size_t cellStride() const { return (static_cast<std::size_t>(cellWidth) * samplesPerPlane() * bits + 7) / 8; }
  std::size_t cellBytes() const { return cellStride() * static_cast<std::size_t>(cellHeight); }
  bool isGrey() const { return photometric <= PHOTOMETRIC_MINISBLACK && !isForeign; }
  RasterLayout layout() const {
    if (isGrey()) return alpha == Alpha::None ? RasterLayout::Grey : RasterLayout::GreyAlpha;
    return alpha == Alpha::None ? RasterLayout::Rgb : RasterLayout::Rgba;
  }
};

auto unsupported(std::string detail) {
  return refused(PictureError::Unsupported, std::move(detail));
}

Alpha alphaOf(const TiffFile& file, std::size_t extras) {
  if (extras == 0) return Alpha::None;
  std::uint16_t count = 0;
  const std::uint16_t* kinds = nullptr;
  if (TIFFGetField(file.handle(), TIFFTAG_EXTRASAMPLES, &count, &kinds) == 0 || count == 0) return Alpha::None;
  if (kinds[0] == EXTRASAMPLE_ASSOCALPHA) return Alpha::Premultiplied;
  // A single one that is not explained is what programs write that mean alpha.
  return kinds[0] == EXTRASAMPLE_UNASSALPHA || count == 1 ? Alpha::Straight : Alpha::None;
}

/// Colors that only libtiff knows how to make RGB of, with 8 bits.
Result<Page, PictureFailure> foreignPage(const TiffFile& file, Page page) {
  std::array<char, 1024> reason{};
  if (TIFFRGBAImageOK(file.handle(), reason.data()) == 0) return unsupported(reason.data());
  page.isForeign = true;
  page.bits = 8;
  page.alpha = page.samples > 3 ? alphaOf(file, page.samples - 3) : Alpha::None;
  return page;
}

Result<Page, PictureFailure> readPage(const TiffFile& file) {
  Page page;
  const auto width = file.tag<std::uint32_t>(TIFFTAG_IMAGEWIDTH, 0);
  const auto height = file.tag<std::uint32_t>(TIFFTAG_IMAGELENGTH, 0);
  if (width == 0 || height == 0) return refused(PictureError::Damaged, "no pixels");
  if (width > Raster::maximumEdge || height > Raster::maximumEdge) {
    return refused(PictureError::TooLarge, "a side of more than 65,535 pixels");
  }
  page.width = static_cast<int>(width);
  page.height = static_cast<int>(height);
  page.bits = file.tag<std::uint16_t>(TIFFTAG_BITSPERSAMPLE, 1);
  page.samples = file.tag<std::uint16_t>(TIFFTAG_SAMPLESPERPIXEL, 1);
  page.isPlanar = page.samples > 1 && file.tag<std::uint16_t>(TIFFTAG_PLANARCONFIG, 1) == PLANARCONFIG_SEPARATE;
  page.isTiled = TIFFIsTiled(file.handle()) != 0;
  const auto compression = file.tag<std::uint16_t>(TIFFTAG_COMPRESSION, COMPRESSION_NONE);
  if (TIFFIsCODECConfigured(compression) == 0) return unsupported("compression " + std::to_string(compression));
  const bool isBilevel = page.bits == 1 && page.samples == 1;
  std::uint16_t photometric = isBilevel ? PHOTOMETRIC_MINISWHITE : PHOTOMETRIC_MINISBLACK;
  if (page.samples >= 3) photometric = PHOTOMETRIC_RGB;
  TIFFGetField(file.handle(), TIFFTAG_PHOTOMETRIC, &photometric);
  page.photometric = photometric;
  if (photometric == PHOTOMETRIC_YCBCR && compression == COMPRESSION_JPEG && !page.isPlanar) {
    TIFFSetField(file.handle(), TIFFTAG_JPEGCOLORMODE, JPEGCOLORMODE_RGB);
    page.photometric = PHOTOMETRIC_RGB;
  }
  const auto format = file.tag<std::uint16_t>(TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_UINT);
  if (format != SAMPLEFORMAT_UINT && format != SAMPLEFORMAT_VOID)
    return unsupported("samples that are not whole numbers");
  if (page.bits != 1 && page.bits != 2 && page.bits != 4 && page.bits != 8 && page.bits != 16) {
    return unsupported(std::to_string(page.bits) + " bits per sample");
  }
  switch (page.photometric) {
    case PHOTOMETRIC_MINISWHITE:
    case PHOTOMETRIC_MINISBLACK:
      page.colors = 1;
      break;
    case PHOTOMETRIC_PALETTE:
      page.colors = 1;
      if (page.bits > 8) return unsupported("a palette of 65,536 colors");
      break;
    case PHOTOMETRIC_RGB:
      page.colors = 3;
      break;
    case PHOTOMETRIC_SEPARATED:
      page.colors = 4;
      if (file.tag<std::uint16_t>(TIFFTAG_INKSET, INKSET_CMYK) != INKSET_CMYK || page.bits < 8) {
        return unsupported("inks other than CMYK");
      }
      break;
    default:
      return foreignPage(file, page);
  }
  if (page.samples < page.colors) return refused(PictureError::Damaged, "too few samples for its colors");
  page.alpha = alphaOf(file, page.samples - page.colors);

  auto cellWidth = width, cellHeight = file.tag<std::uint32_t>(TIFFTAG_ROWSPERSTRIP, height);
  if (page.isTiled) {
    cellWidth = file.tag<std::uint32_t>(TIFFTAG_TILEWIDTH, 0);
    cellHeight = file.tag<std::uint32_t>(TIFFTAG_TILELENGTH, 0);
  } else {
    cellHeight = std::min(cellHeight, height);
  }
  constexpr std::uint32_t widestTile = 1U << 17;
  if (cellWidth == 0 || cellHeight == 0) return refused(PictureError::Damaged, "empty strips or tiles");
  if (cellWidth > widestTile || cellHeight > widestTile) return refused(PictureError::TooLarge, "huge tiles");
  page.cellWidth = static_cast<int>(cellWidth);
  page.cellHeight = static_cast<int>(cellHeight);
  if (page.cellBytes() > Raster::maximumBytes) return refused(PictureError::TooLarge, "huge strips or tiles");
  return page;
}

/// Whether the parts of the pixels that the current directory names lie in the file.
bool hasItsPixels(const TiffFile& file) {
  TIFF* const tiff = file.handle();
  const std::uint32_t parts = TIFFIsTiled(tiff) != 0 ? TIFFNumberOfTiles(tiff) : TIFFNumberOfStrips(tiff);
  for (std::uint32_t i = 0; i < parts; ++i) {
    const std::uint64_t offset = TIFFGetStrileOffset(tiff, i), bytes = TIFFGetStrileByteCount(tiff, i);
    if (offset > file.size() || bytes > file.size() - offset) return false;
  }
  return true;
}

/// Pages, without the smaller copies that some files hold of them; nothing when one of them is cut off. Leaves the
/// first directory.
std::optional<int> countPages(const TiffFile& file) {
  int pages = 1;
  for (int i = 1; i < mostPages && TIFFLastDirectory(file.handle()) == 0; ++i) {
    if (TIFFReadDirectory(file.handle()) == 0 || !hasItsPixels(file)) return std::nullopt;
    const auto kind = file.tag<std::uint32_t>(TIFFTAG_SUBFILETYPE, 0);
    if ((kind & (FILETYPE_REDUCEDIMAGE | FILETYPE_MASK)) == 0) ++pages;
  }
  return pages;
}

bool hasMetadata(const TiffFile& file) {
  std::uint32_t size = 0;
  const void* data = nullptr;
  for (const ttag_t tag : {TIFFTAG_XMLPACKET, TIFFTAG_RICHTIFFIPTC, TIFFTAG_PHOTOSHOP}) {
    if (TIFFGetField(file.handle(), tag, &size, &data) != 0) return true;
  }
  const char* text = nullptr;
  for (const ttag_t tag : {TIFFTAG_IMAGEDESCRIPTION, TIFFTAG_MAKE, TIFFTAG_MODEL, TIFFTAG_SOFTWARE, TIFFTAG_DATETIME,
                           TIFFTAG_ARTIST, TIFFTAG_COPYRIGHT}) {
    if (TIFFGetField(file.handle(), tag, &text) != 0) return true;
  }
  toff_t offset = 0;
  return TIFFGetField(file.handle(), TIFFTAG_EXIFIFD, &offset) != 0 ||
         TIFFGetField(file.handle(), TIFFTAG_GPSIFD, &offset) != 0;
}

PictureInfo infoOf(const TiffFile& file, const Page& page) {
  PictureInfo info{.type = PictureType::Tiff, .width = page.width, .height = page.height};
  const int orientation = file.tag<std::uint16_t>(TIFFTAG_ORIENTATION, 1);
  info.orientation = orientation >= 1 && orientation <= 8 ? orientation : 1;
  if (isSideways(info.orientation)) std::swap(info.width, info.height);
  info.bitsPerSample = static_cast<int>(page.bits);
  if (page.isGrey()) info.colors = PictureColors::Grey;
  if (page.photometric == PHOTOMETRIC_PALETTE) info.colors = PictureColors::Palette;
  if (page.photometric == PHOTOMETRIC_SEPARATED) info.colors = PictureColors::Cmyk;
  info.hasAlpha = page.alpha != Alpha::None;
  info.hasProfile = !file.block(TIFFTAG_ICCPROFILE).empty();
  info.hasMetadata = hasMetadata(file);
  // libtiff's own conversion makes 4 bytes of a pixel first, and may keep a whole strip beside.
  const std::size_t pixels = static_cast<std::size_t>(page.width) * static_cast<std::size_t>(page.height);
  info.workingBytes = page.isForeign ? pixels * 8 : page.cellBytes() * page.planes();
  return info;
}

/// Makes pixels of the raster from the samples of a page, a run of pixels at a time.
class PixelWriter {
 public:
  /// False (see isValid) when the palette is missing.
  PixelWriter(const TiffFile& file, const Page& page, Raster& raster) : page_(page), raster_(raster) {
    samples_.resize(static_cast<std::size_t>(page.cellWidth) * page.samples);
    if (page.photometric == PHOTOMETRIC_SEPARATED) {
      const FileBytes profile = file.block(TIFFTAG_ICCPROFILE);
      converter_ = std::make_unique<CmykConverter>(std::span(octets(profile), profile.size()), page.rasterBits());
    }
    if (page.photometric == PHOTOMETRIC_PALETTE) readPalette(file);
  }

  bool isValid() const { return page_.photometric != PHOTOMETRIC_PALETTE || !palette_.empty(); }

  /// Writes `count` pixels at x, y from one row of a cell: a pointer for each plane.
  void write(const std::vector<const std::uint8_t*>& planes, int x, int y, int count) {
    if (page_.rasterBits() == 16) {
      writeAs<std::uint16_t>(planes, x, y, static_cast<std::size_t>(count));
    } else {
      writeAs<std::uint8_t>(planes, x, y, static_cast<std::size_t>(count));
    }
  }

 private:
  void readPalette(const TiffFile& file) {
    std::array<std::uint16_t*, 3> maps{};
    if (TIFFGetField(file.handle(), TIFFTAG_COLORMAP, &maps[0], &maps[1], &maps[2]) == 0) return;
    const std::size_t colors = std::size_t{1} << page_.bits;
    // Some old writers stored 8 bits where 16 belong.
    bool isShallow = true;
    for (const auto* map : maps) {
      isShallow = isShallow && std::all_of(map, map + colors, [](std::uint16_t level) { return level < 256; });
    }
    palette_.resize(colors);
    for (std::size_t i = 0; i < colors; ++i) {
      for (std::size_t part = 0; part < 3; ++part) {
        const unsigned int level = maps[part][i];
        palette_[i][part] = static_cast<std::uint8_t>(isShallow ? level : (level * 255U + 32895U) >> 16);
      }
    }
  }

  /// Gathers the samples of the run, side by side for each pixel, spread to the raster's depth.
  void gather(const std::vector<const std::uint8_t*>& planes, std::size_t count) {
    const std::size_t each = page_.samplesPerPlane(), highest = (std::size_t{1} << page_.bits) - 1;
    const bool isScaled = page_.bits < 8 && page_.photometric != PHOTOMETRIC_PALETTE;
    for (std::size_t plane = 0; plane < planes.size(); ++plane) {
      std::uint16_t* target = &samples_[plane];
      const std::size_t step = planes.size();
      for (std::size_t i = 0; i < count * each; ++i, target += step) {
        if (page_.bits == 16) {
          std::memcpy(target, planes[plane] + 2 * i, 2);
        } else if (page_.bits == 8) {
          *target = planes[plane][i];
        } else {
          const std::size_t bit = i * page_.bits;
          const std::size_t value =
              static_cast<std::size_t>(planes[plane][bit / 8]) >> (8 - page_.bits - bit % 8) & highest;
          *target = static_cast<std::uint16_t>(isScaled ? value * 255 / highest : value);
        }
      }
    }
  }

  template <class Sample>
  void writeAs(const std::vector<const std::uint8_t*>& planes, int x, int y, std::size_t count) {
    auto* target = reinterpret_cast<Sample*>(raster_.row(y)) +
                   static_cast<std::size_t>(x) * static_cast<std::size_t>(samplesOf(raster_.layout()));
    const bool isAsIs = page_.bits == sizeof(Sample) * 8 && planes.size() == 1 && page_.alpha != Alpha::Premultiplied &&
                        (page_.photometric == PHOTOMETRIC_RGB || page_.photometric == PHOTOMETRIC_MINISBLACK) &&
                        page_.samples == static_cast<std::size_t>(samplesOf(raster_.layout()));
    if (isAsIs) {
      std::memcpy(target, planes[0], count * page_.samples * sizeof(Sample));
      return;
    }
    gather(planes, count);
    if (converter_) {
      writeInks(target, count);
      return;
    }
    constexpr std::uint32_t full = Sample(-1);
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint16_t* source = &samples_[i * page_.samples];
      Sample* const first = target;
      if (page_.photometric == PHOTOMETRIC_PALETTE) {
        for (const std::uint8_t level : palette_[source[0]]) *target++ = level;
      } else if (page_.photometric == PHOTOMETRIC_MINISWHITE) {
        *target++ = static_cast<Sample>(full - source[0]);
      } else {
        for (std::size_t part = 0; part < page_.colors; ++part) *target++ = static_cast<Sample>(source[part]);
      }
      if (page_.alpha == Alpha::None) continue;
      const std::uint32_t alpha = source[page_.colors];
      if (page_.alpha == Alpha::Premultiplied) straighten(first, target, alpha);
      *target++ = static_cast<Sample>(alpha);
    }
  }

  template <class Sample>
  static void straighten(Sample* from, Sample* to, std::uint32_t alpha) {
    constexpr std::uint32_t full = Sample(-1);
    for (; from != to; ++from) {
      *from = alpha == 0 ? Sample{0} : static_cast<Sample>(std::min(full, (*from * full + alpha / 2) / alpha));
    }
  }

  template <class Sample>
  void writeInks(Sample* target, std::size_t count) {
    std::vector<Sample> inks(count * 4), colors(count * 3);
    for (std::size_t i = 0; i < count; ++i) {
      for (std::size_t part = 0; part < 4; ++part) {
        inks[4 * i + part] = static_cast<Sample>(samples_[i * page_.samples + part]);
      }
    }
    converter_->convertRow(reinterpret_cast<const std::uint8_t*>(inks.data()),
                           reinterpret_cast<std::uint8_t*>(colors.data()), static_cast<int>(count));
    for (std::size_t i = 0; i < count; ++i) {
      for (std::size_t part = 0; part < 3; ++part) *target++ = colors[3 * i + part];
      if (page_.alpha != Alpha::None) *target++ = static_cast<Sample>(samples_[i * page_.samples + 4]);
    }
  }

  const Page& page_;
  Raster& raster_;
  std::vector<std::uint16_t> samples_;
  std::vector<std::array<std::uint8_t, 3>> palette_;
  std::unique_ptr<CmykConverter> converter_;
};

/// Reads one plane of the cell that covers x, y; false when it is not there as a whole.
bool readCell(TiffFile& file, const Page& page, int x, int y, std::size_t plane, std::vector<std::uint8_t>& cell) {
  const auto column = static_cast<std::uint32_t>(x), row = static_cast<std::uint32_t>(y);
  const auto sample = static_cast<std::uint16_t>(plane);
  std::size_t expected = page.cellBytes();
  tmsize_t count = 0;
  if (page.isTiled) {
    const auto tile = TIFFComputeTile(file.handle(), column, row, 0, sample);
    count = TIFFReadEncodedTile(file.handle(), tile, cell.data(), static_cast<tmsize_t>(cell.size()));
  } else {
    expected = page.cellStride() * static_cast<std::size_t>(std::min(page.cellHeight, page.height - y));
    const auto strip = TIFFComputeStrip(file.handle(), row, sample);
    count = TIFFReadEncodedStrip(file.handle(), strip, cell.data(), static_cast<tmsize_t>(expected));
  }
  return count >= 0 && static_cast<std::size_t>(count) == expected && !file.isHurt();
}

PictureFailure damaged(const TiffFile& file) {
  return {PictureError::Damaged, file.message().empty() ? "the file is incomplete" : file.message()};
}

std::optional<PictureFailure> decodeCells(TiffFile& file, const Page& page, Raster& raster) {
  // What libtiff would read has to be what is expected here.
  const tmsize_t cellBytes = page.isTiled ? TIFFTileSize(file.handle()) : TIFFStripSize(file.handle());
  if (cellBytes < 0 || static_cast<std::size_t>(cellBytes) != page.cellBytes()) return damaged(file);
  PixelWriter writer(file, page, raster);
  if (!writer.isValid()) return PictureFailure{PictureError::Damaged, "no palette"};
  std::vector<std::vector<std::uint8_t>> cells(page.planes(), std::vector<std::uint8_t>(page.cellBytes()));
  std::vector<const std::uint8_t*> rows(page.planes());
  file.expectPixels();
  for (int top = 0; top < page.height; top += page.cellHeight) {
    for (int left = 0; left < page.width; left += page.cellWidth) {
      for (std::size_t plane = 0; plane < cells.size(); ++plane) {
        if (!readCell(file, page, left, top, plane, cells[plane])) return damaged(file);
      }
      const int bottom = std::min(top + page.cellHeight, page.height);
      for (int y = top; y < bottom; ++y) {
        for (std::size_t plane = 0; plane < cells.size(); ++plane) {
          rows[plane] = &cells[plane][static_cast<std::size_t>(y - top) * page.cellStride()];
        }
        writer.write(rows, left, y, std::min(page.cellWidth, page.width - left));
      }
    }
  }
  return std::nullopt;
}

/// By libtiff's own conversion, which multiplies the colors with alpha and gives words of alpha, blue, green, red.
std::optional<PictureFailure> decodeForeign(TiffFile& file, const Page& page, Raster& raster) {
  const auto width = static_cast<std::uint32_t>(page.width), height = static_cast<std::uint32_t>(page.height);
  std::vector<std::uint32_t> words(std::size_t{width} * height);
  file.expectPixels();
  // The orientation asked for is the file's own, so that nothing is turned.
  const int orientation = file.tag<std::uint16_t>(TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
  if (TIFFReadRGBAImageOriented(file.handle(), width, height, words.data(), orientation, 1) == 0 || file.isHurt()) {
    return damaged(file);
  }
  const std::uint32_t* source = words.data();
  for (int y = 0; y < raster.height(); ++y) {
    std::uint8_t* target = raster.row(y);
    for (int x = 0; x < raster.width(); ++x) {
      const std::uint32_t word = *source++;
      const std::uint32_t alpha = TIFFGetA(word);
      for (const std::uint32_t level : {TIFFGetR(word), TIFFGetG(word), TIFFGetB(word)}) {
        const bool isStraight = page.alpha == Alpha::None || alpha == 0;
        *target++ = static_cast<std::uint8_t>(isStraight ? level : std::min(255U, (level * 255 + alpha / 2) / alpha));
      }
      if (page.alpha != Alpha::None) *target++ = static_cast<std::uint8_t>(alpha);
    }
  }
  return std::nullopt;
}

void readMetadata(const TiffFile& file, const Page& page, PictureMetadata& metadata) {
  const FileBytes profile = file.block(TIFFTAG_ICCPROFILE);
  const bool isUsed = page.photometric == PHOTOMETRIC_SEPARATED;
  if (!isUsed && profile.size() <= maximumProfileBytes) metadata.profile = copyOf(profile);
  metadata.xmp = copyOf(file.block(TIFFTAG_XMLPACKET));
  float resolution = 0;
  if (TIFFGetField(file.handle(), TIFFTAG_XRESOLUTION, &resolution) == 0 || !(resolution > 0)) return;
  const auto unit = file.tag<std::uint16_t>(TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
  if (unit == RESUNIT_INCH) metadata.dotsPerInch = resolution;
  if (unit == RESUNIT_CENTIMETER) metadata.dotsPerInch = resolution * centimetersPerInch;
}

}  // namespace

Result<PictureInfo, PictureFailure> inspectTiff(FileBytes bytes) {
  const TiffFile file(bytes);
  if (file.handle() == nullptr || file.isHurt()) return failure(damaged(file));
  const auto page = readPage(file);
  if (!page) return failure(page.error());
  PictureInfo info = infoOf(file, *page);
  const auto pages = countPages(file);
  if (!pages) return refused(PictureError::Damaged, "a page is incomplete");
  info.frames = *pages;
  return info;
}

Result<DecodedPicture, PictureFailure> decodeTiff(FileBytes bytes, const DecodeOptions& options) {
  TiffFile file(bytes);
  if (file.handle() == nullptr || file.isHurt()) return failure(damaged(file));
  const auto page = readPage(file);
  if (!page) return failure(page.error());
  DecodedPicture picture{.info = infoOf(file, *page)};
  auto raster = rasterFor(page->width, page->height, page->layout(), page->rasterBits());
  if (!raster) return failure(raster.error());
  auto fault = page->isForeign ? decodeForeign(file, *page, *raster) : decodeCells(file, *page, *raster);
  if (fault) return failure(std::move(*fault));
  picture.raster = std::move(*raster);
  readMetadata(file, *page, picture.metadata);
  if (options.keepsMetadata) picture.metadata.exif = exifOfTiff({octets(bytes), bytes.size()});
  if (page->photometric == PHOTOMETRIC_PALETTE) picture.palette = 1 << page->bits;
  const auto pages = countPages(file);
  if (!pages) return refused(PictureError::Damaged, "a page is incomplete");
  picture.info.frames = *pages;
  return picture;
}

}  // namespace vellora
