/// Writes pictures of every kind of annotation, plain and hand-drawn, at 1× and 2×, into a folder.
#include <cmath>
#include <cstdio>
#include <functional>
#include <numbers>
#include <vector>

#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "editor/Palette.h"
#include "editor/painting/AnnotationPainter.h"

namespace {

using namespace vellora;
using Kind = Annotation::Kind;

struct Sheet {
  QString name;
  Size size;
  std::vector<Annotation> annotations;
  QColor ground = QColor(0xfb, 0xfb, 0xfc);
};

ColorComponents swatch(std::size_t index) {
  return Palette::swatches[index % Palette::swatches.size()];
}

Annotation shape(Kind kind, Point p1, Point p2, double lineWidth, bool sketch, std::size_t color = 0,
                 std::uint64_t seed = 1) {
  Annotation annotation;
  annotation.kind = kind;
  annotation.p1 = p1;
  annotation.p2 = p2;
  annotation.lineWidth = lineWidth;
  annotation.sketch = sketch;
  annotation.color = swatch(color);
  annotation.sketchSeed = seed * 7919;
  return annotation;
}

/// One column a line width, one row a size; every picture shows other seeds.
Sheet sizes(const QString& name, Kind kind, bool sketch) {
  Sheet sheet{name, {1240, 620}, {}};
  const double widths[] = {1, 2, 3, 5, 8, 12, 20};
  double x = 20;
  std::size_t color = 0;
  for (const double width : widths) {
    const double column = 110 + 7 * width;
    sheet.annotations.push_back(
        shape(kind, {x, 20}, {x + 14 + width, 34 + width / 2}, width, sketch, color, color + 1));
    sheet.annotations.push_back(
        shape(kind, {x + 5, 80}, {x + column * 0.55, 110 + width}, width, sketch, color, color + 11));
    sheet.annotations.push_back(shape(kind, {x + 5, 190}, {x + column - 25, 270}, width, sketch, color, color + 21));
    Annotation filled = shape(kind, {x + 5, 330}, {x + column - 25, 450 + 3 * width}, width, sketch, color, color + 31);
    filled.shapeFill = true;
    if (kind == Kind::Arrow) filled.control = Point{x + column, 310};
    sheet.annotations.push_back(filled);
    x += column;
    ++color;
  }
  return sheet;
}

Sheet longOnes(const QString& name, Kind kind, bool sketch) {
  Sheet sheet{name, {1240, 620}, {}};
  sheet.annotations.push_back(shape(kind, {30, 30}, {1200, 120}, 3, sketch, 0, 5));
  sheet.annotations.push_back(shape(kind, {40, 190}, {900, 600}, 3, sketch, 4, 6));
  sheet.annotations.push_back(shape(kind, {960, 180}, {1200, 590}, 5, sketch, 3, 7));
  sheet.annotations.push_back(shape(kind, {100, 240}, {840, 540}, 8, sketch, 5, 8));
  return sheet;
}

Sheet seeds(const QString& name, Kind kind, double lineWidth) {
  Sheet sheet{name, {1240, 620}, {}};
  for (std::size_t i = 0; i < 20; ++i) {
    const double x = 30 + static_cast<double>(i % 5) * 240;
    const double y = 30 + static_cast<double>(i / 5) * 150;
    const Point end = kind == Kind::Arrow && i % 2 == 1 ? Point{x + 180, y + 10} : Point{x + 180, y + 100};
    sheet.annotations.push_back(shape(kind, {x, y}, end, lineWidth, true, 0, i + 100));
  }
  return sheet;
}

Sheet arrowsAround(bool sketch) {
  Sheet sheet{sketch ? QStringLiteral("arrows-around-sketch") : QStringLiteral("arrows-around"), {800, 620}, {}};
  for (std::size_t i = 0; i < 16; ++i) {
    const double angle = 2 * std::numbers::pi * static_cast<double>(i) / 16;
    const Point center{400, 310};
    sheet.annotations.push_back(shape(Kind::Arrow, {center.x + 60 * std::cos(angle), center.y + 60 * std::sin(angle)},
                                      {center.x + 280 * std::cos(angle), center.y + 280 * std::sin(angle)},
                                      2 + double(i % 4) * 1.5, sketch, i, i + 1));
  }
  return sheet;
}

Annotation text(Point at, double lineWidth, const QString& words, bool ground, bool handwritten, std::size_t color,
                double wrap = 0) {
  Annotation annotation = shape(Kind::Text, at, at, lineWidth, false, color);
  annotation.text = words;
  annotation.textBackground = ground;
  annotation.textHandwritten = handwritten;
  annotation.textBoxWidth = wrap;
  return annotation;
}

Sheet texts() {
  Sheet sheet{QStringLiteral("texts"), {1240, 620}, {}};
  const QString words = QStringLiteral("Handgloves, 42 apples");
  for (std::size_t i = 0; i < 8; ++i) {
    const double y = 20 + static_cast<double>(i) * 72;
    sheet.annotations.push_back(text({20, y}, 3, words, false, i % 2 == 1, i));
    sheet.annotations.push_back(text({330, y}, 3, words, true, i % 2 == 1, i));
  }
  const QString paragraph = QStringLiteral(
      "The quick brown fox jumps over the lazy dog.\n\nשלום עולם, hello مرحبا بالعالم\n"
      "日本語のテキスト und Ümläute 👍🏽 — “quoted”");
  sheet.annotations.push_back(text({660, 20}, 2, paragraph, true, false, 4, 220));
  sheet.annotations.push_back(text({930, 20}, 2, paragraph, true, true, 2, 280));
  sheet.annotations.push_back(text({660, 400}, 1, QStringLiteral("small print"), false, false, 7));
  sheet.annotations.push_back(text({660, 430}, 12, QStringLiteral("Large Ag"), false, true, 6));
  sheet.annotations.push_back(text({660, 530}, 9, QString(), true, false, 3));
  return sheet;
}

Sheet counters() {
  Sheet sheet{QStringLiteral("counters"), {1240, 420}, {}};
  const int numbers[] = {1, 8, 10, 42, 99, 100, 888, 1234, 12345, -7};
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t i = 0; i < 10; ++i) {
      const double width = row == 0 ? 1 : row == 1 ? 3 : 12;
      const Point at{60 + static_cast<double>(i) * 120, row == 0 ? 50.0 : row == 1 ? 140.0 : 300.0};
      Annotation counter = shape(Kind::Counter, at, at, width, false, i);
      counter.number = numbers[i];
      counter.tailAngle = static_cast<double>(i) * std::numbers::pi / 5;
      sheet.annotations.push_back(counter);
    }
  }
  return sheet;
}

