#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <vector>

namespace vellora {

struct PictureSearch {
  bool isRecursive = false;
  std::filesystem::path leftOut{};      ///< a folder that is not looked into; may be empty
  std::size_t limit = 0;                ///< most files to find
  std::function<bool()> isCancelled{};  ///< asked for every folder; may be empty
};

/// The picture files in a folder, by content or by name and in the order of their names; those of folders below it too
/// when that is wanted. Leaves out hidden files, links to folders, and "name-compressed.*" beside a "name.*". Folders
/// that cannot be read are themselves among what is found, so that somebody hears of it. Any thread.
std::vector<std::filesystem::path> picturesIn(const std::filesystem::path& folder, const PictureSearch& search);

/// What results beside their sources have behind the name.
inline constexpr const char* compressedSuffix = "-compressed";

}  // namespace vellora
