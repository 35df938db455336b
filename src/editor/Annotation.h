#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include <QString>

#include "base/Color.h"
#include "base/Geometry.h"

namespace vellora {

/// Tells one annotation from another for as long as an editor is open; stays the same through every edit. Never stored.
using AnnotationId = std::uint64_t;

/// A new identity, unlike every other of this process. Any thread.
AnnotationId newAnnotationId();

/// How a blur annotation hides what is below it. Stored by raw value.
enum class BlurStyle { Mosaic = 0, Erase = 1, Gaussian = 2 };

/// Stored by raw value.
enum class MagnifierShape { Circle = 0, RoundedRect = 1 };

/// One thing drawn on a document. Positions and lengths are in document points.
///
/// What the points mean, by kind:
/// - arrow: `p1` the tail, `p2` the tip, `control` bends it.
/// - line: `p1` and `p2` its ends.
/// - box, ellipse, blur: `p1` and `p2` opposite corners.
/// - text: `p1` the top-left corner (of the filled box when there is one); `p2` unused.
/// - counter: `p1` the centre of the badge; `p2` unused.
/// - magnifier: `p1` and `p2` opposite corners of the lens; `control` the centre of what is magnified, absent: the
///   lens's own centre. What is magnified is as large as the lens divided by `magnification`.
/// - pen: `penPoints`; `p1` and `p2` the first and the last of them.
struct Annotation {
  /// Stored by raw value.
  enum class Kind { Arrow, Box, Ellipse, Line, Text, Blur, Counter, Magnifier, Pen };
  static constexpr int kindCount = 9;

  AnnotationId id = 0;
  Kind kind = Kind::Arrow;
  Point p1;
  Point p2;
  std::optional<Point> control;
  ColorComponents color;
  double lineWidth = 3;
  QString text;
  int number = 1;
  double tailAngle = 0;  ///< radians, 0 to the right, growing clockwise on screen
  bool textBackground = false;
  bool textHandwritten = false;
  double textBoxWidth = 0;  ///< where text wraps; 0: as wide as the text
  bool sketch = false;
  std::optional<bool> shapeFill;
  std::uint64_t sketchSeed = 0;
  BlurStyle blurStyle = BlurStyle::Mosaic;
  double blurStrength = 0.5;                      ///< 0 to 1
  std::optional<ColorComponents> eraseFillColor;  ///< absent: taken from the pixels around the erased area
  double magnification = 2;
  MagnifierShape magnifierShape = MagnifierShape::Circle;
  std::optional<std::vector<Point>> penPoints;
  std::optional<std::vector<double>> penPressures;

  friend bool operator==(const Annotation&, const Annotation&) = default;
};

/// How documents hold annotations: shared and never changed, so that every undo step, the canvas and the selection can
/// hold the same object and caches can trust its address.
using AnnotationPtr = std::shared_ptr<const Annotation>;

inline AnnotationPtr makeAnnotation(Annotation annotation) {
  return std::make_shared<const Annotation>(std::move(annotation));
}

/// The rectangle spanned by `p1` and `p2`, whichever way they lie.
Rect spannedRect(const Annotation& annotation);

/// Whether the annotation hides what is below it for good: erase and mosaic.
bool isRedaction(const Annotation& annotation);

/// The size of a text annotation's letters, in points: 4 × line width + 12.
inline double textFontSize(double lineWidth) {
  return 4 * lineWidth + 12;
}

}  // namespace vellora
