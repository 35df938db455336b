#include "editor/CapturePiece.h"

#include <atomic>

#include "media/SharedPng.h"

namespace vellora {

CapturePiece makePiece(const Bitmap& image, double scale, std::shared_ptr<SharedPng> png) {
  static std::atomic<std::uint64_t> lastId{0};
  CapturePiece piece;
  piece.id = ++lastId;
  piece.image = image;
  piece.png = png ? std::move(png) : std::make_shared<SharedPng>(image, scale);
  piece.scale = scale;
  piece.pointSize = {image.width() / scale, image.height() / scale};
  piece.sourceSize = piece.pointSize;
  piece.visibleRect = {{0, 0}, piece.sourceSize};
  return piece;
}

}  // namespace vellora
