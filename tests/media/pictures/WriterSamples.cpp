#include "media/pictures/WriterSamples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

#include "support/ChildProcess.h"

namespace vellora::test {

Raster paintedRaster(int width, int height, RasterLayout layout, int bitsPerSample) {
  auto raster = Raster::create(width, height, layout, bitsPerSample);
  const int samples = samplesOf(layout);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      for (int i = 0; i < samples; ++i) {
        const bool isAlpha = hasAlpha(layout) && i == samples - 1;
        double level = 0.5 + 0.5 * std::sin((x * (i + 1) + y * (3 - i)) / 23.0);
        if ((x / 9 + y / 7) % 5 == 0) level = i == 1 ? 0.9 : 0.2;
        if (isAlpha) level = x % 4 == 0 ? 1 : std::clamp(1.5 - 2.0 * x / width, 0.0, 1.0);
        const auto place = static_cast<std::size_t>(x * samples + i);
        if (bitsPerSample == 16) {
          reinterpret_cast<std::uint16_t*>(raster->row(y))[place] = static_cast<std::uint16_t>(level * 65535);
        } else {
          raster->row(y)[place] = static_cast<std::uint8_t>(level * 255);
        }
      }
    }
  }
  return *raster;
}

std::vector<std::uint8_t> pixelsElsewhere(std::span<const std::byte> file, const std::string& name, int depth) {
  std::ofstream(ReaderSamples::path(name), std::ios::binary)
      .write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
  return ReaderSamples::reference(name, depth, "");
}

std::string outputOf(const std::string& command) {
  const auto finished = runProgram({"/bin/sh", "-c", "cd '" + ReaderSamples::path("") + "' && " + command}, {});
  EXPECT_EQ(finished.exitCode, 0) << command << "\n" << finished.errors;
  std::string output(finished.output.begin(), finished.output.end());
  while (output.ends_with('\n')) output.pop_back();
  return output;
}

double decibels(std::span<const std::uint8_t> first, std::span<const std::uint8_t> second) {
  if (first.size() != second.size()) return 0;
  double sum = 0;
  for (std::size_t i = 0; i < first.size(); ++i) sum += std::pow(first[i] - second[i], 2);
  return 10 * std::log10(255.0 * 255 * static_cast<double>(first.size()) / std::max(sum, 1e-9));
}

}  // namespace vellora::test
