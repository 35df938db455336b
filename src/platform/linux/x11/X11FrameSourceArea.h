#pragma once

#include <xcb/xfixes.h>

#include "platform/linux/x11/X11Drawing.h"
#include "platform/linux/x11/X11FrameReader.h"
#include "platform/linux/x11/X11FrameSource.h"
#include "platform/linux/x11/X11FrameUnderlay.h"

namespace vellora {

/// A part of the desktop. What lies outside every display is black.
class X11FrameSourceArea final : public X11FrameSource {
 public:
  static Result<std::unique_ptr<X11FrameSource>, ScreenCaptureError> make(
      X11Connection& connection, const ScreenStreamConfiguration& configuration);

  PixelSize size() const override { return area_.size(); }
  void handle(const xcb_generic_event_t& event) override;
  bool isDirty() const override { return drawn_.isDirty() || displaysChanged_ || (underlay_ && underlay_->isDirty()); }
  Result<Rects, ScreenCaptureError> changes() override;
  std::optional<Rects> read(std::span<const RowBand> bands, X11FrameBuffer& buffer) override;
  bool isCurrent() const override { return !underlay_ || !underlay_->isOutdated(); }
  Cursor cursor(const X11Pointer& pointer) const override;
  void leaveOut(const std::vector<WindowId>& windows) override;

 private:
  X11FrameSourceArea(X11Connection& connection, const PixelRect& area, const X11PixelFormat& format);
  bool findDisplays();
  void reserve();
  xcb_xfixes_fetch_region_cookie_t askChanges();
  Rects receiveChanges(xcb_xfixes_fetch_region_cookie_t cookie);

  X11Connection& connection_;
  const PixelRect area_;
  const X11PixelFormat format_;
  X11FrameReader reader_;
  X11DrawingCounter drawn_;
  const X11Region areaRegion_;
  const X11Region changed_;
  std::unique_ptr<X11FrameUnderlay> underlay_;  ///< null while nothing was ever left out
  std::uint8_t randrEvent_ = 0;
  bool displaysChanged_ = true;
  PixelRect onRoot_;  ///< the part of the area that the root window has, on the root window
  Rects black_;       ///< outside every display
};

}  // namespace vellora
