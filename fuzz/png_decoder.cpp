#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "media/PngDecoder.h"

using namespace vellora;

namespace {

using File = std::vector<std::uint8_t>;

constexpr std::string_view signature = "\x89PNG\r\n\x1A\n";
constexpr PngLimits limits{.bytes = std::size_t{4} << 20};

void appendNumber(File& file, std::size_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) file.push_back(static_cast<std::uint8_t>(number >> shift));
}

void appendChunk(File& file, std::string_view type, std::span<const std::uint8_t> data) {
  appendNumber(file, data.size());
  const std::size_t start = file.size();
  file.insert(file.end(), type.begin(), type.end());
  file.insert(file.end(), data.begin(), data.end());
  appendNumber(file, libdeflate_crc32(0, &file[start], file.size() - start));
}

/// Makes the checksums right, which no fuzzer hits by chance.
void repairChecksums(File& file) {
  for (std::size_t at = signature.size(); file.size() - at >= 12;) {
    const std::size_t length = std::size_t{file[at + 1]} << 16 | std::size_t{file[at + 2]} << 8 | file[at + 3];
    if (file[at] != 0 || length > file.size() - at - 12) return;
    File checksum;
    appendNumber(checksum, libdeflate_crc32(0, &file[at + 4], length + 4));
    std::copy(checksum.begin(), checksum.end(), &file[at + 8 + length]);
    at += length + 12;
  }
}

/// A file whose header, palette, transparency and rows come from the input, and whose data inflates to the rows.
File composed(std::span<const std::uint8_t> input) {
  File file(signature.begin(), signature.end());
  File header{0, 0, 0, input[0], 0, 0, 0, input[1], input[2], input[3], 0, 0, 0};
  const std::size_t transparent = input[4], colors = input[5];
  input = input.subspan(6);
  const auto take = [&input](std::size_t bytes) {
    const auto part = input.first(std::min(bytes, input.size()));
    input = input.subspan(part.size());
    return part;
  };
  appendChunk(file, "IHDR", header);
  if (colors > 0) appendChunk(file, "PLTE", take(3 * colors));
  if (transparent > 0) appendChunk(file, "tRNS", take(transparent));
  const std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> compressor(
      libdeflate_alloc_compressor(1), libdeflate_free_compressor);
  File deflated(libdeflate_zlib_compress_bound(compressor.get(), input.size()));
  deflated.resize(
      libdeflate_zlib_compress(compressor.get(), input.data(), input.size(), deflated.data(), deflated.size()));
  const std::span pieces(deflated);
  appendChunk(file, "IDAT", pieces.first(pieces.size() / 2));
  appendChunk(file, "IDAT", pieces.subspan(pieces.size() / 2));
  appendChunk(file, "IEND", {});
  return file;
}

}  // namespace

/// An input that begins as a PNG does is read as one; any other describes one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 8) return 0;
  const std::span input(data, size);
  File file;
  if (data[0] == 0x89) {
    file.assign(input.begin(), input.end());
    repairChecksums(file);
  } else {
    file = composed(input);
  }
  const auto bitmap = decodePng(std::as_bytes(std::span(file)), limits);
  if (!bitmap) return 0;
  if (bitmap->isNull() || bitmap->stride() < static_cast<std::size_t>(bitmap->width()) * 4) std::abort();
  for (int y = 0; y < bitmap->height(); ++y) {
    for (int x = 0; x < bitmap->width(); ++x) {
      const std::byte* pixel = bitmap->pixel(x, y);
      if (bitmap->alpha() == PixelAlpha::Opaque && pixel[3] != std::byte{255}) std::abort();
      if (std::max({pixel[0], pixel[1], pixel[2]}) > pixel[3]) std::abort();
    }
  }
  return 0;
}
