#include "cli/compress/CompressRequest.h"

#include <charconv>
#include <optional>
#include <string>

namespace vellora {
namespace {

std::optional<int> numberFrom(const std::string& text, int least, int most) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < least || number > most) return std::nullopt;
  return number;
}

}  // namespace

Result<CompressRequest, std::string> CompressRequest::from(const std::vector<std::string>& words) {
  CompressRequest request;
  std::string value;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    const auto takes = [&](const char* name) {
      if (word != name || i + 1 >= words.size()) return false;
      value = words[++i];
      return true;
    };
    const auto number = [&](const char* name, int least, int most) -> Result<int, std::string> {
      if (const auto found = numberFrom(value, least, most)) return *found;
      return failure(std::string(name) + " takes a number from " + std::to_string(least) + " to " +
                     std::to_string(most));
    };
    if (word == "--") {
      request.paths.insert(request.paths.end(), words.begin() + static_cast<std::ptrdiff_t>(i) + 1, words.end());
      break;
    }
    if (takes("--format")) {
      const auto format = compressFormatFrom(value);
      if (!format) return failure(std::string("--format takes original, jpeg, png or webp"));
      request.options.format = *format;
    } else if (takes("--quality")) {
      const auto quality = number("--quality", 0, 100);
      if (!quality) return failure(quality.error());
      request.options.quality = *quality;
    } else if (takes("--max-edge")) {
      const auto edge = number("--max-edge", 1, Raster::maximumEdge);
      if (!edge) return failure(edge.error());
      request.options.maxEdge = *edge;
    } else if (takes("--jobs")) {
      const auto jobs = number("--jobs", 1, 64);
      if (!jobs) return failure(jobs.error());
      request.jobs = *jobs;
    } else if (takes("--output-folder")) {
      request.destination.mode = CompressOutputMode::customFolder;
      request.destination.folder = value;
    } else if (word == "--recursive") {
      request.isRecursive = true;
    } else if (word == "--keep-metadata") {
      request.options.keepsMetadata = true;
    } else if (word == "--keep-dates") {
      request.options.keepsDates = true;
    } else if (word == "--json") {
      request.json = true;
    } else {
      return failure("there is no option " + word);
    }
  }
  if (request.paths.empty()) return failure(std::string("which files?"));
  return request;
}

}  // namespace vellora
