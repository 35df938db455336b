#include "editor/rendering/PixelSource.h"

#include <algorithm>
#include <cstring>

namespace vellora {
namespace {

/// The picture with rows on word borders.
Bitmap aligned(const Bitmap& picture) {
  if (reinterpret_cast<std::uintptr_t>(picture.row(0)) % 4 == 0 && picture.stride() % 4 == 0) return picture;
  auto copy = MutableBitmap::create(picture.size(), picture.alpha());
  if (!copy) return picture;
  for (int y = 0; y < picture.height(); ++y) {
    std::memcpy(copy->row(y), picture.row(y), static_cast<std::size_t>(picture.width()) * 4);
  }
  return std::move(*copy).finish();
}

bool sameCover(const PixelCover& a, const PixelCover& b) {
  return a.pixels == b.pixels && (a.grid == b.grid || *a.grid == *b.grid);
}

std::uint32_t average(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
  constexpr std::uint32_t even = 0x00FF00FFU;
  constexpr std::uint32_t half = 0x00020002U;
  const std::uint32_t low = ((a & even) + (b & even) + (c & even) + (d & even) + half) >> 2;
  const std::uint32_t high = (((a >> 8) & even) + ((b >> 8) & even) + ((c >> 8) & even) + ((d >> 8) & even) + half)
                             << 6;
  return (low & even) | (high & ~even);
}

}  // namespace

PixelSource::PixelSource(const Bitmap& picture) : picture_(aligned(picture)) {
  while (std::max(picture_.width(), picture_.height()) >> lastLevel_ > 1) ++lastLevel_;
  levels_.resize(static_cast<std::size_t>(lastLevel_));
}

PixelSize PixelSource::size(int level) const {
  const int round = (1 << level) - 1;
  return {(picture_.width() + round) >> level, (picture_.height() + round) >> level};
}

void PixelSource::invalidate(const PixelRect& pixels) {
  for (int level = 1; level <= lastLevel_; ++level) {
    Level& kept = levels_[static_cast<std::size_t>(level) - 1];
    if (!kept.pixels) continue;
    const int shift = level + 8;  // a tile's edge is 2^8
    static_assert(tileEdge == 1 << 8);
    for (int row = pixels.y >> shift; row <= (pixels.bottom() - 1) >> shift; ++row) {
      for (int column = pixels.x >> shift; column <= (pixels.right() - 1) >> shift; ++column) {
        kept.ready[static_cast<std::size_t>(row * tilesAcross(level) + column)] = false;
      }
    }
  }
}

void PixelSource::setCovers(std::vector<PixelCover> covers) {
  const PixelRect all{0, 0, picture_.width(), picture_.height()};
  for (PixelCover& cover : covers) cover.pixels = cover.pixels.intersected(all);
  std::erase_if(covers, [](const PixelCover& cover) { return cover.pixels.isEmpty(); });

  std::vector<PixelRect> changed;
  for (std::size_t i = 0; i < std::max(covers.size(), covers_.size()); ++i) {
    const bool both = i < covers.size() && i < covers_.size();
    if (both && sameCover(covers[i], covers_[i])) continue;
    if (i < covers.size()) changed.push_back(covers[i].pixels);
    if (i < covers_.size()) changed.push_back(covers_[i].pixels);
  }
  covers_ = std::move(covers);
  if (changed.empty()) return;

  if (covered_.empty()) covered_.resize(static_cast<std::size_t>(tilesAcross(0)) * tilesDown(0));
  const auto forTilesOf = [this](const PixelRect& pixels, auto&& action) {
    for (int row = pixels.y / tileEdge; row <= (pixels.bottom() - 1) / tileEdge; ++row) {
      for (int column = pixels.x / tileEdge; column <= (pixels.right() - 1) / tileEdge; ++column) {
        action(covered_[static_cast<std::size_t>(row * tilesAcross(0) + column)]);
      }
    }
  };
  for (const PixelRect& pixels : changed) {
    invalidate(pixels);
    forTilesOf(pixels, [](Tile& tile) { tile.state = TileState::Plain; });
  }
  for (const PixelCover& cover : covers_) {
    forTilesOf(cover.pixels, [](Tile& tile) {
      if (tile.state == TileState::Plain) tile.state = TileState::Stale;
    });
  }
  for (Tile& tile : covered_) {
    if (tile.state == TileState::Plain) tile.pixels.reset();
  }
}

void PixelSource::coverTile(int column, int row) {
  Tile& tile = covered_[static_cast<std::size_t>(row * tilesAcross(0) + column)];
  const PixelRect place = PixelRect{column * tileEdge, row * tileEdge, tileEdge, tileEdge}.intersected(
      {0, 0, picture_.width(), picture_.height()});
  if (!tile.pixels) tile.pixels = std::make_unique_for_overwrite<std::uint32_t[]>(tileEdge * tileEdge);
  for (int y = 0; y < place.height; ++y) {
    std::memcpy(tile.pixels.get() + y * tileEdge, plainRow(place.y + y) + place.x,
                static_cast<std::size_t>(place.width) * 4);
  }
  std::array<int, tileEdge> columns{};
  for (const PixelCover& cover : covers_) {
    const PixelRect part = cover.pixels.intersected(place);
    if (part.isEmpty()) continue;
    for (int x = 0; x < part.width; ++x) {
      columns[static_cast<std::size_t>(x)] = cover.grid->columnAt(cover.x.centre(part.x + x));
    }
    for (int y = part.y; y < part.bottom(); ++y) {
      const std::uint32_t* cells = cover.grid->rowAt(cover.y.centre(y));
      std::uint32_t* out = tile.pixels.get() + (y - place.y) * tileEdge + (part.x - place.x);
      for (int x = 0; x < part.width; ++x) out[x] = cells[columns[static_cast<std::size_t>(x)]];
    }
  }
  tile.state = TileState::Ready;
}

void PixelSource::reduceTile(int level, int column, int row) {
  Level& kept = levels_[static_cast<std::size_t>(level) - 1];
  const PixelSize full = size(level);
  const PixelSize below = size(level - 1);
  const PixelRect place =
      PixelRect{column * tileEdge, row * tileEdge, tileEdge, tileEdge}.intersected({0, 0, full.width, full.height});
  const int begin = place.x * 2;
  const int end = std::min(place.right() * 2, below.width);
  const int pairs = (end - begin) / 2;
  std::vector<std::uint32_t> scratchA;
  std::vector<std::uint32_t> scratchB;
  for (int y = place.y; y < place.bottom(); ++y) {
    const std::uint32_t* a = this->row(level - 1, 2 * y, begin, end, scratchA);
    const std::uint32_t* b = this->row(level - 1, std::min(2 * y + 1, below.height - 1), begin, end, scratchB);
    std::uint32_t* out = kept.pixels.get() + static_cast<std::size_t>(y) * full.width + place.x;
    for (int x = 0; x < pairs; ++x) out[x] = average(a[2 * x], a[2 * x + 1], b[2 * x], b[2 * x + 1]);
    if (pairs < place.width) out[pairs] = average(a[2 * pairs], a[2 * pairs], b[2 * pairs], b[2 * pairs]);
  }
  kept.ready[static_cast<std::size_t>(row * tilesAcross(level) + column)] = true;
}

const std::uint32_t* PixelSource::row(int level, int y, int begin, int end, std::vector<std::uint32_t>& scratch) {
  const int firstTile = begin / tileEdge;
  const int lastTile = (end - 1) / tileEdge;
  const int tileRow = y / tileEdge;
  const int across = tilesAcross(level);
  if (level > 0) {
    Level& kept = levels_[static_cast<std::size_t>(level) - 1];
    const PixelSize full = size(level);
    if (!kept.pixels) {
      kept.pixels = std::make_unique_for_overwrite<std::uint32_t[]>(static_cast<std::size_t>(full.width) * full.height);
      kept.ready.assign(static_cast<std::size_t>(across) * tilesDown(level), false);
    }
    for (int tile = firstTile; tile <= lastTile; ++tile) {
      if (!kept.ready[static_cast<std::size_t>(tileRow * across + tile)]) reduceTile(level, tile, tileRow);
    }
    return kept.pixels.get() + static_cast<std::size_t>(y) * full.width + begin;
  }

  const std::uint32_t* plain = plainRow(y);
  if (covered_.empty()) return plain + begin;
  const Tile* tiles = covered_.data() + static_cast<std::size_t>(tileRow) * across;
  const bool isPlain = std::all_of(tiles + firstTile, tiles + lastTile + 1,
                                   [](const Tile& tile) { return tile.state == TileState::Plain; });
  if (isPlain) return plain + begin;

  scratch.resize(static_cast<std::size_t>(end - begin));
  for (int column = firstTile; column <= lastTile; ++column) {
    if (tiles[column].state == TileState::Stale) coverTile(column, tileRow);
    const int from = std::max(begin, column * tileEdge);
    const int to = std::min(end, (column + 1) * tileEdge);
    const std::uint32_t* pixels = plain + from;
    if (tiles[column].state == TileState::Ready) {
      pixels = tiles[column].pixels.get() + (y % tileEdge) * tileEdge + (from - column * tileEdge);
    }
    std::memcpy(scratch.data() + (from - begin), pixels, static_cast<std::size_t>(to - from) * 4);
  }
  return scratch.data();
}

}  // namespace vellora
