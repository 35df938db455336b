#include "recording/sound/WaveformFile.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace vellora {
namespace {

constexpr float quietLevel = 0.18F;
constexpr double leastSilence = 0.15;   // seconds
constexpr double defaultWindow = 0.02;  // seconds

/// As printf's "%g" in the C locale.
void appendNumber(QByteArray& text, double value) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.begin(), digits.end(), value, std::chars_format::general, 6).ptr;
  text.append(digits.data(), end - digits.begin());
}

/// Rounded to one part in `parts` of 1; never "-0".
void appendRounded(QByteArray& text, double value, double parts) {
  const double rounded = std::isfinite(value) ? std::round(value * parts) / parts : 0;
  appendNumber(text, rounded == 0 ? 0 : rounded);
}

void appendSilences(QByteArray& text, std::span<const float> levels, double window) {
  bool isFirst = true;
  std::size_t start = 0;
  const auto endAt = [&](std::size_t end) {
    if (static_cast<double>(end - start) * window >= leastSilence) {
      text += isFirst ? "{\"start\":" : ",{\"start\":";
      appendRounded(text, static_cast<double>(start) * window, 1000);
      text += ",\"end\":";
      appendRounded(text, static_cast<double>(end) * window, 1000);
      text += '}';
      isFirst = false;
    }
    start = end + 1;
  };
  for (std::size_t i = 0; i < levels.size(); ++i) {
    if (levels[i] > quietLevel) endAt(i);
  }
  if (start < levels.size()) endAt(levels.size());
}

}  // namespace

QByteArray WaveformFile::serialize(std::span<const float> levels, double samplesPerSecond) {
  const double window = samplesPerSecond > 0 ? 1 / samplesPerSecond : defaultWindow;
  QByteArray text;
  text.reserve(static_cast<qsizetype>(levels.size()) * 5 + 256);
  text += "{\"samplesPerSecond\":";
  appendRounded(text, samplesPerSecond, 1000);
  text += ",\"duration\":";
  appendRounded(text, static_cast<double>(levels.size()) * window, 1000);
  text += ",\"peaks\":[";
  for (std::size_t i = 0; i < levels.size(); ++i) {
    if (i > 0) text += ',';
    appendRounded(text, levels[i], 100);
  }
  text += "],\"silences\":[";
  appendSilences(text, levels, window);
  text += "]}\n";
  return text;
}

}  // namespace vellora