Annotation pen(Point at, double lineWidth, double size, std::size_t color, bool pressure) {
  Annotation annotation = shape(Kind::Pen, at, at, lineWidth, false, color);
  annotation.penPoints.emplace();
  annotation.penPressures.emplace();
  for (int i = 0; i <= 140; ++i) {
    const double t = i / 140.0;
    const double angle = t * 4.5 * std::numbers::pi;
    annotation.penPoints->push_back(
        {at.x + t * size + 0.16 * size * std::sin(angle), at.y + 0.28 * size * std::cos(angle) * (1 - 0.5 * t)});
    annotation.penPressures->push_back(pressure ? 0.15 + 0.8 * std::abs(std::sin(t * 5)) : 0.5);
  }
  return annotation;
}

Sheet pens() {
  Sheet sheet{QStringLiteral("pens"), {1240, 620}, {}};
  const double widths[] = {1, 2, 3, 5, 8};
  for (std::size_t i = 0; i < 5; ++i) {
    const double y = 70 + static_cast<double>(i) * 115;
    sheet.annotations.push_back(pen({60, y}, widths[i], 260, i, false));
    sheet.annotations.push_back(pen({440, y}, widths[i], 260, i, true));
    Annotation dot = shape(Kind::Pen, {}, {}, widths[i], false, i);
    dot.penPoints = std::vector<Point>{{800, y}};
    sheet.annotations.push_back(dot);
    dot.penPoints = std::vector<Point>{{840, y}, {880, y - 30}};
    sheet.annotations.push_back(dot);
    dot.penPoints = std::vector<Point>{{920, y - 30}, {960, y - 28}, {1000, y - 30}, {960, y - 20},
                                       {920, y},      {960, y + 2},  {1000, y}};
    sheet.annotations.push_back(dot);
    sheet.annotations.push_back(shape(Kind::Line, {1040, y - 20}, {1190, y + 20}, widths[i], false, i));
  }
  return sheet;
}

