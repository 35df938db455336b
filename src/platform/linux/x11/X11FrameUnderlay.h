#pragma once

#include <xcb/render.h>

#include <map>
#include <memory>
#include <vector>

#include "platform/linux/x11/X11CompositeWindow.h"
#include "platform/linux/x11/X11FrameReader.h"

namespace vellora {

/// What would be on the screen without some windows. Where one of them lies, the others are put together from their own
/// pixmaps, from the bottom up; only windows that meet such a place are kept in pixmaps. A window's shadow that a
/// compositing manager draws, and translucency it gives to whole windows, are not known here.
class X11FrameUnderlay {
 public:
  /// Null when the display cannot do it. `area` on the root window, inside it.
  static std::unique_ptr<X11FrameUnderlay> make(X11Connection& connection, const PixelRect& area);
  ~X11FrameUnderlay();

  /// The windows that are missing from now on, in place of those before. `refresh` tells where that changes something.
  void leaveOut(std::vector<xcb_window_t> windows);

  /// Takes note of an event; others are ignored.
  void handle(const xcb_generic_event_t& event);
  /// Whether `refresh` or `addChanges` have something to tell.
  bool isDirty() const;
  /// Whether a window that is left out came, moved or went since `refresh`, so that what was read may show it.
  bool isOutdated() const { return leftOutMoved_; }
  /// Looks at the windows again where something about them changed. Returns the places that are others now.
  std::vector<PixelRect> refresh();
  /// Replaces what `changed` (of the root window) says about the places by what really changed there.
  void addChanges(const X11Region& changed);
  bool hasPlaces() const { return !places_.empty(); }
  /// Puts the places together.
  void compose() const;
  /// Asks for what of the places lies in `rows` of the root window, for a buffer whose corner is at `bufferOrigin`.
  void ask(X11FrameReader& reader, const PixelRect& rows, X11FrameBuffer& buffer, PixelPoint bufferOrigin) const;
  /// What the places take in memory.
  std::size_t bytes() const;
  /// Returns when the windows beneath have painted what was hidden, or after a moment.
  void waitUntilPainted();

 private:
  class Layer;
  class Ground;

  X11FrameUnderlay(X11Connection& connection, const PixelRect& area);
  void listenTo(xcb_window_t window, bool isOn) const;
  bool findFormats();
  void findTops();
  bool concernsLeftOut(const xcb_generic_event_t& event) const;
  std::vector<PixelRect> findPlaces();
  std::vector<xcb_window_t> windowsAt();
  std::vector<xcb_window_t> order() const;
  void makeCanvas();
  void freeCanvas();

  X11Connection& connection_;
  const PixelRect area_;
  std::vector<xcb_window_t> leftOut_;
  X11PixelFormat format_;
  std::map<xcb_visualid_t, xcb_render_pictformat_t> formats_;
  std::uint8_t shapeEvent_ = 0;
  bool windowsChanged_ = true;
  bool leftOutMoved_ = true;
  std::vector<xcb_window_t> tops_;  ///< the children of the root window that hold those left out
  std::vector<PixelRect> places_;   ///< on the root window
  X11Region placesRegion_;
  X11Region work_;
  std::vector<std::unique_ptr<Layer>> layers_;  ///< from the bottom up
  std::unique_ptr<Ground> ground_;
  PixelRect bounds_;  ///< of all places
  xcb_pixmap_t canvas_ = 0;
  xcb_render_picture_t canvasPicture_ = 0;
};

}  // namespace vellora
