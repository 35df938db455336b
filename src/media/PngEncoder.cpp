#include "media/PngEncoder.h"

#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cstring>
#include <new>
#include <optional>
#include <string_view>
#include <system_error>
#include <thread>

#include "media/PngPalette.h"
#include "media/PngStrip.h"

namespace vellora {
namespace {

constexpr std::size_t stripBytes = std::size_t{2} << 20;  // of source pixels
constexpr std::size_t leastBytesPerThread = std::size_t{256} << 10;
constexpr int maximumThreads = 8;
/// 72 pixels to the inch, in pixels per metre: one point at scale 1.
constexpr double pixelsPerMeterAtScale1 = 72 / 0.0254;
constexpr std::size_t chunkOverhead = 12;

using Bytes = std::vector<std::byte>;

std::span<const std::byte> bytesOf(std::span<const std::uint8_t> data) {
  return std::as_bytes(data);
}

std::array<std::uint8_t, 4> bigEndian(std::uint32_t value) {
  return {static_cast<std::uint8_t>(value >> 24), static_cast<std::uint8_t>(value >> 16),
          static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)};
}

void append(Bytes& file, std::span<const std::byte> data) {
  file.insert(file.end(), data.begin(), data.end());
}

/// Writes a chunk whose data comes in one or two parts.
void appendChunk(Bytes& file, std::string_view type, std::span<const std::byte> data,
                 std::span<const std::byte> more = {}) {
  append(file, bytesOf(bigEndian(static_cast<std::uint32_t>(data.size() + more.size()))));
  std::uint32_t crc = libdeflate_crc32(0, type.data(), type.size());
  if (!data.empty()) crc = libdeflate_crc32(crc, data.data(), data.size());
  if (!more.empty()) crc = libdeflate_crc32(crc, more.data(), more.size());
  append(file, std::as_bytes(std::span(type)));
  append(file, data);
  append(file, more);
  append(file, bytesOf(bigEndian(crc)));
}

/// The Adler-32 of two parts in a row from theirs (RFC 1950, 8.2): the first part's sum is counted once more in the
/// second sum for each byte of the second part.
std::uint32_t joinedAdler32(std::uint32_t first, std::uint32_t second, std::uint64_t secondBytes) {
  constexpr std::uint64_t base = 65521;
  const std::uint64_t length = secondBytes % base;
  const std::uint64_t firstLow = first & 0xFFFF, secondLow = second & 0xFFFF;
  const std::uint64_t low = (firstLow + secondLow + base - 1) % base;
  const std::uint64_t high = ((first >> 16) + (second >> 16) + length * ((firstLow + base - 1) % base)) % base;
  return static_cast<std::uint32_t>(high << 16 | low);
}

void appendHeader(Bytes& file, const Bitmap& bitmap, PngPixels pixels, const PngPalette* palette, double scale) {
  static constexpr std::array<std::uint8_t, 8> signature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  append(file, bytesOf(signature));
  const auto width = bigEndian(static_cast<std::uint32_t>(bitmap.width()));
  const auto height = bigEndian(static_cast<std::uint32_t>(bitmap.height()));
  const std::uint8_t colorType = pixels == PngPixels::Indexed ? 3 : pixels == PngPixels::Rgb ? 2 : 6;
  const std::array<std::uint8_t, 13> header{width[0],  width[1], width[2],  width[3], height[0], height[1], height[2],
                                            height[3], 8,        colorType, 0,        0,         0};
  appendChunk(file, "IHDR", bytesOf(header));
  static constexpr std::array<std::uint8_t, 1> perceptual{0};
  appendChunk(file, "sRGB", bytesOf(perceptual));
  if (std::isfinite(scale) && scale > 0 && scale <= 1000) {
    const auto density = bigEndian(static_cast<std::uint32_t>(std::lround(scale * pixelsPerMeterAtScale1)));
    const std::array<std::uint8_t, 9> resolution{density[0], density[1], density[2], density[3], density[0],
                                                 density[1], density[2], density[3], 1};
    appendChunk(file, "pHYs", bytesOf(resolution));
  }
  if (pixels != PngPixels::Indexed) return;
  std::vector<std::uint8_t> colors;
  for (const std::uint32_t color : palette->colors()) {
    colors.push_back(static_cast<std::uint8_t>(color >> 16));
    colors.push_back(static_cast<std::uint8_t>(color >> 8));
    colors.push_back(static_cast<std::uint8_t>(color));
  }
  appendChunk(file, "PLTE", bytesOf(colors));
}

/// Cuts the picture into strips and has them compressed by several threads, the calling one among them.
class StripRun {
 public:
  StripRun(const Bitmap& bitmap, PngPixels pixels, const PngPalette* palette)
      : bitmap_(bitmap), pixels_(pixels), palette_(palette) {
    const std::size_t rowBytes = static_cast<std::size_t>(bitmap.width()) * 4;
    rowsPerStrip_ = static_cast<int>(std::max<std::size_t>(1, stripBytes / rowBytes));
    strips_.resize(static_cast<std::size_t>((bitmap.height() + rowsPerStrip_ - 1) / rowsPerStrip_));
  }

