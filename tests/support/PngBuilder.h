#pragma once

#include <libdeflate.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace vellora::test {

/// Makes PNG files chunk by chunk, right or wrong ones, with filters of the test's choice.
class PngBuilder {
 public:
  using Data = std::vector<std::uint8_t>;

  PngBuilder() { append({0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'}); }

  PngBuilder& chunk(std::string_view type, const Data& data) {
    appendNumber(data.size());
    const std::size_t start = file_.size();
    file_.insert(file_.end(), type.begin(), type.end());
    append(data);
    appendNumber(libdeflate_crc32(0, &file_[start], file_.size() - start));
    return *this;
  }

  PngBuilder& header(std::uint32_t width, std::uint32_t height, std::uint8_t depth, std::uint8_t color,
                     std::uint8_t interlacing = 0) {
    Data data;
    for (const std::uint32_t edge : {width, height}) {
      for (int shift = 24; shift >= 0; shift -= 8) data.push_back(static_cast<std::uint8_t>(edge >> shift));
    }
    for (const std::uint8_t part : {depth, color, std::uint8_t{0}, std::uint8_t{0}, interlacing}) data.push_back(part);
    return chunk("IHDR", data);
  }

  /// The rows, filter bytes included, as a zlib stream in `pieces` chunks.
  PngBuilder& pixels(const Data& filtered, std::size_t pieces = 1) {
    const Data data = deflated(filtered);
    for (std::size_t i = 0; i < pieces; ++i) {
      const auto at = [&](std::size_t piece) {
        return data.begin() + static_cast<std::ptrdiff_t>(data.size() * piece / pieces);
      };
      chunk("IDAT", Data(at(i), at(i + 1)));
    }
    return *this;
  }

  Data finish() {
    chunk("IEND", {});
    return std::move(file_);
  }

  static Data deflated(const Data& data) {
    const std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> compressor(
        libdeflate_alloc_compressor(6), libdeflate_free_compressor);
    Data result(libdeflate_zlib_compress_bound(compressor.get(), data.size()));
    result.resize(libdeflate_zlib_compress(compressor.get(), data.data(), data.size(), result.data(), result.size()));
    return result;
  }

  /// Filters rows of `rowBytes` each with `filterOf(y)`; `distance` is the bytes of a pixel, at least 1.
  template <class FilterOf>
  static Data filtered(const Data& plain, std::size_t rowBytes, std::size_t distance, FilterOf filterOf) {
    Data result;
    const auto at = [&](std::size_t y, std::size_t x) { return static_cast<int>(plain[y * rowBytes + x]); };
    for (std::size_t y = 0; y < plain.size() / rowBytes; ++y) {
      const auto filter = static_cast<std::uint8_t>(filterOf(y));
      result.push_back(filter);
      for (std::size_t x = 0; x < rowBytes; ++x) {
        const int left = x < distance ? 0 : at(y, x - distance), above = y == 0 ? 0 : at(y - 1, x);
        const int corner = x < distance || y == 0 ? 0 : at(y - 1, x - distance);
        const int estimate = left + above - corner;
        const int a = std::abs(estimate - left), b = std::abs(estimate - above), c = std::abs(estimate - corner);
        const int paeth = a <= b && a <= c ? left : b <= c ? above : corner;
        const int predictions[] = {0, left, above, (left + above) / 2, paeth};
        result.push_back(static_cast<std::uint8_t>(at(y, x) - predictions[filter]));
      }
    }
    return result;
  }

 private:
  void append(const Data& data) { file_.insert(file_.end(), data.begin(), data.end()); }
  void appendNumber(std::size_t number) {
    for (int shift = 24; shift >= 0; shift -= 8) file_.push_back(static_cast<std::uint8_t>(number >> shift));
  }

  Data file_;
};

}  // namespace vellora::test
