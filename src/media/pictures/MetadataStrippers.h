#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "media/pictures/ExifBlock.h"
#include "media/pictures/FileBytes.h"

namespace vellora {

// `withoutMetadata` for each container. Nothing when the structure is not understood to the end. May throw
// std::bad_alloc.

using StrippedFile = std::optional<std::vector<std::byte>>;

StrippedFile strippedJpeg(FileBytes file);
StrippedFile strippedPng(FileBytes file);
StrippedFile strippedWebP(FileBytes file);
StrippedFile strippedGif(FileBytes file);
StrippedFile strippedTiff(FileBytes file);
StrippedFile strippedBmp(FileBytes file);
StrippedFile strippedHeif(FileBytes file);
StrippedFile strippedJpegXL(FileBytes file);

/// An Exif block that says nothing but how the picture stands and its resolution; empty when it stands upright and has
/// no resolution, or the usual 72 dots per inch. Pass 0 dots where the file says it elsewhere.
std::vector<std::byte> minimalExif(const ExifFacts& facts);

void append(std::vector<std::byte>& file, FileBytes bytes);
void append(std::vector<std::byte>& file, std::string_view text);
void appendBig(std::vector<std::byte>& file, std::size_t number, int bytes);

}  // namespace vellora