  std::vector<PngStrip>& strips() { return strips_; }

  /// False when memory is short.
  bool run(int threads) {
    threads = std::min(threads, static_cast<int>(strips_.size()));
    std::vector<std::thread> helpers;
    for (int i = 1; i < threads; ++i) {
      try {
        helpers.emplace_back([this] { work(); });
      } catch (const std::system_error&) {
        break;  // the threads there are do the work
      }
    }
    work();
    for (std::thread& helper : helpers) helper.join();
    return !failed_;
  }

 private:
  void work() {
    try {
      const auto encoder = PngStripEncoder::create(bitmap_, pixels_, palette_);
      while (!failed_) {
        const std::size_t number = next_.fetch_add(1);
        if (number >= strips_.size()) return;
        const int begin = static_cast<int>(number) * rowsPerStrip_;
        const int end = std::min(begin + rowsPerStrip_, bitmap_.height());
        PngStrip& strip = strips_[number];
        if (number == 0) {
          // Deflate with a window of 32 KB, fastest level, no dictionary (RFC 1950, 2.2).
          static constexpr std::array<std::uint8_t, 2> zlibHeader{0x78, 0x01};
          if (!strip.deflated.append(bytesOf(zlibHeader))) failed_ = true;
        }
        if (!encoder->encode(begin, end, number + 1 == strips_.size(), strip)) failed_ = true;
      }
    } catch (const std::bad_alloc&) {
      failed_ = true;
    }
  }

  const Bitmap& bitmap_;
  const PngPixels pixels_;
  const PngPalette* const palette_;
  int rowsPerStrip_ = 1;
  std::vector<PngStrip> strips_;
  std::atomic<std::size_t> next_{0};
  std::atomic<bool> failed_{false};
};

int threadsFor(const Bitmap& bitmap, int wanted) {
  const int available = static_cast<int>(std::thread::hardware_concurrency());
  const int most = std::clamp(wanted > 0 ? wanted : available, 1, maximumThreads);
  const std::size_t bytes = static_cast<std::size_t>(bitmap.width()) * 4 * static_cast<std::size_t>(bitmap.height());
  return static_cast<int>(std::clamp<std::size_t>(bytes / leastBytesPerThread, 1, static_cast<std::size_t>(most)));
}

/// Whether a picture with alpha uses none.
bool isSolid(const Bitmap& bitmap) {
  for (int y = 0; y < bitmap.height(); ++y) {
    if (!isSolidRow(bitmap.row(y), static_cast<std::size_t>(bitmap.width()))) return false;
  }
  return true;
}

Result<Bytes, PngError> encode(const Bitmap& source, const PngOptions& options) {
  const Bitmap bitmap = source.alpha() == PixelAlpha::Premultiplied && isSolid(source)
                            ? Bitmap(source.row(0), source.size(), source.stride(), PixelAlpha::Opaque, source.owner())
                            : source;
  const bool opaque = bitmap.alpha() == PixelAlpha::Opaque;
  const auto palette = opaque ? PngPalette::of(bitmap) : std::nullopt;
  const PngPixels pixels = palette ? PngPixels::Indexed : opaque ? PngPixels::Rgb : PngPixels::Rgba;
  StripRun run(bitmap, pixels, palette ? &*palette : nullptr);
  if (!run.run(threadsFor(bitmap, options.threads))) return failure(PngError::OutOfMemory);

  Bytes file;
  std::size_t size = 2048;
  std::uint32_t checksum = 1;
  for (const PngStrip& strip : run.strips()) {
    size += strip.deflated.size() + chunkOverhead;
    checksum = joinedAdler32(checksum, strip.checksum, strip.filteredBytes);
  }
  file.reserve(size);
  appendHeader(file, bitmap, pixels, palette ? &*palette : nullptr, options.scale);
  for (PngStrip& strip : run.strips()) {
    const bool last = &strip == &run.strips().back();
    const auto trailer = bigEndian(checksum);
    appendChunk(file, "IDAT", strip.deflated.bytes(), last ? bytesOf(trailer) : std::span<const std::byte>());
    strip.deflated = {};
  }
  appendChunk(file, "IEND", {});
  return file;
}

}  // namespace

Result<std::vector<std::byte>, PngError> encodePng(const Bitmap& bitmap, const PngOptions& options) {
  if (bitmap.isNull() || bitmap.width() <= 0 || bitmap.height() <= 0) return failure(PngError::Empty);
  if (bitmap.width() > Bitmap::maximumEdge || bitmap.height() > Bitmap::maximumEdge) return failure(PngError::TooLarge);
  const auto rowBytes = static_cast<std::size_t>(bitmap.width()) * 4;
  if (rowBytes * static_cast<std::size_t>(bitmap.height()) > Bitmap::maximumBytes) return failure(PngError::TooLarge);
  try {
    return encode(bitmap, options);
  } catch (const std::bad_alloc&) {
    return failure(PngError::OutOfMemory);
  }
}

}  // namespace vellora
