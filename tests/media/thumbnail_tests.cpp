#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <vector>

#include "media/Thumbnail.h"

namespace vellora {
namespace {

constexpr std::uint32_t red = 0xFFFF0000, blue = 0xFF0000FF, white = 0xFFFFFFFF, black = 0xFF000000;

Bitmap paint(PixelSize size, const std::function<std::uint32_t(int, int)>& painter,
             PixelAlpha alpha = PixelAlpha::Opaque) {
  auto bitmap = MutableBitmap::create(size, alpha);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const std::uint32_t word = painter(x, y);
      std::memcpy(bitmap->row(y) + x * 4, &word, sizeof(word));
    }
  }
  return std::move(*bitmap).finish();
}

std::uint32_t at(const Bitmap& bitmap, int x, int y) {
  std::uint32_t word;
  std::memcpy(&word, bitmap.pixel(x, y), sizeof(word));
  return word;
}

Bitmap thumbnailOf(const Bitmap& image) {
  const ThumbnailPiece piece{image, {{0, 0}, {double(image.width()), double(image.height())}}};
  const auto result = renderThumbnail({&piece, 1}, piece.frame);
  EXPECT_TRUE(result);
  return result.value_or(Bitmap());
}

TEST(Thumbnail, HasRoundedPremultipliedCorners) {
  const Bitmap result = thumbnailOf(paint({960, 600}, [](int, int) { return red & 0x00FFFFFF; }));
  ASSERT_EQ(result.size(), (PixelSize{96, 60}));
  EXPECT_EQ(result.alpha(), PixelAlpha::Premultiplied);
  EXPECT_EQ(at(result, 48, 30), red);
  EXPECT_EQ(at(result, 6, 0), red);
  EXPECT_EQ(at(result, 0, 6), red);
  for (const auto& [x, y] : std::vector<std::pair<int, int>>{{0, 0}, {95, 0}, {0, 59}, {95, 59}})
    EXPECT_EQ(at(result, x, y), 0U);
  // The whole corner covers a quarter of a circle of radius 6.
  double covered = 0;
  for (int y = 0; y < 6; ++y) {
    for (int x = 0; x < 6; ++x) {
      const std::uint32_t word = at(result, x, y);
      EXPECT_EQ(word >> 16 & 0xFF, word >> 24);
      covered += (word >> 24) / 255.0;
    }
  }
  EXPECT_NEAR(covered, 9 * 3.14159, 0.3);
}

TEST(Thumbnail, FillsOneAxisCentresSidewaysAndBeginsAtTheTop) {
  // One pixel high, very wide: the middle fills the height, the sides are cut.
  const Bitmap wide = thumbnailOf(paint({5001, 1}, [](int x, int) {
    return x == 2500 ? red : x < 2500 ? black : white;
  }));
  for (const int y : {0, 30, 59}) {
    EXPECT_NEAR(at(wide, 48, y) & 0xFF, 0, 4);
    EXPECT_NEAR(at(wide, 48, y) >> 16 & 0xFF, 255, 4);
  }
  EXPECT_LT(at(wide, 0, 30) >> 16 & 0xFF, 64U) << "nearly the whole way to the black neighbour";
  EXPECT_GT(at(wide, 95, 30) & 0xFF, 192U) << "nearly the whole way to the white neighbour";
  // Tall and narrow: the top is shown, the rest cut.
  const Bitmap tall = thumbnailOf(paint({96, 4000}, [](int, int y) { return y < 30 ? red : y < 60 ? blue : black; }));
  EXPECT_EQ(at(tall, 48, 0), red);
  EXPECT_EQ(at(tall, 48, 29), red);
  EXPECT_EQ(at(tall, 48, 30), blue);
  EXPECT_EQ(at(tall, 48, 59), blue);
}

TEST(Thumbnail, DrawsEachPieceInItsFrame) {
  const Bitmap left = paint({200, 100}, [](int, int) { return red; });  // two pixels to the point
  const Bitmap right = paint({84, 30}, [](int, int) { return blue; });
  const std::array<ThumbnailPiece, 2> pieces{{{left, {{-20, 40}, {100, 50}}}, {right, {{92, 40}, {84, 30}}}}};
  const auto result = renderThumbnail(pieces, {{-20, 40}, {196, 122.5}});  // scale 96 / 196
  ASSERT_TRUE(result);
  const double scale = 96.0 / 196;
  EXPECT_EQ(at(*result, static_cast<int>(50 * scale), 10), red);
  EXPECT_EQ(at(*result, static_cast<int>(106 * scale), 10), white) << "the gap between the pieces";
  EXPECT_EQ(at(*result, static_cast<int>(150 * scale), 10), blue);
  EXPECT_EQ(at(*result, static_cast<int>(150 * scale), static_cast<int>(36 * scale)), white) << "below the lower edge";
  EXPECT_EQ(at(*result, 48, 58), white);
  // An edge between two pixels is shared between them: 50 points are 24.49 pixels.
  const std::uint32_t edge = at(*result, 20, 24);
  EXPECT_NEAR(edge & 0xFF, 255 * 0.51, 4);
}

