#include "media/movies/DiskBox.h"

#include <array>
#include <limits>
#include <span>

#include "media/movies/BoxReader.h"

namespace vellora {

std::optional<DiskBox> DiskBox::at(const DiskFile& file, std::uint64_t place, std::uint64_t fileSize) {
  std::array<std::uint8_t, 16> bytes{};
  const auto count = file.read(place, bytes);
  if (!count) return std::nullopt;
  BoxReader reader{std::span(bytes).first(*count)};
  std::uint64_t size = reader.number32();
  DiskBox box{.type = std::string(reader.text(4)), .start = place, .content = place + 8};
  if (size == 1) {
    size = reader.number(8);
    box.content = place + 16;
  } else if (size == 0 && place < fileSize) {
    size = fileSize - place;
  }
  if (!reader.isWhole() || size < box.content - place || size > std::numeric_limits<std::uint64_t>::max() - place) {
    return std::nullopt;
  }
  box.end = place + size;
  return box;
}

std::optional<std::vector<std::uint8_t>> DiskBox::read(const DiskFile& file, std::uint64_t mostBytes) const {
  const auto size = file.size();
  if (!size || end > *size || end - content > mostBytes) return std::nullopt;
  std::vector<std::uint8_t> bytes(end - content);
  const auto count = file.read(content, bytes);
  if (!count || *count < bytes.size()) return std::nullopt;
  return bytes;
}

}  // namespace vellora
