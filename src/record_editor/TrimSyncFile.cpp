#include "record_editor/TrimSyncFile.h"

#include <algorithm>
#include <optional>

#include <QMultiHash>
#include <QRegularExpression>

#include "record_editor/BundleFiles.h"
#include "record_editor/SubRipTime.h"

namespace vellora {
namespace {

/// Longer lines are no trims.
constexpr qsizetype longestLine = 16'384;

QString oneLine(const QString& note) {
  static const QRegularExpression breaks(QStringLiteral("[\\x00-\\x1F\\x{2028}\\x{2029}]+"));
  return QString(note).replace(breaks, QStringLiteral(" ")).trimmed();
}

QString line(const TrimElement& trim) {
  QString text = SubRipTime::format(trim.start) + QStringLiteral(" --> ") + SubRipTime::format(trim.end);
  const QString note = oneLine(trim.note.value_or(QString()));
  if (!note.isEmpty()) text += QStringLiteral("  ") + note;
  return text;
}

std::optional<TrimElement> read(const QString& line) {
  const auto range = SubRipTime::firstRange(line);
  if (!range || range->position != 0 || !bundleFiles::isSourceRange(range->start, range->end)) return std::nullopt;
  const QString after = line.mid(range->length);
  if (!after.isEmpty() && !after.front().isSpace()) return std::nullopt;
  TrimElement trim{.id = QUuid::createUuid(), .start = range->start, .end = range->end};
  if (const QString note = oneLine(after); !note.isEmpty()) trim.note = note;
  return trim;
}

}  // namespace

QByteArray TrimSyncFile::serialize(const std::vector<TrimElement>& trims) {
  std::vector<TrimElement> sorted = trims;
  std::ranges::stable_sort(sorted, {}, &TrimElement::start);
  QByteArray text;
  for (const TrimElement& trim : sorted) text += line(trim).toUtf8() + '\n';
  return text;
}

TrimSyncFile::Content TrimSyncFile::parse(const QByteArray& text, const std::vector<TrimElement>& known) {
  QMultiHash<QString, std::size_t> left;  // places in `known`, by what their lines say
  for (std::size_t i = known.size(); i > 0; --i) left.insert(line(known[i - 1]), i - 1);
  Content content;
  auto& [trims, skipped] = content;
  QByteArrayView rest(text);
  for (int number = 1; !rest.isEmpty() && trims.size() + skipped.size() < bundleFiles::mostEntries; ++number) {
    const qsizetype end = rest.indexOf('\n');
    const QByteArrayView raw = rest.first(end < 0 ? rest.size() : end);
    rest = rest.sliced(end < 0 ? rest.size() : end + 1);
    const QString trimmed = raw.size() > longestLine ? QString() : QString::fromUtf8(raw).trimmed();
    if (raw.size() <= longestLine && (trimmed.isEmpty() || trimmed.startsWith(u'#'))) continue;
    auto trim = read(trimmed);
    if (!trim) {
      skipped.push_back(number);
      continue;
    }
    if (const auto same = left.find(line(*trim)); same != left.end()) {
      trim = known[*same];
      left.erase(same);
    }
    trims.push_back(std::move(*trim));
  }
  std::ranges::stable_sort(trims, {}, &TrimElement::start);
  return content;
}

}  // namespace vellora
