#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "base/Bitmap.h"
#include "editor/rendering/CellGrid.h"

namespace vellora {

/// A part of a picture that is shown as the cells of a redaction.
struct PixelCover {
  PixelRect pixels;  ///< in the picture
  std::shared_ptr<const CellGrid> grid;
  PixelAxis x;
  PixelAxis y;
};

/// A picture to be drawn at any size: its pixels with redactions applied, and the same at half size, quarter size and
/// so on. Everything but the picture itself is made in tiles when it is first read, so that a redaction that moves and
/// a view that shows a part cost only what they touch. Covered pixels can be read at no size. One thread at a time.
class PixelSource {
 public:
  /// `picture` is not null.
  explicit PixelSource(const Bitmap& picture);

  bool isOpaque() const { return picture_.alpha() == PixelAlpha::Opaque; }
  PixelSize size(int level = 0) const;
  int lastLevel() const { return lastLevel_; }

  /// Replaces what is covered, in the order of drawing.
  void setCovers(std::vector<PixelCover> covers);

  /// The pixels from `begin` to before `end` of a row of a level; valid until `scratch` or the covers change. The alpha
  /// of an opaque picture's pixels has any value.
  const std::uint32_t* row(int level, int y, int begin, int end, std::vector<std::uint32_t>& scratch);

 private:
  static constexpr int tileEdge = 256;
  enum class TileState : std::uint8_t { Plain, Stale, Ready };
  struct Tile {
    TileState state = TileState::Plain;
    std::unique_ptr<std::uint32_t[]> pixels;
  };
  struct Level {
    std::unique_ptr<std::uint32_t[]> pixels;
    std::vector<bool> ready;
  };

  int tilesAcross(int level) const { return (size(level).width + tileEdge - 1) / tileEdge; }
  int tilesDown(int level) const { return (size(level).height + tileEdge - 1) / tileEdge; }
  const std::uint32_t* plainRow(int y) const { return reinterpret_cast<const std::uint32_t*>(picture_.row(y)); }
  void invalidate(const PixelRect& pixels);
  void coverTile(int column, int row);
  void reduceTile(int level, int column, int row);

  Bitmap picture_;
  int lastLevel_ = 0;
  std::vector<PixelCover> covers_;
  std::vector<Tile> covered_;  ///< empty without covers
  std::vector<Level> levels_;  ///< from half size on
};

}  // namespace vellora
