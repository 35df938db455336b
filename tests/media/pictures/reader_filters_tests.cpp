#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <span>
#include <tuple>

#include "media/pictures/PictureReader.h"
#include "support/PngBuilder.h"

namespace vellora::test {
namespace {

/// Random samples, among them runs of the extremes, with which filters' sums overflow and their choices tie.
PngBuilder::Data samples(std::size_t bytes) {
  std::mt19937 random(static_cast<unsigned int>(bytes));
  PngBuilder::Data data(bytes);
  for (std::uint8_t& sample : data) {
    const unsigned int choice = random() % 8;
    sample = static_cast<std::uint8_t>(choice == 0 ? 0 : choice < 4 ? 255 : random());
  }
  return data;
}

TEST(Reader, PngRowsOfEveryFilterComeBackInWhateverPlaceTheyAreUnfiltered) {
  // Color type, samples a pixel, bytes a sample; rows that are narrower than a register, and no multiple of one.
  for (const auto& [color, channels, bytes] :
       {std::tuple{0, 1, 1}, {4, 2, 1}, {2, 3, 1}, {6, 4, 1}, {2, 3, 2}, {6, 4, 2}}) {
    for (int width = 1; width <= 23; ++width) {
      const int height = 31;  // more rows than a register has bytes
      const auto distance = static_cast<std::size_t>(channels * bytes);
      const std::size_t rowBytes = static_cast<std::size_t>(width) * distance;
      PngBuilder::Data plain = samples(rowBytes * height);
      for (int filter = 0; filter <= 5; ++filter) {
        const auto file =
            PngBuilder()
                .header(static_cast<std::uint32_t>(width), height, static_cast<std::uint8_t>(8 * bytes),
                        static_cast<std::uint8_t>(color))
                .pixels(PngBuilder::filtered(plain, rowBytes, distance,
                                             [&](std::size_t y) { return filter < 5 ? filter : int(y * 7 % 5); }))
                .finish();
        const auto picture = decodePicture(std::as_bytes(std::span(file)), {.keepsDepth = true});
        ASSERT_TRUE(picture);
        ASSERT_EQ(picture->raster.bytes(), plain.size());
        PngBuilder::Data found(plain.size());
        std::memcpy(found.data(), picture->raster.row(0), found.size());
        for (std::size_t i = 0; bytes == 2 && i < found.size(); i += 2) {
          std::uint16_t sample = 0;
          std::memcpy(&sample, &found[i], sizeof(sample));
          found[i] = static_cast<std::uint8_t>(sample >> 8);
          found[i + 1] = static_cast<std::uint8_t>(sample);
        }
        ASSERT_EQ(found, plain) << "color " << color << " width " << width << " filter " << filter;
      }
    }
  }
}

}  // namespace
}  // namespace vellora::test
