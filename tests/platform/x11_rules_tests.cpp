#include <gtest/gtest.h>

#include "platform/linux/x11/X11Scale.h"
#include "platform/linux/x11/X11Screens.h"

namespace vellora {
namespace {

/// A settings property in the byte order of the machine: header, then one record after the other.
std::string property(const std::string& records, std::uint32_t count) {
  std::string bytes("\0\0\0\0\x07\0\0\0", 8);
  for (int i = 0; i < 4; ++i) bytes += static_cast<char>(count >> (8 * i));
  return bytes + records;
}
std::string integerRecord(const std::string& name, std::int32_t value) {
  std::string bytes("\0\0", 2);
  bytes += static_cast<char>(name.size());
  bytes += '\0';
  bytes += name + std::string((4 - name.size() % 4) % 4, '\0') + std::string(4, '\x01');
  for (int i = 0; i < 4; ++i) bytes += static_cast<char>(static_cast<std::uint32_t>(value) >> (8 * i));
  return bytes;
}

TEST(X11Settings, DotsPerInchAreReadFromWholeAndDamagedProperties) {
  const std::string text("\x01\0\x03\0abc\0\0\0\0\0\x05\0\0\0hello\0\0\0", 28 - 4);
  const std::string colour = std::string("\x02\0\x01\0c\0\0\0\0\0\0\0", 12) + std::string(8, '\x7F');
  const std::string whole = property(text + colour + integerRecord("Xft/DPI", 144 * 1024 + 500), 3);
  EXPECT_EQ(settingsDpi(whole), 144);
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_EQ(settingsDpi(whole.substr(0, size)), std::nullopt) << size;
  }
  EXPECT_EQ(settingsDpi(property(integerRecord("Gdk/WindowScalingFactor", 2), 1)), std::nullopt);
  EXPECT_EQ(settingsDpi(property(integerRecord("Xft/DPI", 98304), 0xFFFFFFFF)), 96);
  EXPECT_EQ(resourceDpi("Xcursor.size:\t24\nXft.dpi:\t168\nXft.rgba:\trgb\n"), 168);
  EXPECT_EQ(resourceDpi("my.Xft.dpi:\t168\nXft.dpi:\tlarge\n"), 0);
}

TEST(X11WorkArea, PanelsTakeTheirStripFromTheDisplayTheyAreOn) {
  const PixelSize root{3000, 1000};
  const PixelRect left{0, 0, 1000, 1000}, middle{1000, 200, 1000, 800}, right{2000, 0, 1000, 1000};
  const std::vector<EdgeStrut> topOfTheLeft = {{.top = 30, .topStart = 0, .topEnd = 1000}};
  EXPECT_EQ(withoutStruts(left, topOfTheLeft, root), (PixelRect{0, 30, 1000, 970}));
  EXPECT_EQ(withoutStruts(right, topOfTheLeft, root), right);
  EXPECT_EQ(withoutStruts(middle, {{.top = 230, .topStart = 1000, .topEnd = 2000}}, root),
            (PixelRect{1000, 230, 1000, 770}));
  const std::vector<EdgeStrut> rightEdge = {{.right = 50, .rightStart = 0, .rightEnd = 1000},
                                            {.bottom = 40, .bottomStart = 2000, .bottomEnd = 3000}};
  EXPECT_EQ(withoutStruts(right, rightEdge, root), (PixelRect{2000, 0, 950, 960}));
  // Measured from the far edge, the strip crosses a whole display on its way: that one keeps its area.
  const std::vector<EdgeStrut> crossing = {{.left = 1040, .leftStart = 200, .leftEnd = 1000}};
  EXPECT_EQ(withoutStruts(left, crossing, root), left);
  EXPECT_EQ(withoutStruts(middle, crossing, root), (PixelRect{1040, 200, 960, 800}));
}

}  // namespace
}  // namespace vellora
