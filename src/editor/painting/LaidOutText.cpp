#include "editor/painting/LaidOutText.h"

#include <algorithm>
#include <cmath>

#include <QColor>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QHash>
#include <QPainter>
#include <QRawFont>
#include <QTextLayout>

#include "editor/painting/TextFont.h"

namespace vellora {
namespace {

/// Larger letters are laid out at this size and enlarged: positions in a layout are fixed-point numbers.
constexpr double largestLayout = 256;

bool isParagraphEnd(QChar c) {
  return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

bool hasRightToLeft(const QString& text) {
  return std::any_of(text.begin(), text.end(), [](QChar c) {
    // Surrogates may stand for anything.
    return c.isSurrogate() || c.direction() == QChar::DirR || c.direction() == QChar::DirAL ||
           (c.direction() >= QChar::DirLRE && c.direction() <= QChar::DirPDF);
  });
}

QTextOption layoutOption(double wrapWidth, double fontSize, bool fromRight) {
  QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
  option.setTextDirection(fromRight ? Qt::RightToLeft : Qt::LeftToRight);
  option.setUseDesignMetrics(true);
  option.setTabStopDistance(2 * fontSize);
  if (!(wrapWidth > 0)) option.setFlags(QTextOption::IncludeTrailingSpaces);
  option.setWrapMode(wrapWidth > 0 ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
  return option;
}

}  // namespace

struct LaidOutText::Paragraph {
  int start = 0;
  int length = 0;
  bool fromRight = false;  ///< reads from right to left
  bool isMixed = false;    ///< has characters of both directions, or only such from right to left
  std::unique_ptr<QTextLayout> layout;
};

size_t qHash(const TextSetting& setting, size_t seed) {
  return qHashMulti(seed, setting.text, setting.fontSize, setting.handwritten, static_cast<int>(setting.weight),
                    setting.wrapWidth);
}

LaidOutText::LaidOutText(const TextSetting& setting)
    : scale_(std::max(1.0, setting.fontSize / largestLayout)), fontSize_(setting.fontSize / scale_) {
  const QFont font = textFont(fontSize_, setting.handwritten, setting.weight);
  const QFontMetricsF metrics(font, &textDevice());
  lineHeight_ = std::ceil(metrics.ascent() + metrics.descent() + metrics.leading());
  const double wrapWidth = std::isfinite(setting.wrapWidth) ? std::clamp(setting.wrapWidth, 0.0, 1e6) / scale_ : 0;

  const QString& text = setting.text;
  qsizetype end = std::min(text.size(), most);
  if (end < text.size() && text.at(end).isLowSurrogate()) --end;
  qsizetype start = 0;
  for (qsizetype i = 0; i <= end; ++i) {
    if (i < end && !isParagraphEnd(text.at(i))) continue;
    if (static_cast<int>(paragraphs_.size()) == mostParagraphs) break;
    addParagraph(text.mid(start, i - start), static_cast<int>(start), font, wrapWidth);
    length_ = static_cast<int>(i);
    if (i + 1 < end && text.at(i) == u'\r' && text.at(i + 1) == u'\n') ++i;
    start = i + 1;
  }
  if (wrapWidth > 0) size_.width = wrapWidth;
  placeLines(metrics.ascent() + (lineHeight_ - metrics.ascent() - metrics.descent()) / 2);
  size_ = {size_.width * scale_, static_cast<double>(lines_.size()) * lineHeight_ * scale_};
}

LaidOutText::~LaidOutText() = default;

void LaidOutText::addParagraph(const QString& text, int start, const QFont& font, double wrapWidth) {
  Paragraph paragraph;
  paragraph.start = start;
  paragraph.length = static_cast<int>(text.size());
  paragraph.isMixed = hasRightToLeft(text);
  paragraph.fromRight = paragraph.isMixed && text.isRightToLeft();
  paragraph.layout = std::make_unique<QTextLayout>(text, font, &textDevice());
  QTextLayout& layout = *paragraph.layout;
  layout.setTextOption(layoutOption(wrapWidth, fontSize_, paragraph.fromRight));
  layout.setCacheEnabled(true);
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(wrapWidth > 0 ? wrapWidth : 1e7);
    size_.width = std::max(size_.width, line.naturalTextWidth());
    lines_.push_back({paragraphs_.size(), layout.lineCount() - 1});
  }
  layout.endLayout();
  paragraphs_.push_back(std::move(paragraph));
}

void LaidOutText::placeLines(double baseline) {
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const Paragraph& paragraph = paragraphs_[lines_[i].paragraph];
    QTextLine line = paragraph.layout->lineAt(lines_[i].index);
    const double indent = paragraph.fromRight ? std::max(0.0, size_.width - line.naturalTextWidth()) : 0;
    line.setPosition({indent, static_cast<double>(i) * lineHeight_ + baseline - line.ascent()});
  }
}

Rect LaidOutText::inkBounds() const {
  QRectF bounds(0, 0, size_.width / scale_, size_.height / scale_);
  for (const Paragraph& paragraph : paragraphs_) {
    for (const QGlyphRun& run : paragraph.layout->glyphRuns()) {
      const QRawFont font = run.rawFont();
      const QList<quint32> glyphs = run.glyphIndexes();
      const QList<QPointF> positions = run.positions();
      for (qsizetype i = 0; i < glyphs.size(); ++i) {
        bounds |= font.boundingRect(glyphs.at(i)).translated(positions.at(i));
      }
    }
  }
  return {{bounds.x() * scale_, bounds.y() * scale_}, {bounds.width() * scale_, bounds.height() * scale_}};
}

void LaidOutText::draw(QPainter& painter, Point topLeft, const QColor& color) const {
  painter.save();
  painter.translate(topLeft.x, topLeft.y);
  if (scale_ != 1) painter.scale(scale_, scale_);
  painter.setPen(color);
  const QRectF clip = painter.hasClipping() ? painter.clipBoundingRect() : QRectF();
  for (const Paragraph& paragraph : paragraphs_) paragraph.layout->draw(&painter, {}, {}, clip);
  painter.restore();
}

std::size_t LaidOutText::lineOf(int offset) const {
  const int wanted = std::clamp(offset, 0, length_);
  // The last line that starts at or before the offset.
  const auto after = std::upper_bound(lines_.begin(), lines_.end(), wanted, [this](int place, const Line& line) {
    return place < firstOf(static_cast<std::size_t>(&line - lines_.data()));
  });
  return after == lines_.begin() ? 0 : static_cast<std::size_t>(after - lines_.begin()) - 1;
}

int LaidOutText::firstOf(std::size_t line) const {
  const Paragraph& paragraph = paragraphs_[lines_[line].paragraph];
  return paragraph.start + paragraph.layout->lineAt(lines_[line].index).textStart();
}

int LaidOutText::lastOf(std::size_t line) const {
  const Paragraph& paragraph = paragraphs_[lines_[line].paragraph];
  if (lines_[line].index + 1 == paragraph.layout->lineCount()) return paragraph.start + paragraph.length;
  // The place after a wrapped line's last character is the next line's start.
  const int next = paragraph.layout->lineAt(lines_[line].index + 1).textStart();
  return std::max(firstOf(line), paragraph.start + paragraph.layout->previousCursorPosition(next));
}

int LaidOutText::offsetInLine(std::size_t line, double x) const {
  const Paragraph& paragraph = paragraphs_[lines_[line].paragraph];
  const int place = paragraph.layout->lineAt(lines_[line].index).xToCursor(std::clamp(x, -1.0, size_.width + 1));
  return std::clamp(paragraph.start + place, firstOf(line), lastOf(line));
}

int LaidOutText::offsetAt(Point place) const {
  const double line = std::floor(place.y / scale_ / lineHeight_);
  const double last = static_cast<double>(lines_.size() - 1);
  return offsetInLine(static_cast<std::size_t>(std::clamp(line, 0.0, last)), place.x / scale_);
}

Rect LaidOutText::cursorRect(int offset) const {
  const std::size_t line = lineOf(offset);
  const Paragraph& paragraph = paragraphs_[lines_[line].paragraph];
  int place = std::clamp(std::clamp(offset, 0, length_) - paragraph.start, 0, paragraph.length);
  const double x = paragraph.layout->lineAt(lines_[line].index).cursorToX(&place);
  return {{x * scale_, static_cast<double>(line) * lineHeight()}, {0, lineHeight()}};
}

std::vector<Rect> LaidOutText::selectionRects(int begin, int end) const {
  begin = std::clamp(begin, 0, length_);
  end = std::clamp(end, 0, length_);
  std::vector<Rect> rects;
  if (begin >= end) return rects;
  const double lineBreak = fontSize_ * 0.25;
  for (std::size_t i = lineOf(begin); i < lines_.size() && firstOf(i) < end; ++i) {
    const Paragraph& paragraph = paragraphs_[lines_[i].paragraph];
    const QTextLine line = paragraph.layout->lineAt(lines_[i].index);
    const int from = std::max(begin - paragraph.start, line.textStart());
    const int to = std::min(end - paragraph.start, line.textStart() + line.textLength());
    const auto add = [&](double x1, double x2) {
      const double left = std::min(x1, x2) * scale_;
      const double right = std::max(x1, x2) * scale_;
      const double top = static_cast<double>(i) * lineHeight();
      if (!rects.empty() && rects.back().minY() == top &&
          (std::abs(rects.back().maxX() - left) < 0.01 || std::abs(rects.back().minX() - right) < 0.01)) {
        rects.back() = rects.back().united({{left, top}, {right - left, lineHeight()}});
      } else {
        rects.push_back({{left, top}, {right - left, lineHeight()}});
      }
    };
    if (from < to && !paragraph.isMixed) {
      add(line.cursorToX(from), line.cursorToX(to));
    } else {
      // What follows in the text need not stand side by side.
      for (int at = from; at < to;) {
        const int next = std::max(at + 1, paragraph.layout->nextCursorPosition(at));
        add(line.cursorToX(at, QTextLine::Leading), line.cursorToX(at, QTextLine::Trailing));
        at = next;
      }
    }
    const bool isLastOfParagraph = lines_[i].index + 1 == paragraph.layout->lineCount();
    if (isLastOfParagraph && end > paragraph.start + paragraph.length) {
      const double x = line.cursorToX(paragraph.length);
      add(x, paragraph.fromRight ? x - lineBreak : x + lineBreak);
    }
  }
  return rects;
}

int LaidOutText::offsetInNextLine(int offset, int direction, double x) const {
  const std::size_t line = lineOf(offset);
  if (direction < 0) return line == 0 ? 0 : offsetInLine(line - 1, x / scale_);
  return line + 1 == lines_.size() ? length_ : offsetInLine(line + 1, x / scale_);
}

std::pair<int, int> LaidOutText::lineAt(int offset) const {
  const std::size_t line = lineOf(offset);
  return {firstOf(line), lastOf(line)};
}

}  // namespace vellora
