#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <string>

#include "base/Geometry.h"

namespace vellora::test {

/// Paints a busy desktop over a part of a display: columns of text that scroll at different speeds, one of them
/// photographs where that is asked for, which are much harder to compress. Each picture is
/// numbered by a row of black and white blocks along its upper and its lower edge, large enough to survive any
/// compression, the lowest bit to the left. The server does the work, by copies: a picture costs the painter nothing
/// and the server about two milliseconds at 1920 × 1080, and comes onto the screen in one piece.
class ScenePainter {
 public:
  static constexpr int blocks = 16, blockWidth = 48, blockHeight = 32;
  enum class Content { text, textAndPhotographs };

  /// An empty frame stands for the whole screen. The window is above all others and lies under no window manager.
  explicit ScenePainter(const std::string& display, const PixelRect& frame = {}, Content content = Content::text);
  ~ScenePainter();
  ScenePainter(const ScenePainter&) = delete;
  ScenePainter& operator=(const ScenePainter&) = delete;

  /// False when the display did not answer, or is gone.
  bool isAlive() const { return xcb_connection_has_error(connection_) == 0; }
  PixelRect frame() const { return frame_; }

  /// Shows the picture with this number; returns when it is on the screen.
  void paint(int number);

 private:
  void makePage(Content content);
  void fill(const PixelRect& area, std::uint32_t color);

  xcb_connection_t* connection_;
  const xcb_screen_t* screen_ = nullptr;
  PixelRect frame_;
  xcb_window_t window_ = 0;
  xcb_pixmap_t page_ = 0;     // twice as high as the frame, its second half like its first
  xcb_pixmap_t picture_ = 0;  // the next one
  xcb_gcontext_t context_ = 0;
};

}  // namespace vellora::test
