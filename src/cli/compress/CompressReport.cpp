#include "cli/compress/CompressReport.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "base/Json.h"

namespace vellora {
namespace {

struct ErrorText {
  PictureError error;
  std::string_view code;
  std::string_view text;
};

constexpr std::array errorTexts{
    ErrorText{PictureError::NotFound, "notFound", "there is no such file"},
    ErrorText{PictureError::NotPermitted, "notPermitted", "the file may not be read"},
    ErrorText{PictureError::NotAFile, "notAFile", "this is no file"},
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

std::string amount(std::uintmax_t bytes) {
  std::array<char, 32> text{};
  if (bytes >= 1'000'000) {
    std::snprintf(text.data(), text.size(), "%.1f MB", static_cast<double>(bytes) / 1e6);
  } else if (bytes >= 1000) {
    std::snprintf(text.data(), text.size(), "%.0f kB", static_cast<double>(bytes) / 1e3);
  } else {
    std::snprintf(text.data(), text.size(), "%ju B", bytes);
  }
  return text.data();
}

std::string change(std::uintmax_t before, std::uintmax_t after) {
  const double percent = before == 0 ? 0 : (static_cast<double>(after) / static_cast<double>(before) - 1) * 100;
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%+ld%%", std::lround(percent));
  return text.data();
}

std::string_view nameOfState(CompressionState state) {
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
  Json json{
      {"source", item.sourceURL.string()}, {"state", nameOfState(item.state)}, {"bytesBefore", item.originalBytes}};
  if (item.sourceUTType) json["sourceType"] = nameOf(*item.sourceUTType);
  if (const auto& output = item.lastOutput; output && !item.failure) {
    json["output"] = output->file.string();
    json["bytesAfter"] = output->bytes;
    json["type"] = nameOf(output->type);
    json["width"] = output->width;
    json["height"] = output->height;
    json["flattened"] = output->isFlattened;
  }
  if (item.failure) json["error"] = {{"code", codeOf(item.failure->error)}, {"message", describe(*item.failure)}};
  return json;
}

}  // namespace

std::string_view codeOf(PictureError error) {
  return textFor(error).code;
}

std::string describe(const PictureFailure& failure) {
  std::string text(textFor(failure.error).text);
  if (!failure.detail.empty()) text += ": " + failure.detail;
  return text;
}

std::string lineOf(const CompressionItem& item) {
  const CompressionOutput& output = *item.lastOutput;
  std::string line = item.sourceURL.string() + "  " + amount(item.originalBytes) + " -> " + amount(output.bytes) +
                     "  " + change(item.originalBytes, output.bytes) + "  " + output.file.filename().string();
  if (item.state == CompressionState::unchanged) line += "  (already as small as it gets)";
  if (output.isFlattened) line += "  (transparency became white)";
  return line;
}

std::string summaryOf(const CompressionProgress& progress) {
  const std::size_t pictures = progress.finished - progress.failed;
  std::string text = std::to_string(pictures) + (pictures == 1 ? " picture, " : " pictures, ") +
                     amount(progress.bytesBefore) + " -> " + amount(progress.bytesAfter) + ", " +
                     change(progress.bytesBefore, progress.bytesAfter);
  if (progress.failed != 0) text += "; " + std::to_string(progress.failed) + " failed";
  return text;
}

std::string jsonOf(const CompressionRun& run, const CompressionProgress& progress, bool isInterrupted) {
  Json files = Json::array();
  for (const CompressionItem& item : run.items()) files.push_back(jsonOf(item));
  const Json report{{"state", isInterrupted ? "interrupted" : (progress.failed == 0 ? "done" : "failed")},
                    {"bytesBefore", progress.bytesBefore},
                    {"bytesAfter", progress.bytesAfter},
                    {"failed", progress.failed},
                    {"files", std::move(files)}};
  return json::serialize(report).toStdString();
}

}  // namespace vellora
