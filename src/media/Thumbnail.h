#pragma once

#include <optional>
#include <span>

#include "base/Bitmap.h"

namespace vellora {

/// One picture and the place, in points, that its whole bitmap fills.
struct ThumbnailPiece {
  Bitmap image;
  Rect frame;
};

/// The size of a thumbnail in pixels, and the radius of its corners.
inline constexpr PixelSize thumbnailSize{96, 60};
inline constexpr double thumbnailRadius = 6;

/// Draws `pieces`, in order, small: white with rounded corners, filled by the contents of `all` (the union of the
/// frames), which are centred sideways, begin at the top edge and are cut where they overflow. Every source pixel
/// counts where a piece shrinks; where it grows it is smoothed. Premultiplied. Nothing when `all` is empty or not
/// finite. Any thread.
std::optional<Bitmap> renderThumbnail(std::span<const ThumbnailPiece> pieces, const Rect& all);

}  // namespace vellora
