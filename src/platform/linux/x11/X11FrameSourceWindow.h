#pragma once

#include "platform/linux/x11/X11CompositeWindow.h"
#include "platform/linux/x11/X11FrameReader.h"
#include "platform/linux/x11/X11FrameScaler.h"
#include "platform/linux/x11/X11FrameSource.h"

namespace vellora {

/// One window with its decorations, wherever it goes and whatever covers it. The picture keeps its size: a window of
/// another size is scaled into it. While it is not on the screen (minimized, on another workspace) nothing changes.
class X11FrameSourceWindow final : public X11FrameSource {
 public:
  static Result<std::unique_ptr<X11FrameSource>, ScreenCaptureError> make(
      X11Connection& connection, const ScreenStreamConfiguration& configuration);

  PixelSize size() const override { return size_; }
  void handle(const xcb_generic_event_t& event) override;
  bool isDirty() const override { return moved_ || top_->drawn().isDirty() || !late_.empty(); }
  Result<Rects, ScreenCaptureError> changes() override;
  std::optional<Rects> read(std::span<const RowBand> bands, X11FrameBuffer& buffer) override;
  bool isFrozen() const override { return isHidden_ || !isMapped_; }
  bool isCurrent() const override { return isMapped_; }
  Cursor cursor(const X11Pointer& pointer) const override;

 private:
  X11FrameSourceWindow(X11Connection& connection, xcb_window_t window, PixelSize size);
  /// Looks where the window is and what it is made of by now. Whether it is to be read anew; fails when it is gone.
  Result<bool, ScreenCaptureError> findWindow();
  bool isAnother(xcb_window_t top);
  bool fit();
  void watch(xcb_window_t window) const;
  xcb_xfixes_fetch_region_cookie_t askChanges();
  Rects receiveChanges(xcb_xfixes_fetch_region_cookie_t cookie);
  PixelRect inPicture(const PixelRect& ofWindow) const;
  void askRows(RowBand rows, X11FrameBuffer& buffer, PixelPoint at);
  void clearOutside(RowBand rows, X11FrameBuffer& buffer, PixelPoint at) const;
  void scale(RowBand rows, X11FrameBuffer& buffer);
  void clearMargins(RowBand rows, X11FrameBuffer& buffer) const;

  X11Connection& connection_;
  const xcb_window_t window_;
  const PixelSize size_;
  X11FrameReader reader_;
  const X11Region changed_;
  std::unique_ptr<X11CompositeWindow> top_;
  bool moved_ = true;
  bool gone_ = false;
  bool isMapped_ = true;   ///< the window itself, which may go before the frame around it
  bool isHidden_ = false;  ///< the pixmap is one from before it left the screen
  bool wasFrozen_ = false;
  PixelRect crop_;                        ///< what a person sees of the window, in its pixmap
  PixelRect place_;                       ///< where that is in the picture
  std::optional<X11FrameScaler> scaler_;  ///< nothing when it fits as it is
  Rects late_;                            ///< reported by `read`, perhaps not read
  X11FrameBuffer unscaled_;               ///< the window's own pixels, for the scaler
};

}  // namespace vellora
