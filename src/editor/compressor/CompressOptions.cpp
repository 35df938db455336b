#include "editor/compressor/CompressOptions.h"

#include <array>

namespace vellora {
namespace {

template <class Value>
struct Named {
  Value value;
  std::string_view text;
};

constexpr std::array formats{
    Named<CompressFormat>{CompressFormat::original, "original"},
    Named<CompressFormat>{CompressFormat::jpeg, "jpeg"},
    Named<CompressFormat>{CompressFormat::png, "png"},
    Named<CompressFormat>{CompressFormat::webp, "webp"},
};
constexpr std::array limits{
    Named<ResizeLimit>{ResizeLimit::off, "off"},       Named<ResizeLimit>{ResizeLimit::k4, "k4"},
    Named<ResizeLimit>{ResizeLimit::k2, "k2"},         Named<ResizeLimit>{ResizeLimit::k1, "k1"},
    Named<ResizeLimit>{ResizeLimit::custom, "custom"},
};

template <class Table, class Value>
std::string_view textIn(const Table& table, Value value) {
  for (const auto& entry : table)
    if (entry.value == value) return entry.text;
  return table.front().text;
}

}  // namespace

std::string_view textOf(CompressFormat format) {
  return textIn(formats, format);
}

std::optional<CompressFormat> compressFormatFrom(std::string_view text) {
  for (const auto& entry : formats)
    if (entry.text == text) return entry.value;
  return std::nullopt;
}

std::string_view textOf(ResizeLimit limit) {
  return textIn(limits, limit);
}

ResizeLimit resizeLimitFrom(std::string_view text) {
  for (const auto& entry : limits)
    if (entry.text == text) return entry.value;
  return ResizeLimit::off;
}

std::optional<int> maxEdgeOf(ResizeLimit limit, int customEdge) {
  switch (limit) {
    case ResizeLimit::off:
      return std::nullopt;
    case ResizeLimit::k4:
      return 3840;
    case ResizeLimit::k2:
      return 2560;
    case ResizeLimit::k1:
      return 1280;
    case ResizeLimit::custom:
      return customEdge;
  }
  return std::nullopt;
}

}  // namespace vellora
