#include "editor/compressor/PictureFolder.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <set>
#include <span>
#include <string>
#include <string_view>

#include "media/pictures/PictureType.h"

namespace vellora {
namespace {

namespace fs = std::filesystem;

bool isPicture(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::array<char, 64> head{};
  stream.read(head.data(), head.size());
  const auto bytes = std::as_bytes(std::span(head)).first(static_cast<std::size_t>(stream.gcount()));
  return pictureTypeOf(bytes).has_value();
}

void collect(const fs::path& folder, bool recursive, std::size_t limit, std::vector<fs::path>& found) {
  std::vector<fs::path> files;
  std::vector<fs::path> folders;
  std::set<std::string> stems;
  std::error_code error;
  for (fs::directory_iterator entry(folder, fs::directory_options::skip_permission_denied, error), end;
       !error && entry != end; entry.increment(error)) {
    const fs::path& path = entry->path();
    if (path.filename().string().starts_with('.')) continue;
    std::error_code ignored;
    if (entry->is_regular_file(ignored)) {
      files.push_back(path);
      stems.insert(path.stem().string());
    } else if (recursive && !entry->is_symlink(ignored) && entry->is_directory(ignored)) {
      folders.push_back(path);
    }
  }
  const auto isResult = [&](const fs::path& file) {
    const std::string stem = file.stem().string();
    const std::size_t suffix = stem.rfind(compressedSuffix);
    return suffix != std::string::npos && suffix != 0 && stems.contains(stem.substr(0, suffix));
  };
  std::sort(files.begin(), files.end());
  std::sort(folders.begin(), folders.end());
  for (const fs::path& file : files) {
    if (found.size() >= limit) return;
    if (!isResult(file) && isPicture(file)) found.push_back(file);
  }
  for (const fs::path& below : folders) collect(below, recursive, limit, found);
}

}  // namespace

std::vector<fs::path> picturesIn(const fs::path& folder, bool recursive, std::size_t limit) {
  std::vector<fs::path> found;
  collect(folder, recursive, limit, found);
  return found;
}

}  // namespace vellora
