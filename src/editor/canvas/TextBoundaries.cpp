#include "editor/canvas/TextBoundaries.h"

#include <algorithm>

#include <QTextBoundaryFinder>

namespace vellora::textBoundaries {
namespace {

int clamped(const QString& text, int offset) {
  return std::clamp(offset, 0, static_cast<int>(text.size()));
}

QTextBoundaryFinder finderAt(QTextBoundaryFinder::BoundaryType type, const QString& text, int offset) {
  QTextBoundaryFinder finder(type, text);
  finder.setPosition(clamped(text, offset));
  return finder;
}

}  // namespace

QString cleaned(const QString& text) {
  QString unified = text;
  unified.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  QString result;
  result.reserve(unified.size());
  for (qsizetype i = 0; i < unified.size(); ++i) {
    const QChar c = unified[i];
    const bool isPair = c.isHighSurrogate() && i + 1 < unified.size() && unified[i + 1].isLowSurrogate();
    if (isPair) {
      result += c;
      result += unified[++i];
    } else if (c.isSurrogate()) {
      result += QChar(QChar::ReplacementCharacter);
    } else if (c == u'\n' || c == u'\r' || c == QChar(QChar::LineSeparator) || c == QChar(QChar::ParagraphSeparator)) {
      result += u'\n';
    } else if (c == u'\t') {
      result += QStringLiteral("    ");
    } else if (c.category() != QChar::Other_Control) {
      result += c;
    }
  }
  return result;
}

int snapped(const QString& text, int offset) {
  auto finder = finderAt(QTextBoundaryFinder::Grapheme, text, offset);
  if (finder.isAtBoundary()) return static_cast<int>(finder.position());
  return previousCharacter(text, offset);
}

int nextCharacter(const QString& text, int offset) {
  auto finder = finderAt(QTextBoundaryFinder::Grapheme, text, offset);
  const auto next = finder.toNextBoundary();
  return next < 0 ? static_cast<int>(text.size()) : static_cast<int>(next);
}

int previousCharacter(const QString& text, int offset) {
  auto finder = finderAt(QTextBoundaryFinder::Grapheme, text, offset);
  const auto previous = finder.toPreviousBoundary();
  return previous < 0 ? 0 : static_cast<int>(previous);
}

int nextWord(const QString& text, int offset) {
  auto finder = finderAt(QTextBoundaryFinder::Word, text, offset);
  for (auto at = finder.toNextBoundary(); at >= 0; at = finder.toNextBoundary()) {
    if (finder.boundaryReasons() & QTextBoundaryFinder::StartOfItem) return static_cast<int>(at);
  }
  return static_cast<int>(text.size());
}

int previousWord(const QString& text, int offset) {
  auto finder = finderAt(QTextBoundaryFinder::Word, text, offset);
  for (auto at = finder.toPreviousBoundary(); at >= 0; at = finder.toPreviousBoundary()) {
    if (finder.boundaryReasons() & QTextBoundaryFinder::StartOfItem) return static_cast<int>(at);
  }
  return 0;
}

std::pair<int, int> wordAt(const QString& text, int offset) {
  const int place = clamped(text, offset);
  QTextBoundaryFinder finder(QTextBoundaryFinder::Word, text);
  // At the end of a text the last word is meant.
  finder.setPosition(place == text.size() ? place : place + 1);
  const auto from = std::max<qsizetype>(finder.toPreviousBoundary(), 0);
  finder.setPosition(from);
  const auto to = finder.toNextBoundary();
  return {static_cast<int>(from), to < 0 ? static_cast<int>(text.size()) : static_cast<int>(to)};
}

}  // namespace vellora::textBoundaries
