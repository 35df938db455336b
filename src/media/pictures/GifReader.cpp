#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "media/pictures/PictureFormats.h"

namespace vellora {
namespace {

enum Block : std::uint32_t { Image = 0x2C, Extension = 0x21, Trailer = 0x3B };
enum Label : std::uint32_t { GraphicControl = 0xF9, Comment = 0xFE };

/// What the blocks of a GIF file (version 89a) say, without the pixels.
struct Blocks {
  int width = 0;  ///< of the canvas; grown to hold the first frame
  int height = 0;
  int frames = 0;
  bool hasComments = false;
  std::optional<int> transparent;  ///< index of the first frame's transparent color
  std::array<int, 4> first{};      ///< left, top, width, height of the first frame
};

/// Walks through a file from block to block.
class BlockReader {
 public:
  explicit BlockReader(FileBytes file) : rest_(file) {}

  /// Nothing when a block is cut.
  std::optional<Blocks> read() {
    if (rest_.size() < 13) return std::nullopt;
    blocks_.width = static_cast<int>(little16(rest_, 6));
    blocks_.height = static_cast<int>(little16(rest_, 8));
    const std::uint32_t flags = byteAt(rest_, 10);
    if (!skip(13) || !skipColors(flags)) return std::nullopt;
    while (!rest_.empty()) {
      const std::uint32_t block = byteAt(rest_, 0);
      if (block == Trailer) return blocks_;
      if (block == Image ? !image() : block != Extension || !extension()) return std::nullopt;
    }
    return std::nullopt;
  }

 private:
  bool skip(std::size_t bytes) {
    if (rest_.size() < bytes) return false;
    rest_ = rest_.subspan(bytes);
    return true;
  }
  bool skipColors(std::uint32_t flags) { return (flags & 0x80) == 0 || skip(std::size_t{6} << (flags & 7)); }

  bool skipParts() {
    while (!rest_.empty()) {
      const std::size_t size = byteAt(rest_, 0);
      if (!skip(1 + size)) return false;
      if (size == 0) return true;
    }
    return false;
  }

  bool image() {
    if (rest_.size() < 10) return false;
    if (blocks_.frames++ == 0) {
      for (std::size_t i = 0; i < 4; ++i) blocks_.first[i] = static_cast<int>(little16(rest_, 1 + 2 * i));
      blocks_.width = std::max(blocks_.width, blocks_.first[0] + blocks_.first[2]);
      blocks_.height = std::max(blocks_.height, blocks_.first[1] + blocks_.first[3]);
    }
    const std::uint32_t flags = byteAt(rest_, 9);
    return skip(10) && skipColors(flags) && skip(1) && skipParts();
  }

  bool extension() {
    if (rest_.size() < 3) return false;
    const std::uint32_t label = byteAt(rest_, 1);
    if (label == Comment) blocks_.hasComments = true;
    if (label == GraphicControl && blocks_.frames == 0 && rest_.size() >= 7 && byteAt(rest_, 2) == 4) {
      blocks_.transparent.reset();
      if ((byteAt(rest_, 3) & 1) != 0) blocks_.transparent = static_cast<int>(byteAt(rest_, 6));
    }
    return skip(2) && skipParts();
  }

