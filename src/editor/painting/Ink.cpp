#include "editor/painting/Ink.h"

#include <algorithm>
#include <cmath>

#include "editor/painting/InkRibbon.h"
#include "editor/painting/PerfectFreehand.h"
#include "editor/painting/SketchStrokes.h"

namespace vellora {
namespace {

Ink penInk(const Annotation& annotation, double lineWidth) {
  const PenSamples samples = penSamplesOf(annotation);
  // A mouse reports the same pressure throughout.
  const bool hasPressure = std::any_of(samples.pressures.begin(), samples.pressures.end(),
                                       [](double pressure) { return std::abs(pressure - 0.5) > 0.01; });
  const PerfectFreehand::Options options{.size = 4 * lineWidth,
                                         .thinning = hasPressure ? 0.62 : 0.5,
                                         .smoothing = 0.62,
                                         .streamline = hasPressure ? 0.62 : 0.65,
                                         .simulatePressure = !hasPressure,
                                         .last = true};
  const auto stroke = PerfectFreehand::strokePoints(samples.points, samples.pressures, options);
  const std::vector<Point> outline = PerfectFreehand::strokeOutlinePoints(stroke, options);
  return {InkPath::of({&outline, 1}), {}};
}

Ink sketchInk(const Sketch& sketch) {
  std::vector<std::vector<Point>> outlines;
  for (const InkStroke& stroke : sketch.strokes) fillInkRibbon(outlines, stroke.points, stroke.halfWidths, true, true);
  return {InkPath::of(outlines), smoothClosedPath(sketch.ground)};
}

}  // namespace

Ink inkOf(const Annotation& annotation, const Measures& measures) {
  switch (annotation.kind) {
    case Annotation::Kind::Pen:
      return penInk(annotation, measures.lineWidth);
    case Annotation::Kind::Arrow:
      return sketchInk(sketchArrow(measures, annotation.sketchSeed));
    case Annotation::Kind::Box:
      return sketchInk(sketchBox(measures, annotation.sketchSeed));
    case Annotation::Kind::Ellipse:
      return sketchInk(sketchEllipse(measures, annotation.sketchSeed));
    default:
      return {};
  }
}

}  // namespace vellora
