#pragma once

#include <utility>

#include <QString>

namespace vellora {

/// Where a cursor may stand in a text, in UTF-16 offsets: never inside what a person sees as one character, by the
/// rules of Unicode Standard Annex 29.
namespace textBoundaries {

/// The text without what cannot be typed: line ends become line feeds, control characters go, halves of characters
/// become replacement characters.
QString cleaned(const QString& text);

/// The offset itself, or the nearest before it at which a cursor may stand.
int snapped(const QString& text, int offset);
int nextCharacter(const QString& text, int offset);
int previousCharacter(const QString& text, int offset);
/// The start of the next word, or the end.
int nextWord(const QString& text, int offset);
/// The start of the word, or of the one before when the offset stands there already.
int previousWord(const QString& text, int offset);
/// The start and the end of the word, or of the run between two words, around an offset.
std::pair<int, int> wordAt(const QString& text, int offset);

}  // namespace textBoundaries
}  // namespace vellora
