#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>

#include "editor/canvas/CanvasModel.h"
#include "editor/canvas/TextBoundaries.h"
#include "support/FakePreferences.h"
#include "support/TestBitmaps.h"

namespace vellora::test {

/// Every UTF-16 unit is 10 points wide and a line 20 high; lines break at line feeds only.
class FakeTextMeasurer final : public TextMeasurer {
 public:
  static constexpr double advance = 10;
  static constexpr double lineHeight = 20;

  Size boxSize(const Annotation& text) override {
    int longest = 0;
    const auto lines = linesOf(text);
    for (const auto& [from, to] : lines) longest = std::max(longest, to - from);
    return {std::max(longest * advance, 2.0), static_cast<double>(lines.size()) * lineHeight};
  }
  int offsetAt(const Annotation& text, Point place) override {
    const auto lines = linesOf(text);
    const auto row =
        std::clamp(static_cast<int>(std::floor(place.y / lineHeight)), 0, static_cast<int>(lines.size()) - 1);
    const auto [from, to] = lines[static_cast<std::size_t>(row)];
    const int offset = std::clamp(from + static_cast<int>(std::lround(place.x / advance)), from, to);
    return textBoundaries::snapped(text.text, offset);
  }
  Rect cursorRect(const Annotation& text, int offset) override {
    const int row = rowOf(text, offset);
    const int from = linesOf(text)[static_cast<std::size_t>(row)].first;
    return {{(offset - from) * advance, row * lineHeight}, {0, lineHeight}};
  }
  std::vector<Rect> selectionRects(const Annotation& text, int begin, int end) override {
    const Rect first = cursorRect(text, begin);
    return {{first.origin, {(end - begin) * advance, lineHeight}}};
  }
  int offsetInNextLine(const Annotation& text, int offset, int direction, double x) override {
    const int row = rowOf(text, offset) + direction;
    if (row < 0) return 0;
    if (row >= static_cast<int>(linesOf(text).size())) return static_cast<int>(text.text.size());
    return offsetAt(text, {x, row * lineHeight + 1});
  }
  std::pair<int, int> lineAt(const Annotation& text, int offset) override {
    return linesOf(text)[static_cast<std::size_t>(rowOf(text, offset))];
  }

 private:
  static std::vector<std::pair<int, int>> linesOf(const Annotation& text) {
    std::vector<std::pair<int, int>> lines;
    int from = 0;
    for (const QString& line : text.text.split(u'\n')) {
      const int to = from + static_cast<int>(line.size());
      lines.emplace_back(from, to);
      from = to + 1;
    }
    return lines;
  }
  static int rowOf(const Annotation& text, int offset) {
    return static_cast<int>(QStringView(text.text).left(offset).count(u'\n'));
  }
};

inline CapturePiece pieceOf(Point origin, PixelSize pixels = {400, 300}, double scale = 1) {
  CapturePiece piece = makePiece(solidBitmap(pixels, 0xff808080), scale);
  piece.origin = origin;
  return piece;
}

inline Annotation annotationOf(Annotation::Kind kind, Point p1, Point p2) {
  Annotation annotation;
  annotation.id = newAnnotationId();
  annotation.kind = kind;
  annotation.p1 = p1;
  annotation.p2 = p2;
  return annotation;
}

inline ImageDocument documentOf(std::vector<Annotation> annotations, std::vector<CapturePiece> pieces = {}) {
  ImageDocument document;
  document.pieces = pieces.empty() ? std::vector{pieceOf({0, 0})} : std::move(pieces);
  for (Annotation& annotation : annotations) document.annotations.push_back(makeAnnotation(std::move(annotation)));
  return document;
}

/// Equal in everything a step may change.
inline bool isSame(const ImageDocument& a, const ImageDocument& b) {
  const auto samePiece = [](const CapturePiece& x, const CapturePiece& y) {
    return x.id == y.id && x.origin == y.origin && x.pointSize == y.pointSize && x.visibleRect == y.visibleRect;
  };
  const auto sameAnnotation = [](const AnnotationPtr& x, const AnnotationPtr& y) { return *x == *y; };
  return std::ranges::equal(a.pieces, b.pieces, samePiece) &&
         std::ranges::equal(a.annotations, b.annotations, sameAnnotation) && a.backdrop == b.backdrop;
}

/// A canvas with everything it needs, worked as a person would.
class Canvas {
 public:
  explicit Canvas(ImageDocument document) : model(std::move(document), {measurer, styles, settings}) {}

  static PointerEvent at(double x, double y, Modifiers modifiers = {}, double pointsPerScreenPoint = 1) {
    return {{x, y}, pointsPerScreenPoint, modifiers};
  }
  void drag(Point from, Point to, Modifiers modifiers = {}) {
    model.press(at(from.x, from.y, modifiers));
    model.move(at((from.x + to.x) / 2, (from.y + to.y) / 2, modifiers));
    model.move(at(to.x, to.y, modifiers));
    model.release(at(to.x, to.y, modifiers));
  }
  void click(double x, double y, Modifiers modifiers = {}) {
    model.press(at(x, y, modifiers));
    model.release(at(x, y, modifiers));
  }
  bool key(KeyInput::Key key, Modifiers modifiers = {}) { return model.keyPress({key, modifiers, {}, 1}); }
  void type(const QString& text) {
    for (const QChar c : text) {
      if (c == u'\n') {
        key(KeyInput::Key::Return);
      } else {
        model.keyPress({KeyInput::Key::Other, {}, QString(c), 1});
      }
    }
  }
  const Annotation& annotation(std::size_t index) const { return *model.document().annotations.at(index); }
  std::size_t count() const { return model.document().annotations.size(); }
  AnnotationId id(std::size_t index) const { return annotation(index).id; }
  const CapturePiece& piece(std::size_t index = 0) const { return model.document().pieces.at(index); }
  /// Where a handle of what is selected is; nowhere near when there is none.
  Point handle(Handle::Role role) const {
    for (const Handle& handle : model.handles()) {
      if (handle.role == role) return handle.position;
    }
    return {-1000, -1000};
  }
  /// How many steps can be taken back.
  std::size_t steps() {
    std::size_t found = 0;
    while (model.canUndo()) {
      model.undo();
      ++found;
    }
    for (std::size_t i = 0; i < found; ++i) model.redo();
    return found;
  }

  FakePreferences preferences;
  ToolStylePreferences styles{preferences};
  EditorSettings settings{preferences};
  FakeTextMeasurer measurer;
  CanvasModel model;
};

inline constexpr Modifiers shift{.shift = true};
inline constexpr Modifiers alt{.alt = true};
inline constexpr Modifiers control{.control = true};

}  // namespace vellora::test
