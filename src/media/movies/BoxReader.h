#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace vellora {

/// Reads numbers in big-endian order from a box that may be damaged. Beyond the end everything is 0 and `isWhole`
/// false.
class BoxReader {
 public:
  explicit BoxReader(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

  std::span<const std::uint8_t> rest() const { return rest_; }
  bool isWhole() const { return isWhole_; }

  std::uint64_t number(std::size_t bytes) {
    std::uint64_t value = 0;
    for (const std::uint8_t byte : take(bytes)) value = value << 8 | byte;
    return value;
  }
  std::uint32_t number32() { return static_cast<std::uint32_t>(number(4)); }
  std::string_view text(std::size_t bytes) {
    const auto taken = take(bytes);
    return {reinterpret_cast<const char*>(taken.data()), taken.size()};
  }
  /// Nothing when there is less.
  std::span<const std::uint8_t> take(std::size_t bytes) {
    if (bytes > rest_.size()) {
      isWhole_ = false;
      rest_ = {};
      return {};
    }
    const auto taken = rest_.first(bytes);
    rest_ = rest_.subspan(bytes);
    return taken;
  }

 private:
  std::span<const std::uint8_t> rest_;
  bool isWhole_ = true;
};

/// Calls `take` with type, content and the whole of each box; false when they do not fill `bytes` exactly.
template <class Take>
bool forEachBox(std::span<const std::uint8_t> bytes, const Take& take) {
  while (!bytes.empty()) {
    BoxReader reader(bytes);
    const std::uint32_t size = reader.number32();
    const std::string_view type = reader.text(4);
    if (!reader.isWhole() || size < 8 || size > bytes.size()) return false;
    take(type, bytes.subspan(8, size - 8), bytes.first(size));
    bytes = bytes.subspan(size);
  }
  return true;
}

}  // namespace vellora
