#include "recording/ui/RegionModel.h"

#include <algorithm>
#include <cmath>

namespace vellora {
namespace {

constexpr double gripAround = 5;   // to both sides of the line, in points
constexpr double bandWidth = 10;   // outside the line
constexpr double cornerGrip = 12;  // a side's end that takes hold of both sides

using Kind = RegionPreset::Kind;
constexpr std::array<RegionPreset, 10> allPresets{{
    {Kind::size, 3840, 2160},
    {Kind::size, 2560, 1440},
    {Kind::size, 1920, 1080},
    {Kind::size, 1280, 720},
    {Kind::size, 1080, 1920},
    {Kind::ratio, 16, 9},
    {Kind::ratio, 4, 3},
    {Kind::ratio, 1, 1},
    {Kind::ratio, 9, 16},
    {Kind::display, 0, 0},
}};

int rounded(double value) {
  return static_cast<int>(std::lround(value));
}

}  // namespace

RegionModel::RegionModel(const PixelRect& region, const PixelRect& display) : display_(display), region_(region) {
  const int width = std::clamp(region.width, std::min(leastSide, display.width), display.width);
  const int height = std::clamp(region.height, std::min(leastSide, display.height), display.height);
  region_ = {std::clamp(region.x, display.x, display.right() - width),
             std::clamp(region.y, display.y, display.bottom() - height), width, height};
}

void RegionModel::beginPull(const RegionGrip& grip, PixelPoint at) {
  grip_ = grip;
  pressed_ = at;
  before_ = region_;
}

void RegionModel::pullTo(PixelPoint at, bool keepsRatio) {
  if (grip_.isNone()) return;
  const int dx = at.x - pressed_.x;
  const int dy = at.y - pressed_.y;
  if (grip_.isWhole()) {
    region_.x = std::clamp(before_.x + dx, display_.x, display_.right() - before_.width);
    region_.y = std::clamp(before_.y + dy, display_.y, display_.bottom() - before_.height);
    return;
  }
  int left = before_.x;
  int top = before_.y;
  int right = before_.right();
  int bottom = before_.bottom();
  if (grip_.left) left = std::clamp(left + dx, display_.x, right - leastSide);
  if (grip_.right) right = std::clamp(right + dx, left + leastSide, display_.right());
  if (grip_.top) top = std::clamp(top + dy, display_.y, bottom - leastSide);
  if (grip_.bottom) bottom = std::clamp(bottom + dy, top + leastSide, display_.bottom());
  PixelRect next{left, top, right - left, bottom - top};
  if (keepsRatio) keepRatio(next);
  region_ = next;
}

/// Gives `next` the shape from before the pull: about the side that was not pulled, or about its middle.
void RegionModel::keepRatio(PixelRect& next) const {
  const double ratio = static_cast<double>(before_.width) / before_.height;
  const bool acrossOnly = !grip_.top && !grip_.bottom;
  const bool downOnly = !grip_.left && !grip_.right;
  const double middleX = before_.x + before_.width / 2.0;
  const double middleY = before_.y + before_.height / 2.0;
  // How far it may reach from what stays.
  const double roomX = downOnly     ? 2 * std::min(middleX - display_.x, display_.right() - middleX)
                       : grip_.left ? before_.right() - display_.x
                                    : display_.right() - before_.x;
  const double roomY = acrossOnly  ? 2 * std::min(middleY - display_.y, display_.bottom() - middleY)
                       : grip_.top ? before_.bottom() - display_.y
                                   : display_.bottom() - before_.y;
  double width = next.width;
  if (downOnly || (!acrossOnly && next.height * ratio > width)) width = next.height * ratio;
  width = std::min({width, roomX, roomY * ratio});
  width = std::max({width, double{leastSide}, leastSide * ratio});
  const int w = std::min(rounded(width), display_.width);
  const int h = std::min(rounded(width / ratio), display_.height);
  next.x = downOnly ? rounded(middleX - w / 2.0) : grip_.left ? before_.right() - w : before_.x;
  next.y = acrossOnly ? rounded(middleY - h / 2.0) : grip_.top ? before_.bottom() - h : before_.y;
  next.width = w;
  next.height = h;
  next.x = std::clamp(next.x, display_.x, display_.right() - w);
  next.y = std::clamp(next.y, display_.y, display_.bottom() - h);
}

void RegionModel::nudge(int dx, int dy) {
  region_.x = std::clamp(region_.x + dx, display_.x, display_.right() - region_.width);
  region_.y = std::clamp(region_.y + dy, display_.y, display_.bottom() - region_.height);
}

std::span<const RegionPreset> RegionModel::presets() {
  return allPresets;
}

bool RegionModel::fits(const RegionPreset& preset) const {
  return preset.kind != Kind::size || (preset.width <= display_.width && preset.height <= display_.height);
}

bool RegionModel::matches(const RegionPreset& preset) const {
  switch (preset.kind) {
    case Kind::size:
      return region_.width == preset.width && region_.height == preset.height;
    case Kind::display:
      return region_ == display_;
    case Kind::ratio:
      break;
  }
  // Within the rounding of one side.
  return rounded(static_cast<double>(region_.width) * preset.height / preset.width) == region_.height ||
         rounded(static_cast<double>(region_.height) * preset.width / preset.height) == region_.width;
}

PixelRect RegionModel::sized(double width, double height) const {
  const int w = std::clamp(rounded(width), std::min(leastSide, display_.width), display_.width);
  const int h = std::clamp(rounded(height), std::min(leastSide, display_.height), display_.height);
  const int x = rounded(region_.x + (region_.width - w) / 2.0);
  const int y = rounded(region_.y + (region_.height - h) / 2.0);
  return {std::clamp(x, display_.x, display_.right() - w), std::clamp(y, display_.y, display_.bottom() - h), w, h};
}

void RegionModel::apply(const RegionPreset& preset) {
  if (!fits(preset)) return;
  switch (preset.kind) {
    case Kind::size:
      region_ = sized(preset.width, preset.height);
      return;
    case Kind::display:
      region_ = display_;
      return;
    case Kind::ratio:
      break;
  }
  const double ratio = static_cast<double>(preset.width) / preset.height;
  double height = std::sqrt(static_cast<double>(region_.width) * region_.height / ratio);
  height = std::min({height, static_cast<double>(display_.height), display_.width / ratio});
  height = std::max({height, double{leastSide}, leastSide / ratio});
  region_ = sized(rounded(height) * ratio, rounded(height));
}

int RegionFrameLayout::pixels(double points) const {
  return static_cast<int>(std::lround(points * scale_));
}

int RegionFrameLayout::lineWidth() const {
  return std::max(1, pixels(line));
}

PixelRect RegionFrameLayout::window() const {
  const int around = pixels(reach);
  return {region_.x - around, region_.y - around, region_.width + 2 * around, region_.height + 2 * around};
}

/// The sides of a ring around the region's edge: top, right, bottom, left; together they are whole.
std::array<PixelRect, 4> RegionFrameLayout::ring(int inside, int outside) const {
  const int across = std::min(inside, region_.width / 2);
  const int down = std::min(inside, region_.height / 2);
  const int left = region_.x - outside;
  const int top = region_.y - outside;
  const int right = region_.right() + outside;
  const int bottom = region_.bottom() + outside;
  const int height = region_.height - 2 * down;
  return {{{left, top, right - left, outside + down},
           {right - outside - across, region_.y + down, outside + across, height},
           {left, bottom - outside - down, right - left, outside + down},
           {left, region_.y + down, outside + across, height}}};
}

std::array<PixelRect, 4> RegionFrameLayout::lines() const {
  return ring(0, lineWidth());
}

std::array<PixelRect, 4> RegionFrameLayout::band() const {
  return ring(0, lineWidth() + pixels(bandWidth));
}

std::array<PixelRect, 8> RegionFrameLayout::handles() const {
  const int side = std::max(3, pixels(handle));
  const int off = (lineWidth() + side) / 2;  // the line's middle is the handle's
  const int left = region_.x - off;
  const int top = region_.y - off;
  const int right = region_.right() + off - side;
  const int bottom = region_.bottom() + off - side;
  const int middleX = region_.x + (region_.width - side) / 2;
  const int middleY = region_.y + (region_.height - side) / 2;
  return {{{left, top, side, side},
           {middleX, top, side, side},
           {right, top, side, side},
           {right, middleY, side, side},
           {right, bottom, side, side},
           {middleX, bottom, side, side},
           {left, bottom, side, side},
           {left, middleY, side, side}}};
}

std::vector<PixelRect> RegionFrameLayout::inputParts() const {
  const auto sides = ring(pixels(gripAround), lineWidth() + pixels(bandWidth));
  std::vector<PixelRect> parts(sides.begin(), sides.end());
  const auto grips = handles();
  parts.insert(parts.end(), grips.begin(), grips.end());
  return parts;
}

RegionGrip RegionFrameLayout::gripAt(PixelPoint place) const {
  constexpr std::array<RegionGrip, 8> byHandle{{{.left = true, .top = true},
                                                {.top = true},
                                                {.top = true, .right = true},
                                                {.right = true},
                                                {.right = true, .bottom = true},
                                                {.bottom = true},
                                                {.left = true, .bottom = true},
                                                {.left = true}}};
  const auto grips = handles();
  for (std::size_t i = 0; i < grips.size(); i += 2) {  // the corners first: on a small region handles overlap
    if (grips[i].contains(place)) return byHandle[i];
  }
  for (std::size_t i = 1; i < grips.size(); i += 2) {
    if (grips[i].contains(place)) return byHandle[i];
  }
  const int around = pixels(gripAround);
  const int outside = lineWidth() + around;
  const auto near = [&](int at, int edgeFrom, int edgeTo) { return at >= edgeFrom && at < edgeTo; };
  RegionGrip grip{.left = near(place.x, region_.x - outside, region_.x + around),
                  .top = near(place.y, region_.y - outside, region_.y + around),
                  .right = near(place.x, region_.right() - around, region_.right() + outside),
                  .bottom = near(place.y, region_.bottom() - around, region_.bottom() + outside)};
  const bool alongside = place.x >= region_.x - outside && place.x < region_.right() + outside &&
                         place.y >= region_.y - outside && place.y < region_.bottom() + outside;
  if (alongside && !grip.isNone()) {
    const int corner = pixels(cornerGrip);
    const bool onSide = grip.left || grip.right;
    if (onSide && !grip.top && !grip.bottom) {
      grip.top = place.y < region_.y + corner;
      grip.bottom = !grip.top && place.y >= region_.bottom() - corner;
    } else if (!onSide) {
      grip.left = place.x < region_.x + corner;
      grip.right = !grip.left && place.x >= region_.right() - corner;
    }
    // Of a region that is hardly larger than the grips both sides would be meant.
    if (grip.left && grip.right) grip.left = false;
    if (grip.top && grip.bottom) grip.top = false;
    return grip;
  }
  for (const PixelRect& side : band()) {
    if (side.contains(place)) return RegionGrip::whole();
  }
  return {};
}

}  // namespace vellora
