#pragma once

#include <QString>

#include "base/Json.h"

/// The files of a recording project and what is common to reading them.
namespace vellora::bundleFiles {

inline const QString screen = QStringLiteral("screen.mov");
inline const QString camera = QStringLiteral("camera.mov");
inline const QString project = QStringLiteral("project.json");
inline const QString pauses = QStringLiteral("pauses.json");
inline const QString keyboard = QStringLiteral("keyboard.json");
inline const QString pointer = QStringLiteral("pointer.jsonl");
inline const QString captions = QStringLiteral("captions.srt");
inline const QString cuts = QStringLiteral("cuts.txt");
inline const QString waveform = QStringLiteral("waveform.json");
inline const QString report = QStringLiteral("report.json");
inline const QString guide = QStringLiteral("AGENTS.md");

/// No recording is longer than this; times beyond it are refused. Seconds.
inline constexpr double longestSource = 10'000'000;
/// Documents larger than this are refused. Bytes.
inline constexpr qint64 largestDocument = 64 << 20;
/// More entries than this of one array are not read.
inline constexpr std::size_t mostEntries = 200'000;

/// Whether `seconds` can be a place on the source axis.
inline bool isSourceTime(double seconds) {
  return seconds >= 0 && seconds <= longestSource;
}

/// Whether start and end make a range on the source axis.
inline bool isSourceRange(double start, double end) {
  return isSourceTime(start) && isSourceTime(end) && start < end;
}

/// A document of the bundle; null when it is missing or cannot be read, which is logged.
Json readDocument(const QString& path);
/// The elements of a document that is an array, at most `mostEntries`; none when it is something else.
Json readArray(const QString& path);

}  // namespace vellora::bundleFiles
