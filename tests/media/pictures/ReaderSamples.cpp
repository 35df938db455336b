#include "media/pictures/ReaderSamples.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "support/ChildProcess.h"

namespace vellora::test {
namespace {

constexpr char baseFiles[] =
    "convert -size 67x45 -seed 7 plasma:red-blue -depth 8 base.png && "
    "convert base.png -alpha set -channel A -fx 'i>60?0:(i*j)/(w*h)' +channel -depth 8 -define png:color-type=6 "
    "alpha.png && "
    "convert -size 67x45 gradient:'#012345-#fedcba' -depth 16 -define png:bit-depth=16 -define png:color-type=2 "
    "deep.png";

bool runInFolder(const std::string& folder, const std::string& command) {
  const auto finished = runProgram({"/bin/sh", "-c", "cd '" + folder + "' && " + command}, {});
  if (finished.exitCode != 0) ADD_FAILURE() << command << "\n" << finished.errors;
  return finished.exitCode == 0;
}

const std::string& folder() {
  static const QTemporaryDir made;
  static const std::string path = [] {
    const std::string name = made.path().toStdString();
    runInFolder(name, baseFiles);
    return name;
  }();
  return path;
}

}  // namespace

std::string ReaderSamples::path(const std::string& name) {
  return folder() + "/" + name;
}

Bytes ReaderSamples::file(const std::string& name, const std::string& command) {
  if (!std::filesystem::exists(path(name)) && !runInFolder(folder(), command)) return {};
  auto bytes = readPictureFile(path(name));
  if (!bytes) {
    ADD_FAILURE() << name << ": " << bytes.error().detail;
    return {};
  }
  return std::move(*bytes);
}

std::vector<std::uint8_t> ReaderSamples::reference(const std::string& name, int depth, const std::string& arguments) {
  const auto finished = runProgram({"/bin/sh", "-c",
                                    "cd '" + folder() + "' && convert '" + name + "[0]' " + arguments +
                                        " -endian LSB -depth " + std::to_string(depth) + " rgba:-"},
                                   {});
  EXPECT_EQ(finished.exitCode, 0) << finished.errors;
  return {finished.output.begin(), finished.output.end()};
}

std::vector<std::uint8_t> rgbaOf(const Raster& raster) {
  const auto size = static_cast<std::size_t>(raster.bitsPerSample() / 8);
  const auto samples = static_cast<std::size_t>(samplesOf(raster.layout()));
  const bool isGrey = samples < 3, withAlpha = hasAlpha(raster.layout());
  std::vector<std::uint8_t> result;
  for (int y = 0; y < raster.height(); ++y) {
    const std::uint8_t* pixel = raster.row(y);
    for (int x = 0; x < raster.width(); ++x, pixel += samples * size) {
      for (std::size_t part = 0; part < 3; ++part) {
        const std::uint8_t* sample = pixel + (isGrey ? 0 : part * size);
        result.insert(result.end(), sample, sample + size);
      }
      for (std::size_t i = 0; i < size; ++i) result.push_back(withAlpha ? pixel[(samples - 1) * size + i] : 255);
    }
  }
  return result;
}

int greatestDifference(std::span<const std::uint8_t> first, std::span<const std::uint8_t> second, int depth) {
  const auto size = static_cast<std::size_t>(depth / 8);
  if (first.size() != second.size() || first.size() % (4 * size) != 0) return 1 << depth;
  const auto at = [size](std::span<const std::uint8_t> samples, std::size_t i) {
    return size == 1 ? int{samples[i]} : samples[2 * i] | samples[2 * i + 1] << 8;
  };
  int greatest = 0;
  for (std::size_t i = 0; i < first.size() / size; i += 4) {
    const int alpha = at(first, i + 3);
    greatest = std::max(greatest, std::abs(alpha - at(second, i + 3)));
    if (alpha == 0 && at(second, i + 3) == 0) continue;
    for (std::size_t part = 0; part < 3; ++part) {
      greatest = std::max(greatest, std::abs(at(first, i + part) - at(second, i + part)));
    }
  }
  return greatest;
}

}  // namespace vellora::test
