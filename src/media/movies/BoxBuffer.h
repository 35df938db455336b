#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace vellora {

/// Writes boxes (ISO/IEC 14496-12, 4.2), numbers in big-endian order.
class BoxBuffer {
 public:
  std::vector<std::uint8_t> take() { return std::move(bytes_); }
  std::size_t size() const { return bytes_.size(); }

  void number8(std::uint64_t value) { number<1>(value); }
  void number16(std::uint64_t value) { number<2>(value); }
  void number32(std::uint64_t value) { number<4>(value); }
  void number64(std::uint64_t value) { number<8>(value); }
  /// 32 bits in version 0 of a box, 64 in version 1.
  void number32or64(std::uint64_t value, int version) { version == 0 ? number32(value) : number64(value); }
  void zeros(std::size_t count) { bytes_.resize(bytes_.size() + count); }
  void text(std::string_view characters) {
    for (const char character : characters) bytes_.push_back(static_cast<std::uint8_t>(character));
  }
  void append(std::span<const std::uint8_t> bytes) {
    const std::size_t start = bytes_.size();
    bytes_.resize(start + bytes.size());
    std::ranges::copy(bytes, bytes_.begin() + static_cast<std::ptrdiff_t>(start));
  }
  /// Replaces four bytes.
  void put32(std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) bytes_[at + i] = static_cast<std::uint8_t>(value >> (24 - 8 * i));
  }

  /// A box whose content `write` appends.
  template <class Write>
  void box(std::string_view type, const Write& write) {
    const std::size_t start = size();
    number32(0);
    text(type);
    write();
    put32(start, static_cast<std::uint32_t>(size() - start));
  }
  template <class Write>
  void fullBox(std::string_view type, int version, std::uint32_t flags, const Write& write) {
    box(type, [&] {
      number32(static_cast<std::uint32_t>(version) << 24 | flags);
      write();
    });
  }

 private:
  template <std::size_t count>
  void number(std::uint64_t value) {
    for (std::size_t i = count; i-- > 0;) bytes_.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
  }

  std::vector<std::uint8_t> bytes_;
};

}  // namespace vellora
