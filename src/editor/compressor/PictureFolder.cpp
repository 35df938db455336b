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

bool isNamedAsPicture(const fs::path& file) {
  const std::string extension = file.extension().string();
  if (extension.empty()) return false;
  for (const PictureType type : allPictureTypes)
    if (isExtensionOf(type, std::string_view(extension).substr(1))) return true;
  return false;
}

bool isPicture(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::array<char, 64> head{};
  stream.read(head.data(), head.size());
  const auto bytes = std::as_bytes(std::span(head)).first(static_cast<std::size_t>(stream.gcount()));
  return pictureTypeOf(bytes).has_value();
}

/// The name that a result was made of: "a" for "a-compressed" and "a-compressed (2)"; empty for other names.
std::string stemOfSource(std::string_view stem) {
  if (stem.ends_with(')')) {
    const std::size_t number = stem.rfind(" (");
    const std::string_view digits = number == std::string_view::npos ? "" : stem.substr(number + 2);
    if (digits.size() < 2 || digits.find_first_not_of("0123456789") != digits.size() - 1) return {};
    stem = stem.substr(0, number);
  }
  return stem.ends_with(compressedSuffix)
             ? std::string(stem.substr(0, stem.size() - std::string_view(compressedSuffix).size()))
             : std::string();
}

void collect(const fs::path& folder, const PictureSearch& search, std::vector<fs::path>& found) {
  if (search.isCancelled && search.isCancelled()) return;
  std::vector<fs::path> files;
  std::vector<fs::path> folders;
  std::set<std::string> stems;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const fs::path& path = entry->path();
    if (path.filename().string().starts_with('.')) continue;
    std::error_code ignored;
    if (entry->is_regular_file(ignored)) {
      files.push_back(path);
      stems.insert(path.stem().string());
    } else if (search.isRecursive && !entry->is_symlink(ignored) && entry->is_directory(ignored) &&
               (search.leftOut.empty() || !fs::equivalent(path, search.leftOut, ignored))) {
      folders.push_back(path);
    }
  }
  if (error && found.size() < search.limit) found.push_back(folder);
  std::sort(files.begin(), files.end());
  std::sort(folders.begin(), folders.end());
  for (const fs::path& file : files) {
    if (found.size() >= search.limit) return;
    const std::string source = stemOfSource(file.stem().string());
    const bool isResult = !source.empty() && stems.contains(source);
    if (!isResult && (isNamedAsPicture(file) || isPicture(file))) found.push_back(file);
  }
  for (const fs::path& below : folders) collect(below, search, found);
}

}  // namespace

std::vector<fs::path> picturesIn(const fs::path& folder, const PictureSearch& search) {
  std::vector<fs::path> found;
  collect(folder, search, found);
  return found;
}

}  // namespace vellora
