#include "platform/linux/x11/X11ScreenCapture.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <optional>

#include "base/Log.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Displays.h"
#include "platform/linux/x11/X11Image.h"
#include "platform/linux/x11/X11WindowImage.h"
#include "platform/linux/x11/X11Windows.h"

namespace vellora {

using Picture = Result<Bitmap, ScreenCaptureError>;

class X11ScreenCapture::Session {
 public:
  explicit Session(std::string display) : display_(std::move(display)) {}

  std::mutex& mutex() { return mutex_; }

  /// Connects when that was not tried yet; false when there is no connection.
  bool connect() {
    if (!tried_) {
      tried_ = true;
      connection_ = X11Connection::open(display_);
      if (connection_) {
        reader_.emplace(*connection_);
        windowImage_.emplace(*connection_, *reader_);
      }
    }
    return connection_ != nullptr && !connection_->isBroken();
  }

  Result<ShareableContent, ScreenCaptureError> content() {
    ShareableContent content{readDisplays(*connection_), readWindows(*connection_)};
    if (connection_->isBroken()) return failure(ScreenCaptureError::NotAvailable);
    return content;
  }

  Picture display(DisplayId id) {
    // A display that changes between finding and reading it is looked for once more.
    constexpr int attempts = 2;
    for (int attempt = 0; attempt < attempts; ++attempt) {
      const std::vector<DisplayInfo> displays = readDisplays(*connection_);
      const auto found = std::ranges::find(displays, id, &DisplayInfo::id);
      if (found == displays.end()) break;
      auto picture = region(found->frame, displays);
      if (picture || picture.error() != ScreenCaptureError::NoDisplay) return picture;
    }
    return failure(lost());
  }

  Picture region(const PixelRect& wanted) {
    // X positions have 16 bits; beyond them there is no display, and sums of positions stay far from overflowing.
    constexpr int furthest = 1 << 16;
    const bool sane = std::abs(std::int64_t{wanted.x}) <= furthest && std::abs(std::int64_t{wanted.y}) <= furthest &&
                      wanted.width <= furthest && wanted.height <= furthest;
    if (!sane) return failure(ScreenCaptureError::NoDisplay);
    return region(wanted, readDisplays(*connection_));
  }

  Picture window(WindowId id) { return windowImage_->take(id); }

 private:
  ScreenCaptureError lost() const {
    return connection_->isBroken() ? ScreenCaptureError::NotAvailable : ScreenCaptureError::NoDisplay;
  }

  Picture region(const PixelRect& wanted, const std::vector<DisplayInfo>& displays) {
    std::vector<PixelRect> parts;
    for (const DisplayInfo& display : displays) {
      const PixelRect part = display.frame.intersected(wanted);
      if (!part.isEmpty()) parts.push_back(part);
    }
    if (parts.empty()) return failure(lost());
    const auto format =
        x11PixelFormat(*connection_, connection_->screen()->root_depth, connection_->screen()->root_visual);
    if (!format) {
      log::warning(QStringLiteral("screen capture failed: the display's colours are not direct ones"));
      return failure(ScreenCaptureError::Failed);
    }
    auto bitmap = MutableBitmap::create(wanted.size(), PixelAlpha::Opaque);
    if (!bitmap) return failure(ScreenCaptureError::Failed);
    const auto whole = std::ranges::find(parts, wanted);
    if (whole != parts.end()) {
      if (!reader_->read(connection_->root(), *format, wanted, *bitmap, {0, 0}, X11ImageReader::ServerGrab::Take)) {
        return failure(lost());
      }
      return std::move(*bitmap).finish();
    }
    for (int y = 0; y < wanted.height; ++y) std::memset(bitmap->row(y), 0, bitmap->stride());
    const X11ServerGrab held(*connection_);
    for (const PixelRect& part : parts) {
      if (!reader_->read(connection_->root(), *format, part, *bitmap, {part.x - wanted.x, part.y - wanted.y},
                         X11ImageReader::ServerGrab::AlreadyHeld)) {
        return failure(lost());
      }
    }
    return std::move(*bitmap).finish();
  }

  std::mutex mutex_;
  // Guarded by mutex_:
  const std::string display_;
  bool tried_ = false;
  std::unique_ptr<X11Connection> connection_;
  std::optional<X11ImageReader> reader_;
  std::optional<X11WindowImage> windowImage_;
};

X11ScreenCapture::X11ScreenCapture(std::string display) : session_(std::make_unique<Session>(std::move(display))) {}
X11ScreenCapture::~X11ScreenCapture() = default;

Result<ShareableContent, ScreenCaptureError> X11ScreenCapture::shareableContent() {
  const std::lock_guard lock(session_->mutex());
  if (!session_->connect()) return failure(ScreenCaptureError::NotAvailable);
  return session_->content();
}

Picture X11ScreenCapture::displayImage(DisplayId display) {
  const std::lock_guard lock(session_->mutex());
  if (!session_->connect()) return failure(ScreenCaptureError::NotAvailable);
  return session_->display(display);
}

Picture X11ScreenCapture::regionImage(const PixelRect& region) {
  const std::lock_guard lock(session_->mutex());
  if (!session_->connect()) return failure(ScreenCaptureError::NotAvailable);
  return session_->region(region);
}

Picture X11ScreenCapture::windowImage(WindowId window) {
  const std::lock_guard lock(session_->mutex());
  if (!session_->connect()) return failure(ScreenCaptureError::NotAvailable);
  return session_->window(window);
}

}  // namespace vellora
