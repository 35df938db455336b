#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace vellora {

/// The variable-length codes of GIF89a (appendix F): pixels go in, sub-blocks of up to 255 bytes come out.
class GifLzw {
 public:
  /// Begins with the code size. `bitsPerPixel` 1 to 8.
  GifLzw(int bitsPerPixel, std::vector<std::byte>& file);

  void add(std::span<const std::uint8_t> indexes);
  void finish();

 private:
  static constexpr std::uint32_t mostCodes = 4096;
  static constexpr std::size_t slots = 16384;

  void putCode(std::uint32_t code);
  void putByte(std::uint8_t byte);
  void endBlock();
  void clear();

  std::vector<std::byte>& file_;
  const std::uint32_t clearCode_;
  const int smallestSize_;
  int size_ = 0;
  std::uint32_t nextCode_ = 0;
  std::uint32_t prefix_ = 0;
  bool hasPrefix_ = false;
  std::array<std::uint32_t, slots> keys_{};  // a code and the pixel behind it, plus 1; 0 for none
  std::array<std::uint16_t, slots> codes_{};
  std::uint32_t bits_ = 0;
  int bitCount_ = 0;
  std::size_t blockAt_ = 0;
};

}  // namespace vellora
