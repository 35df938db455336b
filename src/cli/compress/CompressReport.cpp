#include "cli/compress/CompressReport.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <string_view>

#include "base/Json.h"

namespace vellora {
namespace {

namespace fs = std::filesystem;

struct ErrorText {
  PictureError error;
  std::string_view code;
  std::string_view text;
};

constexpr std::array errorTexts{
    ErrorText{PictureError::NotFound, "notFound", "there is no such file"},
    ErrorText{PictureError::NotPermitted, "notPermitted", "the file may not be read"},
    ErrorText{PictureError::NotAFile, "notAFile", "this is no file, or a folder that cannot be read"},
    ErrorText{PictureError::NotAPicture, "notAPicture", "this is no picture of a known type"},
    ErrorText{PictureError::TooLarge, "tooLarge", "the picture is too large"},
    ErrorText{PictureError::Unsupported, "unsupported", "this kind of picture cannot be read"},
    ErrorText{PictureError::Animated, "animated", "only a still picture can be converted or resized"},
    ErrorText{PictureError::Damaged, "damaged", "the file is damaged"},
    ErrorText{PictureError::OutOfMemory, "outOfMemory", "there is not enough memory"},
    ErrorText{PictureError::CannotEncode, "cannotEncode", "the picture cannot be written in this type"},
    ErrorText{PictureError::DiskFull, "diskFull", "the disk is full"},
    ErrorText{PictureError::WriteFailed, "writeFailed", "the result cannot be written"},
    ErrorText{PictureError::Cancelled, "cancelled", "interrupted"},
};

const ErrorText& textFor(PictureError error) {
  for (const ErrorText& entry : errorTexts)
    if (entry.error == error) return entry;
  return errorTexts.front();
}

template <class... Values>
std::string formatted(const char* format, Values... values) {
  std::array<char, 96> text{};
  std::snprintf(text.data(), text.size(), format, values...);
  return text.data();
}

std::string amount(std::uintmax_t bytes) {
  const auto number = static_cast<double>(bytes);
  if (bytes >= 999'950'000) return formatted("%.1f GB", number / 1e9);
  if (bytes >= 999'500) return formatted("%.1f MB", number / 1e6);
  if (bytes >= 1000) return formatted(bytes < 9950 ? "%.1f kB" : "%.0f kB", number / 1e3);
  return formatted("%.0f B", number);
}

/// "-71%"; with a decimal where there would be no change to be seen.
std::string change(std::uintmax_t before, std::uintmax_t after) {
  if (before == 0 || before == after) return "0%";
  const double percent = (static_cast<double>(after) / static_cast<double>(before) - 1) * 100;
  return formatted(std::abs(percent) < 1 ? "%+.1f%%" : "%+.0f%%", percent);
}

std::string fromTo(std::uintmax_t before, std::uintmax_t after) {
  return amount(before) + " -> " + amount(after);
}

std::string unchangedText(const CompressionItem& item) {
  if (item.lastOutput->frames > 1) return "unchanged: animations and several pages stay as they are";
  if (item.lastOutput->bytes < item.originalBytes) return "unchanged but for its metadata, which is left out";
  return "unchanged: already as small as it gets";
}

struct Totals {
  std::size_t done = 0, unchanged = 0, failed = 0, cancelled = 0;
  std::uintmax_t bytesBefore = 0, bytesAfter = 0;

  explicit Totals(const std::vector<CompressionItem>& items) {
    for (const CompressionItem& item : items) add(item);
  }

 private:
  void add(const CompressionItem& item) {
    switch (item.state) {
      case CompressionState::done:
      case CompressionState::unchanged:
        ++(item.state == CompressionState::done ? done : unchanged);
        bytesBefore += item.originalBytes;
        bytesAfter += item.lastOutput->bytes;
        break;
      case CompressionState::failed:
        ++failed;
        break;
      default:
        ++cancelled;
    }
  }
};

std::string_view nameOf(CompressionState state) {
  switch (state) {
    case CompressionState::done:
      return "done";
    case CompressionState::unchanged:
      return "unchanged";
    case CompressionState::failed:
      return "failed";
    default:
      return "cancelled";
  }
}

Json jsonOf(const CompressionItem& item) {
  Json json{{"source", item.sourceURL.string()}, {"state", nameOf(item.state)}, {"bytesBefore", item.originalBytes}};
  if (item.sourceUTType) json["sourceType"] = nameOf(*item.sourceUTType);
  if (const auto& output = item.lastOutput) {
    json["output"] = output->file.string();
    json["type"] = nameOf(output->type);
    json["bytesAfter"] = output->bytes;
    json["width"] = output->width;
    json["height"] = output->height;
    if (output->isFlattened) json["flattened"] = true;
  }
  if (const auto& failure = item.failure) {
    json["error"] = {{"code", textFor(failure->error).code}, {"message", describe(*failure)}};
  }
  return json;
}

}  // namespace

std::string shownPath(const fs::path& path, const fs::path& folder) {
  const fs::path relative = path.lexically_relative(folder);
  const bool liesThere = !relative.empty() && *relative.begin() != "..";
  std::string text = (liesThere ? relative : path).string();
  for (char& letter : text)
    if (static_cast<unsigned char>(letter) < ' ' || letter == '\x7F') letter = '?';
  return text;
}

std::string describe(const PictureFailure& failure) {
  std::string text(textFor(failure.error).text);
  if (!failure.detail.empty()) text += ": " + failure.detail;
  return text;
}

std::string lineOf(const CompressionItem& item, const fs::path& folder) {
  std::string line = shownPath(item.sourceURL, folder);
  if (item.failure) return line + ": " + describe(*item.failure);
  const CompressionOutput& output = *item.lastOutput;
  if (item.state == CompressionState::unchanged) return line + "  " + amount(output.bytes) + "  " + unchangedText(item);
  const bool isBeside = output.file.parent_path() == item.sourceURL.parent_path();
  line += "  " + fromTo(item.originalBytes, output.bytes) + "  " + change(item.originalBytes, output.bytes) + "  " +
          shownPath(output.file, isBeside ? output.file.parent_path() : folder);
  if (output.isFlattened) line += "  (transparency became white)";
  return line;
}

std::string progressText(const CompressionProgress& progress) {
  std::string text = std::to_string(progress.finished) + " of " + std::to_string(progress.total);
  if (progress.bytesAfter < progress.bytesBefore) {
    text += ", " + amount(progress.bytesBefore - progress.bytesAfter) + " saved";
  }
  if (progress.remaining) {
    const long long seconds = std::chrono::ceil<std::chrono::seconds>(*progress.remaining).count();
    text += seconds < 120 ? formatted(", %lld s left", seconds) : formatted(", %lld min left", (seconds + 59) / 60);
  }
  return text;
}

std::string summaryOf(const std::vector<CompressionItem>& items) {
  const Totals totals(items);
  const std::size_t pictures = totals.done + totals.unchanged;
  std::string text = std::to_string(pictures) + (pictures == 1 ? " picture" : " pictures");
  if (pictures != 0) {
    text += ": " + fromTo(totals.bytesBefore, totals.bytesAfter) + ", " + change(totals.bytesBefore, totals.bytesAfter);
  }
  const char* separator = "; ";
  const auto addCount = [&](std::size_t count, const char* what) {
    if (count == 0) return;
    text += separator + std::to_string(count) + what;
    separator = ", ";
  };
  addCount(totals.unchanged, " unchanged");
  addCount(totals.failed, " failed");
  addCount(totals.cancelled, " not begun");
  return text;
}

std::string jsonOf(const std::vector<CompressionItem>& items, bool isInterrupted) {
  const Totals totals(items);
  Json files = Json::array();
  for (const CompressionItem& item : items) files.push_back(jsonOf(item));
  const Json report{{"state", isInterrupted        ? "interrupted"
                              : totals.failed == 0 ? "done"
                                                   : "failed"},
                    {"done", totals.done},
                    {"unchanged", totals.unchanged},
                    {"failed", totals.failed},
                    {"cancelled", totals.cancelled},
                    {"bytesBefore", totals.bytesBefore},
                    {"bytesAfter", totals.bytesAfter},
                    {"files", std::move(files)}};
  return json::serialize(report).toStdString();
}

}  // namespace vellora
