#include "editor/canvas/TextEditor.h"

#include <algorithm>

#include "editor/canvas/PlaneGeometry.h"
#include "editor/canvas/TextBoundaries.h"

namespace vellora {

using namespace geometry;

namespace {

using Key = KeyInput::Key;

const std::string typingRun = "type";
const std::string erasingRun = "erase";

}  // namespace

TextEditor::TextEditor(Annotation text, TextMeasurer& measurer) : measurer_(measurer) {
  state_.annotation = std::move(text);
  state_.cursor = state_.anchor = static_cast<int>(state_.annotation.text.size());
}

std::pair<int, int> TextEditor::selection() const {
  return std::minmax(state_.cursor, state_.anchor);
}

Point TextEditor::inText(Point place) const {
  return difference(place, state_.annotation.p1);
}

std::vector<Rect> TextEditor::inDocument(std::vector<Rect> rects) const {
  for (Rect& rect : rects) rect.origin = sum(rect.origin, state_.annotation.p1);
  return rects;
}

Annotation TextEditor::composed() const {
  Annotation result = state_.annotation;
  result.text.insert(state_.cursor, composing_);
  return result;
}

QString TextEditor::selectedText() const {
  const auto [from, to] = selection();
  return text().mid(from, to - from);
}

void TextEditor::beginRun(const std::string& run) {
  redo_.clear();
  if (!run.empty() && run == run_) return;
  undo_.push_back(state_);
  run_ = run;
}

void TextEditor::replaceSelection(const QString& inserted) {
  const auto [from, to] = selection();
  QString& whole = state_.annotation.text;
  whole.replace(from, to - from, inserted);
  const int end = from + static_cast<int>(inserted.size());
  // What was inserted may join the character after it.
  const bool isBetween = textBoundaries::snapped(whole, end) == end;
  state_.cursor = state_.anchor = isBetween ? end : textBoundaries::nextCharacter(whole, end);
  column_.reset();
}

void TextEditor::insert(const QString& inserted) {
  const auto [from, to] = selection();
  const qsizetype room = std::max<qsizetype>(longestText - (text().size() - (to - from)), 0);
  QString clean = textBoundaries::cleaned(inserted);
  if (clean.size() > room) clean.truncate(textBoundaries::snapped(clean, static_cast<int>(room)));
  if (clean.isEmpty() && from == to) return;
  const bool isTyped = textBoundaries::nextCharacter(clean, 0) == clean.size() && from == to && !clean.isEmpty();
  const bool beginsWord = isTyped && !clean.front().isSpace() && from > 0 && text()[from - 1].isSpace();
  if (beginsWord || !isTyped) run_.clear();
  beginRun(isTyped ? typingRun : std::string());
  replaceSelection(clean);
}

void TextEditor::setComposing(const QString& composing, int cursor) {
  composing_ = textBoundaries::cleaned(composing).left(longestText);
  const int length = static_cast<int>(composing_.size());
  composingCursor_ = cursor < 0 ? length : std::min(cursor, length);
}

void TextEditor::moveTo(int offset, bool extendsSelection) {
  state_.cursor = textBoundaries::snapped(text(), offset);
  if (!extendsSelection) state_.anchor = state_.cursor;
  column_.reset();
  run_.clear();
}

/// Deletes the selection, or what lies between the cursor and `to`.
void TextEditor::erase(int to) {
  if (state_.cursor == state_.anchor && to == state_.cursor) return;
  const bool erasesSelection = state_.cursor != state_.anchor;
  if (erasesSelection) run_.clear();
  beginRun(erasesSelection ? std::string() : erasingRun);
  if (!erasesSelection) state_.anchor = to;
  replaceSelection({});
}

/// Where an arrow left (-1) or right (1) takes the cursor: against the order of the text where it runs right to left.
int TextEditor::horizontalTarget(const KeyInput& input, int direction) const {
  const auto line = measurer_.lineAt(state_.annotation, state_.cursor);
  const bool isForward = (direction > 0) != text().mid(line.first, line.second - line.first).isRightToLeft();
  const auto [from, to] = selection();
  if (from != to && !input.modifiers.shift && !input.modifiers.control) return isForward ? to : from;
  if (input.modifiers.control) {
    return isForward ? textBoundaries::nextWord(text(), state_.cursor)
                     : textBoundaries::previousWord(text(), state_.cursor);
  }
  return isForward ? textBoundaries::nextCharacter(text(), state_.cursor)
                   : textBoundaries::previousCharacter(text(), state_.cursor);
}

void TextEditor::moveVertically(int direction, bool extendsSelection) {
  const double x = column_.value_or(measurer_.cursorRect(state_.annotation, state_.cursor).minX());
  moveTo(measurer_.offsetInNextLine(state_.annotation, state_.cursor, direction, x), extendsSelection);
  column_ = x;
}

bool TextEditor::key(const KeyInput& input) {
  const bool extends = input.modifiers.shift;
  const bool byWords = input.modifiers.control;
  const int length = static_cast<int>(text().size());
  switch (input.key) {
    case Key::Left:
      moveTo(horizontalTarget(input, -1), extends);
      return true;
    case Key::Right:
      moveTo(horizontalTarget(input, 1), extends);
      return true;
    case Key::Up:
      moveVertically(-1, extends);
      return true;
    case Key::Down:
      moveVertically(1, extends);
      return true;
    case Key::Home:
      moveTo(byWords ? 0 : measurer_.lineAt(state_.annotation, state_.cursor).first, extends);
      return true;
    case Key::End:
      moveTo(byWords ? length : measurer_.lineAt(state_.annotation, state_.cursor).second, extends);
      return true;
    case Key::Backspace:
      erase(byWords ? textBoundaries::previousWord(text(), state_.cursor)
                    : textBoundaries::previousCharacter(text(), state_.cursor));
      return true;
    case Key::Delete:
      erase(byWords ? textBoundaries::nextWord(text(), state_.cursor)
                    : textBoundaries::nextCharacter(text(), state_.cursor));
      return true;
    case Key::Return:
      insert(QStringLiteral("\n"));
      return true;
    case Key::SelectAll:
      selectAll();
      return true;
    case Key::Space:
    case Key::Other:
      if (input.text.isEmpty() || textBoundaries::cleaned(input.text).isEmpty()) return false;
      if (input.modifiers.control != input.modifiers.alt) return false;
      insert(input.text);
      return true;
    case Key::Tab:
    case Key::Backtab:
    case Key::Escape:
      break;
  }
  return false;
}

void TextEditor::placeCursor(Point place, bool extendsSelection) {
  if (!isFinite(place)) return;
  moveTo(measurer_.offsetAt(state_.annotation, inText(place)), extendsSelection);
}

void TextEditor::selectWordAt(Point place) {
  if (!isFinite(place)) return;
  const auto [from, to] = textBoundaries::wordAt(text(), measurer_.offsetAt(state_.annotation, inText(place)));
  moveTo(from, false);
  moveTo(to, true);
}

void TextEditor::selectAll() {
  moveTo(0, false);
  moveTo(static_cast<int>(text().size()), true);
}

Rect TextEditor::cursorRect() const {
  Rect rect = measurer_.cursorRect(composed(), state_.cursor + composingCursor_);
  rect.origin = sum(rect.origin, state_.annotation.p1);
  return rect;
}

std::vector<Rect> TextEditor::selectionRects() const {
  const auto [from, to] = selection();
  if (from == to || !composing_.isEmpty()) return {};
  return inDocument(measurer_.selectionRects(state_.annotation, from, to));
}

std::vector<Rect> TextEditor::composedRects() const {
  if (composing_.isEmpty()) return {};
  return inDocument(
      measurer_.selectionRects(composed(), state_.cursor, state_.cursor + static_cast<int>(composing_.size())));
}

void TextEditor::restyle(const std::function<void(Annotation&)>& change, const std::string& run) {
  Annotation changed = state_.annotation;
  change(changed);
  if (changed == state_.annotation) return;
  beginRun(run);
  state_.annotation = std::move(changed);
}

void TextEditor::undo() {
  if (undo_.empty()) return;
  redo_.push_back(std::exchange(state_, std::move(undo_.back())));
  undo_.pop_back();
  run_.clear();
  column_.reset();
}

void TextEditor::redo() {
  if (redo_.empty()) return;
  undo_.push_back(std::exchange(state_, std::move(redo_.back())));
  redo_.pop_back();
  run_.clear();
  column_.reset();
}

}  // namespace vellora
