#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace vellora {

/// A picture found on the clipboard: the encoded bytes of some image type, or else the local file it names.
struct ClipboardPicture {
  std::vector<std::byte> encoded;
  std::string filePath;
};

/// Fetches the picture on the X clipboard, lossless types first. Nothing when there is none, it is larger than 512 MiB,
/// or its owner is silent for two seconds. Blocks meanwhile: any thread but the main one. Gives up at once when the
/// descriptor `cancel` (-1: none) can be read.
std::optional<ClipboardPicture> readClipboardPicture(int cancel = -1);

}  // namespace vellora
