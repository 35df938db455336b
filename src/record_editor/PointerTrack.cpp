#include "record_editor/PointerTrack.h"

#include <algorithm>
#include <cmath>

#include "base/Json.h"
#include "base/Log.h"
#include "record_editor/BundleFiles.h"

namespace vellora {
namespace {

/// Hours of a pointer that never rests.
constexpr qint64 largestTrack = 512 << 20;
constexpr std::size_t mostLines = 5'000'000;
constexpr qsizetype longestLine = 512;
constexpr double farthest = 1e6;  // pixels
constexpr double flushInterval = 1;

/// Ten microseconds and a tenth of a pixel: no sensor is finer, and lines stay short.
double rounded(double value, double steps) {
  return std::round(value * steps) / steps;
}

std::optional<double> member(const Json& line, const char* key) {
  const Json* value = json::member(line, key);
  return value ? json::number(*value) : std::nullopt;
}

std::optional<PointerEntry> decoded(const QByteArray& text) {
  const auto line = json::parse(text);
  if (!line) return std::nullopt;
  const auto time = member(*line, "t");
  const auto x = member(*line, "x");
  const auto y = member(*line, "y");
  if (!time || !x || !y || !bundleFiles::isSourceTime(*time)) return std::nullopt;
  if (std::abs(*x) > farthest || std::abs(*y) > farthest) return std::nullopt;
  PointerEntry entry{*time, *x, *y};
  if (const Json* shape = json::member(*line, "shape")) {
    const auto number = json::integer(*shape);
    if (number && *number >= 0) entry.shape = static_cast<std::uint64_t>(*number);
  }
  const Json* button = json::member(*line, "button");
  const Json* down = json::member(*line, "down");
  if (button && down) {
    const auto number = json::integer(*button);
    const auto isDown = json::boolean(*down);
    if (number && isDown && *number >= 0 && *number <= 31) {
      entry.button = PointerEntry::Button{static_cast<int>(*number), *isDown};
    }
  }
  return entry;
}

}  // namespace

std::vector<PointerEntry> PointerTrack::load(const QString& bundle) {
  std::vector<PointerEntry> entries;
  QFile file(bundle + u'/' + bundleFiles::pointer);
  if (!file.open(QIODevice::ReadOnly) || file.isSequential() || file.size() > largestTrack) return entries;
  while (!file.atEnd() && entries.size() < mostLines) {
    const QByteArray line = file.readLine(longestLine);
    if (auto entry = line.endsWith('\n') ? decoded(line) : std::nullopt) entries.push_back(*entry);
  }
  std::ranges::stable_sort(entries, {}, &PointerEntry::time);
  return entries;
}

Result<std::unique_ptr<PointerTrackWriter>, FileError> PointerTrackWriter::create(const QString& bundle) {
  std::unique_ptr<PointerTrackWriter> writer(new PointerTrackWriter(bundle + u'/' + bundleFiles::pointer));
  if (!writer->file_.open(QIODevice::WriteOnly | QIODevice::Unbuffered | QIODevice::NewOnly)) {
    return failure(FileError{FileError::Kind::Other, writer->file_.fileName(), writer->file_.errorString()});
  }
  return writer;
}

PointerTrackWriter::~PointerTrackWriter() {
  flush();
}

void PointerTrackWriter::append(const PointerEntry& entry) {
  const bool isStill = last_ && last_->x == entry.x && last_->y == entry.y;
  if ((isStill && !entry.button && !entry.shape) || !file_.isOpen()) return;
  last_ = entry;
  Json line{{"t", rounded(entry.time, 1e5)}, {"x", rounded(entry.x, 10)}, {"y", rounded(entry.y, 10)}};
  if (entry.shape) line["shape"] = *entry.shape;
  if (entry.button) {
    line["button"] = entry.button->number;
    line["down"] = entry.button->isDown;
  }
  waiting_ += json::serialize(line) + '\n';
  if (entry.time - flushedAt_ < flushInterval) return;
  flushedAt_ = entry.time;
  flush();
}

void PointerTrackWriter::flush() {
  if (!waiting_.isEmpty() && file_.write(waiting_) != waiting_.size()) {
    log::error(QStringLiteral("pointer track not written: ") + file_.errorString());
    file_.close();
  }
  waiting_.clear();
}

}  // namespace vellora
