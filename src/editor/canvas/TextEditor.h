#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "editor/Annotation.h"
#include "editor/TextMeasurer.h"
#include "editor/canvas/CanvasInput.h"

namespace vellora {

/// Typing in one text annotation: its cursor, its selection, what an input method composes, and the changes since
/// typing began. Those can be taken back in runs: a word with the blanks after it, a stretch of deleting, a paste, a
/// style. Moving the cursor ends a run. Main thread.
class TextEditor {
 public:
  /// Longer texts are cut; a person types far less, and layout of more would hold up the window. In UTF-16 units.
  static constexpr qsizetype longestText = 20'000;

  /// Begins with the cursor at the end. `measurer` must outlive the editor.
  TextEditor(Annotation text, TextMeasurer& measurer);

  /// As typed so far, without what is composed.
  const Annotation& annotation() const { return state_.annotation; }
  /// With what is composed: how it is shown.
  Annotation composed() const;

  int cursor() const { return state_.cursor; }
  int anchor() const { return state_.anchor; }
  QString composing() const { return composing_; }
  QString selectedText() const;

  /// Takes the place of the selection.
  void insert(const QString& text);
  /// What the input method shows, with its own cursor within (-1: at its end). It hides the selection, which the text
  /// that comes of it will replace.
  void setComposing(const QString& text, int cursor = -1);
  /// Keys that move, delete or type. False for all others.
  bool key(const KeyInput& input);

  /// `place` in document points.
  void placeCursor(Point place, bool extendsSelection);
  void selectWordAt(Point place);
  void selectAll();

  /// In document points.
  Rect cursorRect() const;
  std::vector<Rect> selectionRects() const;
  std::vector<Rect> composedRects() const;

  /// Changes anything but the text. Changes with the same `run` are taken back together.
  void restyle(const std::function<void(Annotation&)>& change, const std::string& run);

  bool canUndo() const { return !undo_.empty(); }
  bool canRedo() const { return !redo_.empty(); }
  void undo();
  void redo();

 private:
  struct State {
    Annotation annotation;
    int cursor = 0;
    int anchor = 0;
  };
  const QString& text() const { return state_.annotation.text; }
  std::pair<int, int> selection() const;
  Point inText(Point place) const;
  std::vector<Rect> inDocument(std::vector<Rect> rects) const;
  void beginRun(const std::string& run);
  void moveTo(int offset, bool extendsSelection);
  void replaceSelection(const QString& text);
  void erase(int to);
  int horizontalTarget(const KeyInput& input, int direction) const;
  void moveVertically(int direction, bool extendsSelection);

  TextMeasurer& measurer_;
  State state_;
  QString composing_;
  int composingCursor_ = 0;
  std::optional<double> column_;  // the horizontal place moving up and down keeps to
  std::string run_;
  std::vector<State> undo_;
  std::vector<State> redo_;
};

}  // namespace vellora
