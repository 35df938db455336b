#pragma once

#include <span>
#include <string>
#include <vector>

#include "media/pictures/PictureWriter.h"
#include "media/pictures/ReaderSamples.h"

namespace vellora::test {

/// A picture with smooth areas, hard edges and, where the layout has it, every kind of alpha. The same for the same
/// arguments.
Raster paintedRaster(int width, int height, RasterLayout layout, int bitsPerSample = 8);

/// Puts the file among the samples and asks another program for its pixels, as ReaderSamples::reference.
std::vector<std::uint8_t> pixelsElsewhere(std::span<const std::byte> file, const std::string& name, int depth = 8);

/// The output of a shell command in the samples' folder, without the line's end; fails the test when it fails.
std::string outputOf(const std::string& command);

/// How similar two pictures of the same size are, as the peak signal to noise ratio of their colors.
double decibels(std::span<const std::uint8_t> first, std::span<const std::uint8_t> second);

}  // namespace vellora::test
