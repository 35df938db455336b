#include "support/ScenePainter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace vellora::test {
namespace {

constexpr std::uint32_t paper = 0xF7F8FA, ink = 0x202428, softInk = 0x9AA0A6, white = 0xFFFFFF, black = 0;
constexpr int cellWidth = 9, cellHeight = 20, glyphWidth = 7, glyphHeight = 12;
constexpr int columns = 3;
constexpr std::array<int, columns> speeds{2, 7, 4};  // pixels a picture

/// The same on every run.
class Random {
 public:
  int below(int limit) {
    state_ = state_ * 1664525 + 1013904223;
    return static_cast<int>((state_ >> 8) % static_cast<std::uint32_t>(limit));
  }

 private:
  std::uint32_t state_ = 1;
};

/// Some rows of pixels, with what looks like letters from afar: strokes with soft edges.
class Band {
 public:
  explicit Band(int width) : width_(width), pixels_(static_cast<std::size_t>(width) * cellHeight, paper) {}

  void write(int x, Random& random) {
    const int stem = random.below(3);
    if (stem < 2) stroke(x + stem * (glyphWidth - 3), 0, 2, glyphHeight);
    stroke(x, random.below(3) * (glyphHeight / 2 - 1), glyphWidth, 2);
    if (random.below(2) == 0) stroke(x + glyphWidth - 2, glyphHeight / 3, 2, glyphHeight / 2);
  }
  void set(int x, int y, std::uint32_t color) { pixels_.at(static_cast<std::size_t>(y * width_ + x)) = color; }
  const std::vector<std::uint32_t>& pixels() const { return pixels_; }

 private:
  void stroke(int x, int y, int width, int height) {
    constexpr int top = (cellHeight - glyphHeight) / 2;
    for (int row = y; row < y + height; ++row) {
      for (int column = x; column <= std::min(x + width, width_ - 1); ++column)
        set(column, top + row, column < x + width ? ink : softInk);
    }
  }

  int width_;
  std::vector<std::uint32_t> pixels_;
};

Band lineOfText(int width, Random& random) {
  Band band(width);
  for (int column = 0; column < columns; ++column) {
    const int left = column * width / columns + 2 * cellWidth;
    const int room = width / columns - 4 * cellWidth;
    const int end = left + room / 4 + (room > 0 ? random.below(room) * 3 / 4 : 0);
    int word = 1 + random.below(9);
    for (int x = left; x + cellWidth < end; x += cellWidth) {
      if (word-- > 0) {
        band.write(x, random);
      } else {
        word = 1 + random.below(9);
      }
    }
  }
  return band;
}

/// Waves of many lengths, with the grain of a camera's sensor.
std::uint32_t photographAt(int x, int y, Random& random) {
  const double u = x, v = y;
  const double wave = std::sin(u / 61 + std::sin(v / 47)) + std::sin(v / 23 - u / 91) + std::sin((u + v) / 9) / 4;
  const double grain = random.below(17) - 8;
  const auto channel = [&](double strength) {
    return static_cast<std::uint32_t>(std::clamp(128 + strength * wave + grain, 0.0, 255.0));
  };
  return channel(50) << 16 | channel(38) << 8 | channel(-30);
}

}  // namespace

ScenePainter::ScenePainter(const std::string& display, const PixelRect& frame, Content content)
    : connection_(xcb_connect(display.empty() ? nullptr : display.c_str(), nullptr)), frame_(frame) {
  if (!isAlive()) return;
  screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
  if (frame_.isEmpty()) frame_ = {0, 0, screen_->width_in_pixels, screen_->height_in_pixels};
  const auto width = static_cast<std::uint16_t>(frame_.width), height = static_cast<std::uint16_t>(frame_.height);
  window_ = xcb_generate_id(connection_);
  const std::uint32_t unmanaged = 1;
  xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, screen_->root, static_cast<std::int16_t>(frame_.x),
                    static_cast<std::int16_t>(frame_.y), width, height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                    screen_->root_visual, XCB_CW_OVERRIDE_REDIRECT, &unmanaged);
  context_ = xcb_generate_id(connection_);
  const std::uint32_t noExposures = 0;
  xcb_create_gc(connection_, context_, window_, XCB_GC_GRAPHICS_EXPOSURES, &noExposures);
  picture_ = xcb_generate_id(connection_);
  xcb_create_pixmap(connection_, screen_->root_depth, picture_, window_, width, height);
  makePage(content);
  xcb_map_window(connection_, window_);
}

ScenePainter::~ScenePainter() {
  xcb_disconnect(connection_);
}

void ScenePainter::makePage(Content content) {
  page_ = xcb_generate_id(connection_);
  const auto width = static_cast<std::uint16_t>(frame_.width), height = static_cast<std::uint16_t>(frame_.height);
  xcb_create_pixmap(connection_, screen_->root_depth, page_, window_, width, static_cast<std::uint16_t>(2 * height));
  Random random;
  Random grain;
  for (int y = 0; y < frame_.height; y += cellHeight) {
    Band band = lineOfText(frame_.width, random);
    if (content == Content::textAndPhotographs) {
      for (int row = 0; row < cellHeight; ++row) {
        for (int x = frame_.width / columns; x < 2 * frame_.width / columns; ++x)
          band.set(x, row, photographAt(x, y + row, grain));
      }
    }
    const auto rows = static_cast<std::uint16_t>(std::min(cellHeight, frame_.height - y));
    xcb_put_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, page_, context_, width, rows, 0, static_cast<std::int16_t>(y),
                  0, screen_->root_depth, static_cast<std::uint32_t>(width) * rows * 4,
                  reinterpret_cast<const std::uint8_t*>(band.pixels().data()));
  }
  xcb_copy_area(connection_, page_, page_, context_, 0, 0, 0, static_cast<std::int16_t>(height), width, height);
}

void ScenePainter::fill(const PixelRect& area, std::uint32_t color) {
  xcb_change_gc(connection_, context_, XCB_GC_FOREGROUND, &color);
  const xcb_rectangle_t rectangle{static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
                                  static_cast<std::uint16_t>(area.width), static_cast<std::uint16_t>(area.height)};
  xcb_poly_fill_rectangle(connection_, picture_, context_, 1, &rectangle);
}

void ScenePainter::paint(int number) {
  for (int column = 0; column < columns; ++column) {
    const int left = column * frame_.width / columns, right = (column + 1) * frame_.width / columns;
    const int from = number * speeds.at(static_cast<std::size_t>(column)) % frame_.height;
    xcb_copy_area(connection_, page_, picture_, context_, static_cast<std::int16_t>(left),
                  static_cast<std::int16_t>(from), static_cast<std::int16_t>(left), 0,
                  static_cast<std::uint16_t>(right - left), static_cast<std::uint16_t>(frame_.height));
  }
  for (int i = 0; i < blocks; ++i) {
    const std::uint32_t color = (number >> i & 1) != 0 ? white : black;
    fill({i * blockWidth, 0, blockWidth, blockHeight}, color);
    fill({i * blockWidth, frame_.height - blockHeight, blockWidth, blockHeight}, color);
  }
  xcb_copy_area(connection_, picture_, window_, context_, 0, 0, 0, 0, static_cast<std::uint16_t>(frame_.width),
                static_cast<std::uint16_t>(frame_.height));
  std::free(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
}

}  // namespace vellora::test
