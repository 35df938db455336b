#pragma once

#include <xcb/damage.h>
#include <xcb/xfixes.h>

#include "platform/linux/x11/X11FrameReader.h"
#include "platform/linux/x11/X11FrameSource.h"

namespace vellora {

/// Counts what is drawn into a drawable.
class X11DrawingCounter {
 public:
  /// False without the extensions.
  static bool prepare(X11Connection& connection);
  X11DrawingCounter(X11Connection& connection, xcb_drawable_t drawable);
  ~X11DrawingCounter();
  X11DrawingCounter(const X11DrawingCounter&) = delete;
  X11DrawingCounter& operator=(const X11DrawingCounter&) = delete;

  /// Whether `event` tells of drawing that was not moved away yet.
  bool handle(const xcb_generic_event_t& event);
  bool isDirty() const { return dirty_; }
  /// Moves what was drawn since the last call into `region` (of the server).
  void moveTo(xcb_xfixes_region_t region);

 private:
  X11Connection& connection_;
  xcb_damage_damage_t damage_;
  std::uint8_t event_;
  unsigned movedAt_ = 0;
  bool dirty_ = true;
};

/// A part of the desktop. What lies outside every display is black.
class X11FrameSourceArea final : public X11FrameSource {
 public:
  static Result<std::unique_ptr<X11FrameSource>, ScreenCaptureError> make(
      X11Connection& connection, const ScreenStreamConfiguration& configuration);
  ~X11FrameSourceArea() override;

  PixelSize size() const override { return area_.size(); }
  void handle(const xcb_generic_event_t& event) override;
  bool isDirty() const override { return drawn_.isDirty() || displaysChanged_; }
  Result<Rects, ScreenCaptureError> changes() override;
  std::optional<Rects> read(std::span<const RowBand> bands, X11FrameBuffer& buffer) override;
  Cursor cursor(const X11Pointer& pointer) const override;

 private:
  X11FrameSourceArea(X11Connection& connection, const PixelRect& area, const X11PixelFormat& format);
  bool findDisplays();
  xcb_xfixes_fetch_region_cookie_t askChanges();
  Rects receiveChanges(xcb_xfixes_fetch_region_cookie_t cookie);

  X11Connection& connection_;
  const PixelRect area_;
  const X11PixelFormat format_;
  X11FrameReader reader_;
  X11DrawingCounter drawn_;
  xcb_xfixes_region_t areaRegion_;
  xcb_xfixes_region_t changed_;
  std::uint8_t randrEvent_ = 0;
  bool displaysChanged_ = true;
  PixelRect onRoot_;  ///< the part of the area that the root window has, on the root window
  Rects black_;       ///< outside every display
};

}  // namespace vellora
