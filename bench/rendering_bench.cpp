#include <random>

#include <QGuiApplication>
#include <QImage>

#include <benchmark/benchmark.h>

#include "Scenes.h"
#include "editor/rendering/DocumentRenderer.h"

/// Times of drawing image documents: what the editor's canvas waits for. All on one thread.
namespace vellora::bench {
namespace {

AnnotationPtr annotationAt(std::mt19937& random, Annotation::Kind kind, const Rect& area) {
  const auto number = [&](double low, double high) { return std::uniform_real_distribution(low, high)(random); };
  Annotation annotation;
  annotation.id = newAnnotationId();
  annotation.kind = kind;
  annotation.p1 = {number(area.minX(), area.maxX() - 400), number(area.minY(), area.maxY() - 300)};
  annotation.p2 = {annotation.p1.x + number(80, 400), annotation.p1.y + number(60, 300)};
  annotation.color = {number(0, 1), number(0, 1), number(0, 1), 1};
  annotation.lineWidth = number(2, 8);
  annotation.sketch = random() % 2 == 0;
  annotation.sketchSeed = random();
  annotation.text = QStringLiteral("The quick brown fox jumps over the lazy dog");
  annotation.textBackground = random() % 2 == 0;
  annotation.number = static_cast<int>(random() % 30);
  annotation.blurStyle = static_cast<BlurStyle>(random() % 3);
  annotation.magnifierShape = static_cast<MagnifierShape>(random() % 2);
  if (kind == Annotation::Kind::Magnifier) annotation.control = Point{annotation.p1.x - 60, annotation.p1.y + 30};
  if (kind == Annotation::Kind::Pen) {
    std::vector<Point> points;
    for (int i = 0; i < 200; ++i) {
      points.push_back({annotation.p1.x + 2 * i, annotation.p1.y + 60 * std::sin(i / 9.0)});
    }
    annotation.penPoints = points;
    annotation.penPressures = std::vector<double>(points.size(), 0.5);
  }
  return makeAnnotation(annotation);
}

/// A 3840 × 2160 capture with annotations of all kinds in turn.
ImageDocument mixedDocument(int annotations) {
  std::mt19937 random(1);
  ImageDocument document;
  document.pieces.push_back(makePiece(scene(Scene::Desktop), 1));
  for (int i = 0; i < annotations; ++i) {
    const auto kind = static_cast<Annotation::Kind>(i % Annotation::kindCount);
    document.annotations.push_back(annotationAt(random, kind, document.contentRect()));
  }
  return document;
}

QImage canvasOf(QSize size) {
  QImage canvas(size, QImage::Format_RGB32);
  canvas.fill(Qt::gray);
  return canvas;
}

void fullRedraw(benchmark::State& state) {
  ImageDocument document = mixedDocument(static_cast<int>(state.range(0)));
  document.backdrop.enabled = state.range(1) != 0;
  QImage canvas = canvasOf({3840, 2160});
  DocumentRenderer renderer;
  const QTransform map = QTransform::fromTranslate(0, 0);
  renderer.paint(canvas, canvas.rect(), document, map);
  for (auto _ : state) renderer.paint(canvas, canvas.rect(), document, map);
}
BENCHMARK(fullRedraw)
    ->ArgNames({"annotations", "backdrop"})
    ->Args({0, 0})
    ->Args({200, 0})
    ->Args({0, 1})
    ->Args({200, 1})
    ->Unit(benchmark::kMillisecond);

/// The same in strips of 80 rows, as a canvas that must not wait paints it.
void redrawInStrips(benchmark::State& state) {
  const ImageDocument document = mixedDocument(200);
  QImage canvas = canvasOf({3840, 2160});
  DocumentRenderer renderer;
  renderer.paint(canvas, canvas.rect(), document, {});
  for (auto _ : state) {
    for (int y = 0; y < canvas.height(); y += 80) renderer.paint(canvas, {0, y, canvas.width(), 80}, document, {});
  }
}
BENCHMARK(redrawInStrips)->Unit(benchmark::kMillisecond);

/// Another zoom at every frame, in a view of 1920 × 1080 pixels.
void zoom(benchmark::State& state) {
  const ImageDocument document = mixedDocument(200);
  QImage canvas = canvasOf({1920, 1080});
  DocumentRenderer renderer;
  double scale = 0.5;
  for (auto _ : state) {
    scale = scale < 1 ? scale * 1.02 : 0.5;
    renderer.paint(canvas, canvas.rect(), document, QTransform::fromScale(scale, scale));
  }
}
BENCHMARK(zoom)->Unit(benchmark::kMillisecond);

void firstRedraw(benchmark::State& state) {
  const ImageDocument document = mixedDocument(200);
  QImage canvas = canvasOf({3840, 2160});
  for (auto _ : state) {
    DocumentRenderer renderer;
    renderer.paint(canvas, canvas.rect(), document, {});
  }
}
BENCHMARK(firstRedraw)->Unit(benchmark::kMillisecond);

/// Dragging one of 200 annotations: what changed, and its repaint.
void drag(benchmark::State& state) {
  ImageDocument document = mixedDocument(200);
  const auto index = static_cast<std::size_t>(state.range(0));
  if (state.range(0) == 5 || state.range(1) != 0) {
    Annotation blur = *document.annotations[5];
    blur.blurStyle = static_cast<BlurStyle>(state.range(1) != 0 ? 2 : 0);
    document.annotations[5] = makeAnnotation(blur);
  }
  QImage canvas = canvasOf({3840, 2160});
  DocumentRenderer renderer;
  renderer.paint(canvas, canvas.rect(), document, {});
  double step = 3;
  double moved = 0;
  for (auto _ : state) {
    Annotation annotation = *document.annotations[index];
    moved += step;
    if (std::abs(moved) > 300) step = -step;
    for (Point* point : {&annotation.p1, &annotation.p2}) point->x += step;
    if (annotation.control) annotation.control->x += step;
    if (annotation.penPoints) {
      for (Point& point : *annotation.penPoints) point.x += step;
    }
    ImageDocument next = document;
    next.annotations[index] = makeAnnotation(annotation);
    for (const QRect& rect : repaintRegion(renderer.changedRects(document, next), {})) {
      renderer.paint(canvas, rect, next, {});
    }
    document = next;
  }
}
BENCHMARK(drag)
    ->ArgNames({"kind", "gaussian"})
    ->Args({0, 0})
    ->Args({1, 0})
    ->Args({2, 0})
    ->Args({3, 0})
    ->Args({4, 0})
    ->Args({5, 0})
    ->Args({5, 1})
    ->Args({6, 0})
    ->Args({7, 0})
    ->Args({8, 0})
    ->Unit(benchmark::kMillisecond);

/// A view of 1920 × 1080 pixels on a document of 8192 × 8192 at a zoom in percent: all of it, and a strip of 32 pixels.
void pan(benchmark::State& state) {
  static const Bitmap huge = [] {
    auto bitmap = MutableBitmap::create({8192, 8192}, PixelAlpha::Opaque);
    std::mt19937 random(1);
    for (int y = 0; y < 8192; ++y) {
      auto* row = reinterpret_cast<std::uint32_t*>(bitmap->row(y));
      for (int x = 0; x < 8192; ++x) row[x] = static_cast<std::uint32_t>(random());
    }
    return std::move(*bitmap).finish();
  }();
  ImageDocument document;
  document.pieces.push_back(makePiece(huge, 1));
  const double zoom = static_cast<double>(state.range(0)) / 100;
  const bool strip = state.range(1) != 0;
  QImage canvas = canvasOf({1920, 1080});
  DocumentRenderer renderer;
  double offset = 0;
  for (auto _ : state) {
    offset = offset > -4000 * zoom ? offset - 32 : 0;
    const QTransform map(zoom, 0, 0, zoom, offset, offset);
    renderer.paint(canvas, strip ? QRect(1888, 0, 32, 1080) : canvas.rect(), document, map);
  }
}
BENCHMARK(pan)
    ->ArgNames({"zoom", "strip"})
    ->ArgsProduct({{10, 33, 50, 75, 100, 150, 200, 800}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

void threePieces(benchmark::State& state) {
  ImageDocument document;
  for (const Scene kind : {Scene::Desktop, Scene::Text, Scene::Photo}) {
    CapturePiece piece = makePiece(scene(kind), 2);
    piece.origin = addedPieceOrigin(document);
    document.pieces.push_back(piece);
  }
  QImage canvas = canvasOf({1920, 1080});
  for (auto _ : state) {
    DocumentRenderer renderer;
    renderer.paint(canvas, canvas.rect(), document, QTransform::fromScale(0.33, 0.33));
  }
}
BENCHMARK(threePieces)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vellora::bench

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
