#pragma once

#include <xcb/damage.h>
#include <xcb/xfixes.h>

#include <vector>

#include "base/Geometry.h"
#include "platform/linux/x11/X11Connection.h"

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

/// A region of the server, as long as it lives.
class X11Region {
 public:
  explicit X11Region(X11Connection& connection, const std::vector<PixelRect>& rects = {});
  ~X11Region();
  X11Region(const X11Region&) = delete;
  X11Region& operator=(const X11Region&) = delete;

  xcb_xfixes_region_t id() const { return id_; }
  void set(const std::vector<PixelRect>& rects);

 private:
  X11Connection& connection_;
  xcb_xfixes_region_t id_;
};

/// The rectangles of a region that was asked for, moved by `by`.
std::vector<PixelRect> receiveRegion(X11Connection& connection, xcb_xfixes_fetch_region_cookie_t cookie, PixelPoint by);

}  // namespace vellora
