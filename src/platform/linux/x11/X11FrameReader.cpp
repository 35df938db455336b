#include "platform/linux/x11/X11FrameReader.h"

namespace vellora {
namespace {

constexpr std::uint32_t allPlanes = ~std::uint32_t{0};

struct Wire {
  std::int16_t x, y;
  std::uint16_t width, height;
  explicit Wire(const PixelRect& rect)
      : x(static_cast<std::int16_t>(rect.x)),
        y(static_cast<std::int16_t>(rect.y)),
        width(static_cast<std::uint16_t>(rect.width)),
        height(static_cast<std::uint16_t>(rect.height)) {}
};

}  // namespace

void X11FrameReader::reserve(std::size_t bytes) {
  if (bytes <= stagingBytes_ || stagingRefused_) return;
  staging_.reset();
  staging_ = X11SharedSegment::create(connection_, bytes);
  stagingBytes_ = staging_ ? bytes : 0;
  stagingRefused_ = !staging_;
}

void X11FrameReader::ask(xcb_drawable_t drawable, const X11PixelFormat& format, const PixelRect& source,
                         X11FrameBuffer& buffer, PixelPoint at) {
  if (source.isEmpty()) return;
  Piece piece{.format = format, .size = source.size(), .buffer = &buffer, .at = at};
  const Wire wire(source);
  const std::size_t bytes = format.rowBytes(source.width) * static_cast<std::size_t>(source.height);
  const bool direct = buffer.segment && format.isNative() && at.x == 0 && source.width == buffer.size.width;
  const bool staged = !direct && staging_ && stagingUsed_ + bytes <= stagingBytes_;
  piece.isShared = direct || staged;
  if (piece.isShared) {
    const xcb_shm_seg_t segment = direct ? buffer.segment->id() : staging_->id();
    const std::size_t offset = direct ? buffer.rowBytes() * static_cast<std::size_t>(at.y) : stagingUsed_;
    piece.shared = xcb_shm_get_image(connection_.get(), drawable, wire.x, wire.y, wire.width, wire.height, allPlanes,
                                     XCB_IMAGE_FORMAT_Z_PIXMAP, segment, static_cast<std::uint32_t>(offset));
    if (staged) {
      piece.staged = staging_->memory().get() + stagingUsed_;
      stagingUsed_ += bytes;
    }
  } else {
    piece.plain = xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, drawable, wire.x, wire.y, wire.width,
                                wire.height, allPlanes);
  }
  asked_.push_back(piece);
}

bool X11FrameReader::receive() {
  bool complete = true;
  for (const Piece& piece : asked_) {
    if (piece.isShared) {
      const bool came = xReply(xcb_shm_get_image_reply, connection_.get(), piece.shared) != nullptr;
      if (came && piece.staged != nullptr) copy(piece, piece.staged);
      complete = complete && came;
      continue;
    }
    const auto reply = xReply(xcb_get_image_reply, connection_.get(), piece.plain);
    const std::size_t bytes = piece.format.rowBytes(piece.size.width) * static_cast<std::size_t>(piece.size.height);
    const bool came = reply && static_cast<std::size_t>(xcb_get_image_data_length(reply.get())) >= bytes;
    if (came) copy(piece, reinterpret_cast<const std::byte*>(xcb_get_image_data(reply.get())));
    complete = complete && came;
  }
  asked_.clear();
  stagingUsed_ = 0;
  return complete;
}

void X11FrameReader::copy(const Piece& piece, const std::byte* pixels) {
  const std::size_t rowBytes = piece.format.rowBytes(piece.size.width);
  for (int y = 0; y < piece.size.height; ++y) {
    convertPixels(pixels + rowBytes * static_cast<std::size_t>(y), piece.size.width, piece.format,
                  piece.buffer->row(piece.at.y + y) + static_cast<std::size_t>(piece.at.x) * 4);
  }
}

}  // namespace vellora