/// Everything once more, half transparent: nothing may be darker where parts of one annotation meet.
Sheet translucent() {
  Sheet sheet{QStringLiteral("translucent"), {1240, 620}, {}};
  for (const bool sketch : {false, true}) {
    const double y = sketch ? 320 : 20;
    for (const Kind kind : {Kind::Arrow, Kind::Box, Kind::Ellipse}) {
      const double x = 30 + 260 * static_cast<int>(kind);
      Annotation one = shape(kind, {x, y}, {x + 200, y + 120}, 12, sketch, 4, 3);
      one.shapeFill = true;
      sheet.annotations.push_back(one);
    }
  }
  sheet.annotations.push_back(shape(Kind::Counter, {900, 100}, {}, 20, false, 0));
  sheet.annotations.push_back(text({860, 220}, 8, QStringLiteral("Text"), true, false, 0));
  sheet.annotations.push_back(pen({850, 420}, 8, 260, 3, false));
  sheet.annotations.push_back(text({860, 520}, 12, QStringLiteral("offen"), false, true, 0));
  for (Annotation& annotation : sheet.annotations) annotation.color.alpha = 0.5;
  return sheet;
}

std::vector<Sheet> sheets() {
  std::vector<Sheet> all{texts(), counters(), pens(), translucent(), arrowsAround(false), arrowsAround(true)};
  const std::pair<Kind, QString> kinds[] = {{Kind::Arrow, QStringLiteral("arrow")},
                                            {Kind::Box, QStringLiteral("box")},
                                            {Kind::Ellipse, QStringLiteral("ellipse")}};
  for (const auto& [kind, name] : kinds) {
    for (const bool sketch : {false, true}) {
      const QString suffix = sketch ? QStringLiteral("-sketch") : QString();
      all.push_back(sizes(name + QStringLiteral("-sizes") + suffix, kind, sketch));
      all.push_back(longOnes(name + QStringLiteral("-long") + suffix, kind, sketch));
    }
    all.push_back(seeds(name + QStringLiteral("-seeds"), kind, 3));
  }
  Sheet dark = sizes(QStringLiteral("box-sizes-sketch-dark"), Kind::Box, true);
  dark.ground = QColor(0x1c, 0x20, 0x24);
  all.push_back(dark);
  return all;
}

QImage rendered(const Sheet& sheet, double scale) {
  QImage image(QSizeF(sheet.size.width * scale, sheet.size.height * scale).toSize(), QImage::Format_RGB32);
  image.fill(sheet.ground);
  QPainter painter(&image);
  painter.scale(scale, scale);
  const AnnotationPainter annotations;
  for (const Annotation& annotation : sheet.annotations) annotations.draw(painter, annotation);
  return image;
}

}  // namespace

int main(int argc, char** argv) {
  QGuiApplication application(argc, argv);
  if (argc != 2) {
    std::fprintf(stderr, "painting_gallery FOLDER\n");
    return 2;
  }
  QFontDatabase::addApplicationFont(QStringLiteral(VELLORA_SOURCE_DIR "/assets/fonts/ShantellSans_600SemiBold.ttf"));
  const QDir folder(QString::fromLocal8Bit(argv[1]));
  folder.mkpath(QStringLiteral("."));
  for (const Sheet& sheet : sheets()) {
    for (const int scale : {1, 2}) {
      const QString file = QStringLiteral("%1@%2x.png").arg(sheet.name).arg(scale);
      if (!rendered(sheet, scale).save(folder.filePath(file))) return 1;
    }
  }
  return 0;
}
