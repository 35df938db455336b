#include "record_editor/TrimSyncFile.h"

#include <algorithm>

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

}  // namespace

QByteArray TrimSyncFile::serialize(const std::vector<TrimElement>& trims) {
  std::vector<TrimElement> sorted = trims;
  std::ranges::stable_sort(sorted, {}, &TrimElement::start);
  QByteArray text;
  for (const TrimElement& trim : sorted) text += line(trim).toUtf8() + '\n';
  return text;
}

std::vector<TrimElement> TrimSyncFile::parse(const QByteArray& text, const std::vector<TrimElement>& known) {
  QMultiHash<QString, std::size_t> left;  // places in `known`, by what their lines say
  for (std::size_t i = known.size(); i > 0; --i) left.insert(line(known[i - 1]), i - 1);
  std::vector<TrimElement> trims;
  for (QByteArrayView rest(text); !rest.isEmpty() && trims.size() < bundleFiles::mostEntries;) {
    const qsizetype end = rest.indexOf('\n');
    const QByteArrayView raw = rest.first(end < 0 ? rest.size() : end);
    rest = rest.sliced(end < 0 ? rest.size() : end + 1);
    if (raw.size() > longestLine) continue;
    const QString trimmed = QString::fromUtf8(raw).trimmed();
    if (trimmed.isEmpty() || trimmed.startsWith(u'#')) continue;
    const auto range = SubRipTime::firstRange(trimmed);
    if (!range || range->position != 0 || !bundleFiles::isSourceRange(range->start, range->end)) continue;
    const QString after = trimmed.mid(range->length);
    if (!after.isEmpty() && !after.front().isSpace()) continue;

    TrimElement trim{.id = QUuid::createUuid(), .start = range->start, .end = range->end};
    if (const QString note = oneLine(after); !note.isEmpty()) trim.note = note;
    if (const auto same = left.find(line(trim)); same != left.end()) {
      trim = known[*same];
      left.erase(same);
    }
    trims.push_back(std::move(trim));
  }
  std::ranges::stable_sort(trims, {}, &TrimElement::start);
  return trims;
}

}  // namespace vellora
