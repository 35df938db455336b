#include "media/pictures/PngRows.h"

#include <algorithm>
#include <array>
#include <new>

#include "media/pictures/FewColors.h"

namespace vellora {
namespace {

constexpr std::size_t largestPalette = 256;

/// What a picture's samples could do without.
struct Content {
  bool isOpaque = true;
  bool isGrey = true;
  bool repeatsBytes = true;  ///< 16 bits that say no more than 8
  int greyDepth = 1;         ///< bits that hold every grey exactly, for 8-bit ones
};

int depthOfGrey(std::uint8_t grey) {
  if (grey == 0 || grey == 255) return 1;
  if (grey % 85 == 0) return 2;
  return grey % 17 == 0 ? 4 : 8;
}

template <class Sample>
Content look(const Raster& raster) {
  const int channels = samplesOf(raster.layout());
  constexpr auto full = static_cast<Sample>(~Sample{0});
  Content content;
  for (int y = 0; y < raster.height(); ++y) {
    const auto* pixel = reinterpret_cast<const Sample*>(raster.row(y));
    for (int x = 0; x < raster.width(); ++x, pixel += channels) {
      if (hasAlpha(raster.layout()) && pixel[channels - 1] != full) content.isOpaque = false;
      if (channels >= 3 && (pixel[0] != pixel[1] || pixel[1] != pixel[2])) content.isGrey = false;
      if constexpr (sizeof(Sample) == 2) {
        for (int i = 0; i < channels; ++i)
          if (pixel[i] >> 8 != (pixel[i] & 0xFF)) content.repeatsBytes = false;
      } else if (content.greyDepth < 8) {
        content.greyDepth = std::max(content.greyDepth, depthOfGrey(pixel[0]));
      }
    }
  }
  return content;
}

Raster inEightBits(const Raster& raster) {
  std::optional<Raster> result = Raster::create(raster.width(), raster.height(), raster.layout(), 8);
  if (!result) throw std::bad_alloc();
  for (int y = 0; y < raster.height(); ++y) {
    const auto* from = reinterpret_cast<const std::uint16_t*>(raster.row(y));
    std::uint8_t* to = result->row(y);
    for (std::size_t i = 0; i < result->stride(); ++i) to[i] = static_cast<std::uint8_t>(from[i] >> 8);
  }
  return *result;
}

PngRows emptyRows(const Raster& raster, PngColor color, int depth, int channels) {
  PngRows rows;
  rows.width = raster.width();
  rows.height = raster.height();
  rows.color = color;
  rows.depth = depth;
  const std::size_t bits = static_cast<std::size_t>(channels) * static_cast<std::size_t>(depth);
  rows.rowBytes = (bits * static_cast<std::size_t>(raster.width()) + 7) / 8;
  rows.pixelBytes = std::max<std::size_t>(bits / 8, 1);
  rows.bytes.resize(rows.rowBytes * static_cast<std::size_t>(raster.height()));
  return rows;
}

/// Puts values of `depth` bits side by side, the first in the highest bits.
class BitWriter {
 public:
  BitWriter(std::uint8_t* to, int depth) : to_(to), depth_(depth) {}
  void put(unsigned value) {
    left_ -= depth_;
    *to_ = static_cast<std::uint8_t>(*to_ | value << left_);
    if (left_ != 0) return;
    left_ = 8;
    ++to_;
  }

