#pragma once

#include <filesystem>
#include <vector>

namespace vellora {

/// The picture files in a folder, by content and in the order of their names; those of folders below it too when
/// `recursive`. Leaves out hidden files, links to folders, and "name-compressed.*" beside a "name.*". At most `limit`.
/// What cannot be read is passed over. Any thread.
std::vector<std::filesystem::path> picturesIn(const std::filesystem::path& folder, bool recursive, std::size_t limit);

/// What results beside their sources have behind the name.
inline constexpr const char* compressedSuffix = "-compressed";

}  // namespace vellora