  FileBytes rest_;
  Blocks blocks_;
};

Result<Blocks, PictureFailure> readBlocks(FileBytes file) {
  const auto blocks = BlockReader(file).read();
  if (!blocks) return refused(PictureError::Damaged, "the file is incomplete");
  const bool isEmpty = blocks->first[2] == 0 || blocks->first[3] == 0;
  if (blocks->frames == 0 || isEmpty) return refused(PictureError::Damaged, "no pixels");
  return *blocks;
}

bool coversCanvas(const Blocks& blocks) {
  return blocks.first == std::array{0, 0, blocks.width, blocks.height};
}

PictureInfo infoOf(const Blocks& blocks) {
  PictureInfo info{.type = PictureType::Gif, .width = blocks.width, .height = blocks.height};
  info.frames = blocks.frames;
  info.isAnimated = blocks.frames > 1;
  info.colors = PictureColors::Palette;
  info.hasAlpha = blocks.transparent || !coversCanvas(blocks);
  info.hasMetadata = blocks.hasComments;
  return info;
}

struct GifClosed {
  void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};
using Gif = std::unique_ptr<GifFileType, GifClosed>;

int readSome(GifFileType* gif, GifByteType* target, int count) {
  auto& rest = *static_cast<FileBytes*>(gif->UserData);
  const std::size_t taken = std::min(rest.size(), static_cast<std::size_t>(std::max(count, 0)));
  if (taken > 0) std::memcpy(target, rest.data(), taken);
  rest = rest.subspan(taken);
  return static_cast<int>(taken);
}

/// Goes to the pixels of the first frame.
bool seekFrame(GifFileType* gif) {
  for (;;) {
    GifRecordType record = UNDEFINED_RECORD_TYPE;
    if (DGifGetRecordType(gif, &record) != GIF_OK) return false;
    if (record == IMAGE_DESC_RECORD_TYPE) return DGifGetImageDesc(gif) == GIF_OK;
    if (record != EXTENSION_RECORD_TYPE) return false;
    int code = 0;
    GifByteType* data = nullptr;
    if (DGifGetExtension(gif, &code, &data) != GIF_OK) return false;
    while (data != nullptr) {
      if (DGifGetExtensionNext(gif, &data) != GIF_OK) return false;
    }
  }
}

/// In which order the rows of an interlaced frame come (annex E).
std::vector<int> rowOrder(int height, bool isInterlaced) {
  std::vector<int> order;
  order.reserve(static_cast<std::size_t>(height));
  if (!isInterlaced) {
    for (int y = 0; y < height; ++y) order.push_back(y);
    return order;
  }
  for (const auto& [first, step] : {std::pair{0, 8}, {4, 8}, {2, 4}, {1, 2}}) {
    for (int y = first; y < height; y += step) order.push_back(y);
  }
  return order;
}

bool decodeFrame(GifFileType* gif, const ColorMapObject& colors, const Blocks& blocks, Raster& raster) {
  const GifImageDesc& frame = gif->Image;
  const std::size_t samples = raster.bytesPerPixel();
  std::vector<GifPixelType> indices(static_cast<std::size_t>(frame.Width));
  for (const int y : rowOrder(frame.Height, frame.Interlace)) {
    if (DGifGetLine(gif, indices.data(), frame.Width) != GIF_OK) return false;
    std::uint8_t* target = raster.row(frame.Top + y) + static_cast<std::size_t>(frame.Left) * samples;
    for (const GifPixelType index : indices) {
      if (index < colors.ColorCount) {  // an index outside the palette shows black
        const GifColorType& color = colors.Colors[index];
        target[0] = color.Red;
        target[1] = color.Green;
        target[2] = color.Blue;
      }
      if (samples == 4) target[3] = blocks.transparent == int{index} ? 0 : 255;
      target += samples;
    }
  }
  return true;
}

}  // namespace

Result<PictureInfo, PictureFailure> inspectGif(FileBytes file) {
  const auto blocks = readBlocks(file);
  if (!blocks) return failure(blocks.error());
  return infoOf(*blocks);
}

Result<DecodedPicture, PictureFailure> decodeGif(FileBytes file, const DecodeOptions&) {
  const auto blocks = readBlocks(file);
  if (!blocks) return failure(blocks.error());
  DecodedPicture picture{.info = infoOf(*blocks)};
  auto raster =
      rasterFor(blocks->width, blocks->height, picture.info.hasAlpha ? RasterLayout::Rgba : RasterLayout::Rgb);
  if (!raster) return failure(raster.error());
  FileBytes rest = file;
  int error = 0;
  const Gif gif(DGifOpen(&rest, readSome, &error));
  if (!gif || !seekFrame(gif.get())) return refused(PictureError::Damaged, "corrupt GIF data");
  const GifImageDesc& frame = gif->Image;
  if (std::array{frame.Left, frame.Top, frame.Width, frame.Height} != blocks->first) {
    return refused(PictureError::Damaged, "corrupt GIF data");
  }
  const ColorMapObject* colors = frame.ColorMap != nullptr ? frame.ColorMap : gif->SColorMap;
  if (colors == nullptr) return refused(PictureError::Damaged, "no palette");
  if (!decodeFrame(gif.get(), *colors, *blocks, *raster)) return refused(PictureError::Damaged, "corrupt GIF data");
  picture.raster = std::move(*raster);
  picture.palette = colors->ColorCount;
  return picture;
}

}  // namespace vellora
