#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "base/Result.h"

namespace vellora::test {

struct FlvTag {
  enum class Kind : std::uint8_t { audio = 8, video = 9, script = 18 };
  Kind kind = Kind::script;
  std::uint32_t timestamp = 0;  ///< milliseconds
  std::vector<std::uint8_t> body;
};

/// What a server recorded, read strictly by the published "Adobe Flash Video File Format Specification 10.1" (annex E):
/// any byte that is not as it has to be is an error, which names its place.
struct FlvFile {
  bool hasAudio = false;
  bool hasVideo = false;
  std::vector<FlvTag> tags;

  static Result<FlvFile, std::string> parse(std::span<const std::uint8_t> bytes);
  static Result<FlvFile, std::string> read(const std::filesystem::path& file);

  std::vector<FlvTag> tagsOf(FlvTag::Kind kind) const;
};

}  // namespace vellora::test
