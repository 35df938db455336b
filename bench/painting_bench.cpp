// Drawing annotations: freehand outlines of 5,000 samples, and a 3840 × 2160 document's worth of mixed annotations.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include <QFontDatabase>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "editor/Palette.h"
#include "editor/painting/AnnotationPainter.h"
#include "editor/painting/PerfectFreehand.h"

namespace vellora::bench {
namespace {

using Kind = Annotation::Kind;

/// A scribble all over a 4K picture.
Annotation scribble(std::size_t samples, double lineWidth) {
  Annotation annotation;
  annotation.kind = Kind::Pen;
  annotation.lineWidth = lineWidth;
  annotation.color = Palette::red;
  annotation.penPoints.emplace();
  for (std::size_t i = 0; i < samples; ++i) {
    const double t = static_cast<double>(i) / 5000;
    annotation.penPoints->push_back({1920 + 1700 * std::sin(38 * t) * std::cos(3 * t), 1080 + 950 * std::sin(45 * t)});
  }
  return annotation;
}

std::vector<Annotation> mixed(int count, bool sketch) {
  std::vector<Annotation> annotations;
  const Kind kinds[] = {Kind::Arrow, Kind::Box, Kind::Ellipse, Kind::Line, Kind::Text, Kind::Counter, Kind::Pen};
  for (int i = 0; i < count; ++i) {
    Annotation annotation;
    annotation.kind = kinds[i % 7];
    const double x = (i % 20) * 190.0;
    const double y = (i / 20) * 210.0;
    annotation.p1 = {x + 30, y + 30};
    annotation.p2 = {x + 330, y + 190};
    annotation.lineWidth = 2 + i % 5;
    annotation.color = Palette::swatches[static_cast<std::size_t>(i) % Palette::swatches.size()];
    annotation.sketch = sketch;
    annotation.sketchSeed = static_cast<std::uint64_t>(i);
    annotation.shapeFill = i % 3 == 0;
    annotation.text = QStringLiteral("A note about what is seen here, number %1").arg(i);
    annotation.textBackground = i % 2 == 0;
    annotation.textBoxWidth = i % 4 == 0 ? 160 : 0;
    annotation.number = i;
    if (annotation.kind == Kind::Pen) {
      annotation.penPoints.emplace();
      for (int k = 0; k < 200; ++k) {
        annotation.penPoints->push_back({x + 30 + k * 1.5, y + 100 + 70 * std::sin(k / 9.0)});
      }
    }
    annotations.push_back(annotation);
  }
  return annotations;
}

void firstOutline(benchmark::State& state) {
  const Annotation stroke = scribble(5000, 3);
  const PerfectFreehand::Options options{.size = 12, .smoothing = 0.62, .streamline = 0.65, .last = true};
  std::size_t size = 0;
  for (auto _ : state) {
    const auto points = PerfectFreehand::strokePoints(*stroke.penPoints, {}, options);
    size = PerfectFreehand::strokeOutlinePoints(points, options).size();
  }
  state.counters["outline"] = static_cast<double>(size);
}
BENCHMARK(firstOutline)->Unit(benchmark::kMicrosecond);

/// What a new sample costs beside filling the path: everything that is kept is made anew.
void addSample(benchmark::State& state) {
  Annotation stroke = scribble(5000, 3);
  double next = 0;
  for (auto _ : state) {
    stroke.penPoints->back().x = 100 + (next += 0.25);
    benchmark::DoNotOptimize(paintedBounds(stroke));
  }
}
BENCHMARK(addSample)->Unit(benchmark::kMicrosecond);

/// The part is the edge of the repainted square; 0 stands for the whole picture.
void redrawScribble(benchmark::State& state) {
  const Annotation stroke = scribble(5000, 3);
  QImage image(3840, 2160, QImage::Format_ARGB32_Premultiplied);
  const int part = static_cast<int>(state.range(0));
  for (auto _ : state) {
    QPainter painter(&image);
    if (part > 0) painter.setClipRect(1900, 1000, part, part);
    AnnotationPainter().draw(painter, stroke);
  }
}
BENCHMARK(redrawScribble)->Arg(0)->Arg(100)->Unit(benchmark::kMillisecond);

void redrawMixed(benchmark::State& state) {
  const std::vector<Annotation> annotations = mixed(200, state.range(0) != 0);
  state.SetLabel(state.range(0) != 0 ? "hand-drawn" : "plain");
  QImage image(3840, 2160, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    QPainter painter(&image);
    for (const Annotation& annotation : annotations) AnnotationPainter().draw(painter, annotation);
  }
}
BENCHMARK(redrawMixed)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void redrawKind(benchmark::State& state) {
  std::vector<Annotation> annotations = mixed(7 * 40, true);
  const auto kind = static_cast<Kind>(state.range(0));
  std::erase_if(annotations, [kind](const Annotation& annotation) { return annotation.kind != kind; });
  state.SetLabel("40 of kind " + std::to_string(state.range(0)));
  QImage image(3840, 2160, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    QPainter painter(&image);
    for (const Annotation& annotation : annotations) AnnotationPainter().draw(painter, annotation);
  }
}
BENCHMARK(redrawKind)->Arg(0)->Arg(1)->Arg(2)->Arg(3)->Arg(4)->Arg(6)->Arg(8)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vellora::bench

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