TEST(Thumbnail, AveragesAllPixelsWhenShrinking) {
  // A 4K checkerboard, where sampling would see black or white.
  const Bitmap checks = thumbnailOf(paint({3840, 2400}, [](int x, int y) { return (x + y) % 2 ? white : black; }));
  for (int x = 7; x < 89; x += 9) EXPECT_NEAR(at(checks, x, 20) & 0xFF, 127.5, 1);
  // Sizes that do not divide evenly, and more rows per pixel than short sums could hold.
  const Bitmap rows = thumbnailOf(paint({100, 60 * 701}, [](int, int) { return 0xFFFFFFFFU; }));
  EXPECT_EQ(at(rows, 50, 59), white);
  const Bitmap odd = thumbnailOf(paint({1367, 911}, [](int, int) { return 0xFF808080U; }));
  for (int x = 6; x < 90; ++x) ASSERT_EQ(at(odd, x, 31), 0xFF808080U);
  const Bitmap tallPixels = paint({96, 48000}, [](int, int y) { return y % 2 ? white : black; });
  const ThumbnailPiece piece{tallPixels, {{0, 0}, {96, 60}}};
  EXPECT_NEAR(at(*renderThumbnail({&piece, 1}, piece.frame), 40, 30) & 0xFF, 127.5, 1);
}

TEST(Thumbnail, SmoothsWhenGrowing) {
  const Bitmap result = thumbnailOf(paint({8, 5}, [](int x, int) { return x < 4 ? black : white; }));
  int steps = 0;
  for (int x = 1; x < 96; ++x) {
    const int before = static_cast<int>(at(result, x - 1, 30) & 0xFF), now = static_cast<int>(at(result, x, 30) & 0xFF);
    ASSERT_GE(now, before);
    steps += now > before && now < 255;
  }
  EXPECT_GE(steps, 8);
}

TEST(Thumbnail, BlendsTranslucentPiecesOverWhite) {
  const Bitmap half = paint(
      {96, 60}, [](int, int) { return 0x80800000U; }, PixelAlpha::Premultiplied);
  const std::uint32_t word = at(thumbnailOf(half), 48, 30);
  EXPECT_EQ(word >> 16, 0xFFFFU);
  EXPECT_NEAR(word & 0xFF, 127, 1);
}

TEST(Thumbnail, SurvivesSenselessGeometry) {
  const Bitmap image = paint({10, 10}, [](int, int) { return red; });
  const double huge = std::numeric_limits<double>::max(), none = std::nan("");
  const auto render = [&](const Rect& frame, const Rect& all) {
    const ThumbnailPiece piece{image, frame};
    return renderThumbnail({&piece, 1}, all);
  };
  const Rect unit{{0, 0}, {10, 10}};
  EXPECT_FALSE(render(unit, {{0, 0}, {0, 10}}));
  EXPECT_FALSE(render(unit, {{0, 0}, {10, -1}}));
  EXPECT_FALSE(render(unit, {{0, 0}, {none, 10}}));
  EXPECT_FALSE(render(unit, {{none, 0}, {10, 10}}));
  for (const Rect& frame : {Rect{{huge, 0}, {10, 10}}, Rect{{0, 0}, {huge, huge}}, Rect{{none, 0}, {10, 10}},
                            Rect{{-huge, -huge}, {huge, huge}}, Rect{{0, 0}, {1e-300, 1e-300}}, Rect{{3, 3}, {0, 0}}}) {
    EXPECT_TRUE(render(frame, unit));
  }
  EXPECT_TRUE(render({{0, 0}, {1e-300, 1e-300}}, {{0, 0}, {1e-300, 1e-300}}));
  const ThumbnailPiece empty{{}, unit};
  EXPECT_TRUE(renderThumbnail({&empty, 1}, unit)) << "a piece without pixels leaves white";
}

}  // namespace
}  // namespace vellora