 private:
  std::uint8_t* to_;
  int depth_;
  int left_ = 8;
};

/// The samples of every pixel that say something, as they are.
PngRows plainRows(const Raster& raster, const Content& content) {
  const int from = samplesOf(raster.layout());
  const bool isGrey = from <= 2 || content.isGrey;
  const bool keepsAlpha = hasAlpha(raster.layout()) && !content.isOpaque;
  const int to = (isGrey ? 1 : 3) + (keepsAlpha ? 1 : 0);
  const PngColor color =
      isGrey ? (keepsAlpha ? PngColor::GrayAlpha : PngColor::Gray) : (keepsAlpha ? PngColor::Rgba : PngColor::Rgb);
  const int depth = color == PngColor::Gray && raster.bitsPerSample() == 8 ? content.greyDepth : raster.bitsPerSample();
  PngRows rows = emptyRows(raster, color, depth, to);
  std::array<int, 4> places{};
  for (int i = 0; i < to; ++i) places[static_cast<std::size_t>(i)] = i;
  if (keepsAlpha) places[static_cast<std::size_t>(to - 1)] = from - 1;
  for (int y = 0; y < raster.height(); ++y) {
    std::uint8_t* out = rows.bytes.data() + rows.rowBytes * static_cast<std::size_t>(y);
    if (depth == 16) {
      const auto* pixel = reinterpret_cast<const std::uint16_t*>(raster.row(y));
      for (int x = 0; x < raster.width(); ++x, pixel += from)
        for (int i = 0; i < to; ++i) {
          const std::uint16_t sample = pixel[places[static_cast<std::size_t>(i)]];
          *out++ = static_cast<std::uint8_t>(sample >> 8);
          *out++ = static_cast<std::uint8_t>(sample);
        }
    } else if (depth == 8) {
      const std::uint8_t* pixel = raster.row(y);
      for (int x = 0; x < raster.width(); ++x, pixel += from)
        for (int i = 0; i < to; ++i) *out++ = pixel[places[static_cast<std::size_t>(i)]];
    } else {
      BitWriter bits(out, depth);
      const std::uint8_t* pixel = raster.row(y);
      for (int x = 0; x < raster.width(); ++x, pixel += from) bits.put(pixel[0] >> (8 - depth));
    }
  }
  return rows;
}

std::uint32_t colorOf(const std::uint8_t* pixel, int channels) {
  const std::uint32_t alpha = channels % 2 == 0 ? pixel[channels - 1] : 255U;
  if (channels <= 2) return pixel[0] * 0x010101U | alpha << 24;
  return pixel[0] | pixel[1] << 8U | static_cast<std::uint32_t>(pixel[2]) << 16 | alpha << 24;
}

Raster asRgba(const Raster& raster) {
  const int channels = samplesOf(raster.layout());
  if (channels == 4) return raster;
  std::optional<Raster> result = Raster::create(raster.width(), raster.height(), RasterLayout::Rgba, 8);
  if (!result) throw std::bad_alloc();
  for (int y = 0; y < raster.height(); ++y) {
    const std::uint8_t* pixel = raster.row(y);
    std::uint8_t* to = result->row(y);
    for (int x = 0; x < raster.width(); ++x, pixel += channels)
      for (const std::uint32_t color = colorOf(pixel, channels); const int shift : {0, 8, 16, 24})
        *to++ = static_cast<std::uint8_t>(color >> shift);
  }
  return *result;
}

int paletteDepth(std::size_t colors) {
  if (colors <= 2) return 1;
  if (colors <= 4) return 2;
  return colors <= 16 ? 4 : 8;
}

/// Colors with transparency first, so that tRNS is short; then from dark to light, so that neighbors in the picture are
/// near in numbers.
std::vector<std::uint32_t> ordered(std::vector<std::uint32_t> colors) {
  const auto rank = [](std::uint32_t color) {
    const std::uint32_t light = 2 * (color & 0xFF) + 5 * (color >> 8 & 0xFF) + (color >> 16 & 0xFF);
    return std::array{color >> 24 == 255 ? 1U : 0U, light, color};
  };
  std::sort(colors.begin(), colors.end(), [&](std::uint32_t a, std::uint32_t b) { return rank(a) < rank(b); });
  return colors;
}

std::optional<PngRows> paletteRows(const Raster& raster) {
  const Raster rgba = asRgba(raster);
  const std::optional<FewColors> few = FewColors::of(rgba, largestPalette);
  if (!few) return std::nullopt;
  const std::vector<std::uint32_t> colors = ordered(few->colors());
  std::array<std::uint8_t, largestPalette> places{};
  for (std::size_t i = 0; i < colors.size(); ++i) places[few->indexOf(colors[i])] = static_cast<std::uint8_t>(i);
  PngRows rows = emptyRows(raster, PngColor::Indexed, paletteDepth(colors.size()), 1);
  for (const std::uint32_t color : colors) {
    for (const int shift : {0, 8, 16}) rows.palette.push_back(static_cast<std::uint8_t>(color >> shift));
    if (color >> 24 != 255) rows.transparency.push_back(static_cast<std::uint8_t>(color >> 24));
  }
  for (int y = 0; y < raster.height(); ++y) {
    BitWriter bits(rows.bytes.data() + rows.rowBytes * static_cast<std::size_t>(y), rows.depth);
    const std::uint8_t* row = rgba.row(y);
    std::uint32_t lastColor = ~colorAt(row, 0);
    std::uint8_t place = 0;
    for (int x = 0; x < raster.width(); ++x) {
      const std::uint32_t color = colorAt(row, x);
      if (color != lastColor) place = places[few->indexOf(color)];
      lastColor = color;
      bits.put(place);
    }
  }
  return rows;
}

}  // namespace

std::vector<PngRows> exactRows(const Raster& raster, bool allowsGrey) {
  std::vector<PngRows> kinds;
  Raster source = raster;
  Content content = raster.bitsPerSample() == 16 ? look<std::uint16_t>(raster) : look<std::uint8_t>(raster);
  if (raster.bitsPerSample() == 16 && content.repeatsBytes) {
    source = inEightBits(raster);
    content = look<std::uint8_t>(source);
  }
  if (samplesOf(source.layout()) >= 3 && !allowsGrey) content.isGrey = false;
  if (source.bitsPerSample() == 8)
    if (auto palette = paletteRows(source)) kinds.push_back(std::move(*palette));
  const bool paletteSaysLess = !kinds.empty() && !content.isGrey;
  // Three or four samples hardly ever beat a palette; grey often does.
  if (!paletteSaysLess) kinds.push_back(plainRows(source, content));
  return kinds;
}

}  // namespace vellora
