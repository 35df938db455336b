#include "support/FlvFile.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace vellora::test {
namespace {

constexpr std::size_t headerSize = 9;
constexpr std::size_t tagHeaderSize = 11;
constexpr std::size_t backPointerSize = 4;

std::uint32_t bigEndian(std::span<const std::uint8_t> bytes) {
  std::uint32_t value = 0;
  for (const std::uint8_t byte : bytes) value = value << 8 | byte;
  return value;
}

}  // namespace

Result<FlvFile, std::string> FlvFile::parse(std::span<const std::uint8_t> bytes) {
  FlvFile file;
  std::size_t at = 0;
  const auto fault = [&](const std::string& what) { return failure("at byte " + std::to_string(at) + ": " + what); };
  if (bytes.size() < headerSize + backPointerSize) return fault("no room for the header");
  if (bytes[0] != 'F' || bytes[1] != 'L' || bytes[2] != 'V' || bytes[3] != 1) return fault("not FLV version 1");
  if ((bytes[4] & ~0x05) != 0) return fault("reserved flags are set");
  file.hasAudio = (bytes[4] & 0x04) != 0;
  file.hasVideo = (bytes[4] & 0x01) != 0;
  if (bigEndian(bytes.subspan(5, 4)) != headerSize) return fault("a header of another size");
  if (bigEndian(bytes.subspan(headerSize, backPointerSize)) != 0) return fault("a tag before the first");
  at = headerSize + backPointerSize;
  while (at < bytes.size()) {
    const auto rest = bytes.subspan(at);
    if (rest.size() < tagHeaderSize) return fault("a tag header is cut off");
    FlvTag tag;
    tag.kind = static_cast<FlvTag::Kind>(rest[0]);
    if (rest[0] != 8 && rest[0] != 9 && rest[0] != 18) return fault("tag type " + std::to_string(rest[0]));
    const std::size_t size = bigEndian(rest.subspan(1, 3));
    tag.timestamp = bigEndian(rest.subspan(4, 3)) | static_cast<std::uint32_t>(rest[7]) << 24;
    if (bigEndian(rest.subspan(8, 3)) != 0) return fault("a stream id other than 0");
    if (rest.size() < tagHeaderSize + size + backPointerSize) return fault("a tag is cut off");
    const auto body = rest.subspan(tagHeaderSize, size);
    tag.body.assign(body.begin(), body.end());
    if (bigEndian(rest.subspan(tagHeaderSize + size, backPointerSize)) != tagHeaderSize + size) {
      return fault("the size behind the tag is not its size");
    }
    at += tagHeaderSize + size + backPointerSize;
    file.tags.push_back(std::move(tag));
  }
  return file;
}

Result<FlvFile, std::string> FlvFile::read(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) return failure("no file " + path.string());
  const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  return parse({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

std::vector<FlvTag> FlvFile::tagsOf(FlvTag::Kind kind) const {
  std::vector<FlvTag> result;
  std::copy_if(tags.begin(), tags.end(), std::back_inserter(result), [&](const auto& tag) { return tag.kind == kind; });
  return result;
}

}  // namespace vellora::test
