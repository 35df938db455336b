#pragma once

#include <vector>

#include "editor/Annotation.h"

namespace vellora {

/// Where the letters of a text annotation stand. All positions are relative to the annotation's `p1`, in points;
/// offsets count UTF-16 units of the text. Models ask it, the painting room answers with real fonts. Main thread.
class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;

  /// The whole box: the text with the padding of its filled ground, or the text alone.
  virtual Size boxSize(const Annotation& text) = 0;
  /// The offset nearest to a place, always between two characters a person sees as such.
  virtual int offsetAt(const Annotation& text, Point place) = 0;
  /// The upright line of a cursor at an offset: its top and its height (width 0).
  virtual Rect cursorRect(const Annotation& text, int offset) = 0;
  /// The rectangles that cover the characters from `begin` to before `end`, one or more a line.
  virtual std::vector<Rect> selectionRects(const Annotation& text, int begin, int end) = 0;
  /// The offset one line up (-1) or down (1) from `offset`, at the horizontal place `x`; the text's start or end beyond
  /// the first or last line.
  virtual int offsetInNextLine(const Annotation& text, int offset, int direction, double x) = 0;
  /// The start and the end of the line that holds `offset`.
  virtual std::pair<int, int> lineAt(const Annotation& text, int offset) = 0;
};

}  // namespace vellora
