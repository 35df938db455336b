#pragma once

#include <memory>
#include <utility>
#include <vector>

#include <QFont>
#include <QString>

#include "base/Geometry.h"

class QColor;
class QPainter;
class QTextLayout;

namespace vellora {

/// What a layout depends on.
struct TextSetting {
  QString text;
  double fontSize = 0;  ///< points
  bool handwritten = false;
  QFont::Weight weight = QFont::Medium;
  double wrapWidth = 0;  ///< points; 0: as wide as the text
  friend bool operator==(const TextSetting&, const TextSetting&) = default;
};
size_t qHash(const TextSetting& setting, size_t seed = 0);

/// A text broken into lines, in points from its top-left corner. Laid out by design metrics, so that it is the same at
/// every scale. Every line is as high as every other, whichever fonts its letters come from. Only the first `most`
/// characters are laid out. Stays on the thread that made it, as fonts do.
class LaidOutText {
 public:
  static constexpr qsizetype most = 10'000;
  static constexpr int mostParagraphs = 1'000;

  explicit LaidOutText(const TextSetting& setting);
  ~LaidOutText();

  const Size& size() const { return size_; }
  double lineHeight() const { return lineHeight_ * scale_; }
  /// What the letters may colour; can reach out of the lines.
  Rect inkBounds() const;
  void draw(QPainter& painter, Point topLeft, const QColor& color) const;

  // What TextMeasurer says, from the text's top-left corner.
  int offsetAt(Point place) const;
  Rect cursorRect(int offset) const;
  std::vector<Rect> selectionRects(int begin, int end) const;
  int offsetInNextLine(int offset, int direction, double x) const;
  std::pair<int, int> lineAt(int offset) const;

 private:
  struct Paragraph;
  struct Line {
    std::size_t paragraph;
    int index;  ///< in its paragraph
  };

  void addParagraph(const QString& text, int start, const QFont& font, double wrapWidth);
  void placeLines(double baseline);
  std::size_t lineOf(int offset) const;
  int offsetInLine(std::size_t line, double x) const;
  int firstOf(std::size_t line) const;
  int lastOf(std::size_t line) const;

  double scale_ = 1;  ///< very large letters are laid out smaller
  double lineHeight_ = 0;
  double fontSize_ = 0;
  int length_ = 0;
  Size size_;
  std::vector<Paragraph> paragraphs_;
  std::vector<Line> lines_;
};

}  // namespace vellora
