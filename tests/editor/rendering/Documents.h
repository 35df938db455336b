#pragma once

#include <cstring>
#include <random>

#include <QImage>

#include "editor/rendering/DocumentRenderer.h"
#include "media/codecs/ImageConversion.h"

/// Documents to render.
namespace vellora::test {

/// Something of everything: flat ground, noise and stripes.
inline QImage busyPicture(QSize size, std::uint32_t seed) {
  std::mt19937 random(seed);
  QImage image(size, QImage::Format_RGB32);
  for (int y = 0; y < size.height(); ++y) {
    auto* row = reinterpret_cast<std::uint32_t*>(image.scanLine(y));
    for (int x = 0; x < size.width(); ++x) {
      const bool noisy = (x / 24 + y / 24) % 3 == 0;
      row[x] = noisy ? static_cast<std::uint32_t>(random()) : (x / 5 % 2 == 0 ? 0xFF203040U : 0xFFEEDDCCU);
    }
  }
  return image;
}

inline CapturePiece pieceOf(const QImage& image, double scale, Point origin = {}) {
  CapturePiece piece = makePiece(toBitmap(image), scale);
  piece.origin = origin;
  return piece;
}

inline Annotation annotationIn(const Rect& rect, Annotation::Kind kind) {
  Annotation annotation;
  annotation.id = newAnnotationId();
  annotation.kind = kind;
  annotation.p1 = rect.origin;
  annotation.p2 = {rect.maxX(), rect.maxY()};
  annotation.color = {0.9, 0.2, 0.3, 1};
  annotation.sketchSeed = 7919;
  return annotation;
}

inline Annotation blurIn(const Rect& rect, BlurStyle style, double strength = 0.5) {
  Annotation annotation = annotationIn(rect, Annotation::Kind::Blur);
  annotation.blurStyle = style;
  annotation.blurStrength = strength;
  return annotation;
}

inline Annotation lensIn(const Rect& rect, double magnification, std::optional<Point> center = {},
                         MagnifierShape shape = MagnifierShape::Circle) {
  Annotation annotation = annotationIn(rect, Annotation::Kind::Magnifier);
  annotation.magnification = magnification;
  annotation.magnifierShape = shape;
  annotation.control = center;
  return annotation;
}

inline void add(ImageDocument& document, Annotation annotation) {
  document.annotations.push_back(makeAnnotation(std::move(annotation)));
}

/// An annotation of a random kind somewhere around the middle of `area`.
inline Annotation randomAnnotation(std::mt19937& random, const Rect& area) {
  const auto number = [&](double low, double high) { return std::uniform_real_distribution(low, high)(random); };
  const Point corner{number(area.minX() - 20, area.maxX()), number(area.minY() - 20, area.maxY())};
  Annotation annotation =
      annotationIn({corner, {number(4, 90), number(4, 70)}}, static_cast<Annotation::Kind>(random() % 9));
  annotation.blurStyle = static_cast<BlurStyle>(random() % 3);
  annotation.blurStrength = number(0, 0.7);
  annotation.magnification = std::array{1.5, 2.0, 3.0}[random() % 3];
  annotation.magnifierShape = static_cast<MagnifierShape>(random() % 2);
  if (random() % 2 == 0) annotation.control = Point{number(area.minX(), area.maxX()), number(area.minY(), area.maxY())};
  annotation.text = QStringLiteral("word");
  annotation.textBackground = random() % 2 == 0;
  annotation.lineWidth = number(1, 6);
  annotation.penPoints = std::vector<Point>{annotation.p1, {corner.x + 20, corner.y}, annotation.p2};
  annotation.penPressures = std::vector<double>{0.5, 0.5, 0.5};
  return annotation;
}

inline ImageDocument randomDocument(std::mt19937& random, int annotations) {
  ImageDocument document;
  document.pieces.push_back(pieceOf(busyPicture({211, 150}, 1), 1));
  CapturePiece second = pieceOf(busyPicture({160, 220}, 2), 2, {223, 10});
  second.visibleRect = {{5, 7.5}, {60, 81}};
  second.pointSize = second.visibleRect.size;
  document.pieces.push_back(second);
  for (int i = 0; i < annotations; ++i) add(document, randomAnnotation(random, document.contentRect()));
  return document;
}

inline bool samePixels(const Bitmap& a, const Bitmap& b) {
  if (a.size() != b.size() || a.alpha() != b.alpha()) return false;
  for (int y = 0; y < a.height(); ++y) {
    if (std::memcmp(a.row(y), b.row(y), static_cast<std::size_t>(a.width()) * 4) != 0) return false;
  }
  return true;
}

/// Whether no channel of any pixel differs by more than what the toolkit's font engine makes of large letters: it draws
/// them a little differently after other letters.
inline bool looksTheSame(const QImage& a, const QImage& b) {
  constexpr int fontEngineTolerance = 12;
  if (a.size() != b.size()) return false;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
      if (std::abs(qRed(p) - qRed(q)) > fontEngineTolerance || std::abs(qGreen(p) - qGreen(q)) > fontEngineTolerance ||
          std::abs(qBlue(p) - qBlue(q)) > fontEngineTolerance) {
        return false;
      }
    }
  }
  return true;
}

}  // namespace vellora::test
