// The picture kernels, beside what widely used libraries need for the same pixels: libpng and spng at zlib's fastest
// level and at their own defaults, and Qt's writer and reader. Read the bytes as well as the time: each row reports
// both.
#include <benchmark/benchmark.h>
#include <png.h>
#include <spng.h>

#include <QBuffer>
#include <QImageWriter>
#include <map>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "Scenes.h"
#include "media/PngDecoder.h"
#include "media/PngEncoder.h"
#include "media/Thumbnail.h"
#include "media/codecs/ImageConversion.h"

namespace vellora::bench {
namespace {

Scene sceneOf(benchmark::State& state) {
  const auto kind = static_cast<Scene>(state.range(0));
  state.SetLabel(nameOf(kind));
  return kind;
}

void scenes(benchmark::internal::Benchmark* benchmark) {
  benchmark->DenseRange(0, 4)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(0.3);
}

std::vector<std::uint8_t> packed(const Bitmap& bitmap) {
  std::vector<std::uint8_t> pixels;
  pixels.reserve(static_cast<std::size_t>(bitmap.width()) * static_cast<std::size_t>(bitmap.height()) * 3);
  for (int y = 0; y < bitmap.height(); ++y) {
    for (int x = 0; x < bitmap.width(); ++x) {
      const std::byte* pixel = bitmap.pixel(x, y);
      for (const int part : {2, 1, 0}) pixels.push_back(std::to_integer<std::uint8_t>(pixel[part]));
    }
  }
  return pixels;
}

void velloraPng(benchmark::State& state, int threads) {
  const Bitmap& bitmap = scene(sceneOf(state));
  std::size_t bytes = 0;
  for (auto _ : state) bytes = encodePng(bitmap, {.threads = threads})->size();
  state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK_CAPTURE(velloraPng, all_threads, 0)->Apply(scenes);
BENCHMARK_CAPTURE(velloraPng, one_thread, 1)->Apply(scenes);

void libpng(benchmark::State& state, int level, int filters) {
  const Bitmap& bitmap = scene(sceneOf(state));
  std::vector<std::uint8_t> file;
  for (auto _ : state) {
    file.clear();
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(
        png, &file,
        [](png_structp writer, png_bytep data, png_size_t size) {
          auto* out = static_cast<std::vector<std::uint8_t>*>(png_get_io_ptr(writer));
          out->insert(out->end(), data, data + size);
        },
        nullptr);
    png_set_compression_level(png, level);
    png_set_filter(png, 0, filters);
    png_set_IHDR(png, info, static_cast<png_uint_32>(bitmap.width()), static_cast<png_uint_32>(bitmap.height()), 8,
                 PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    png_set_filler(png, 0, PNG_FILLER_AFTER);
    png_set_bgr(png);
    for (int y = 0; y < bitmap.height(); ++y) png_write_row(png, reinterpret_cast<png_const_bytep>(bitmap.row(y)));
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
  }
  state.counters["bytes"] = static_cast<double>(file.size());
}
BENCHMARK_CAPTURE(libpng, level_1_no_filter, 1, PNG_FILTER_NONE)->Apply(scenes);
BENCHMARK_CAPTURE(libpng, level_1_all_filters, 1, PNG_ALL_FILTERS)->Apply(scenes);
BENCHMARK_CAPTURE(libpng, level_6_all_filters, 6, PNG_ALL_FILTERS)->Apply(scenes);

void spng(benchmark::State& state, int level, int filters) {
  const Bitmap& bitmap = scene(sceneOf(state));
  const std::vector<std::uint8_t> pixels = packed(bitmap);
  std::size_t bytes = 0;
  for (auto _ : state) {
    spng_ctx* context = spng_ctx_new(SPNG_CTX_ENCODER);
    spng_set_option(context, SPNG_ENCODE_TO_BUFFER, 1);
    spng_set_option(context, SPNG_IMG_COMPRESSION_LEVEL, level);
    spng_set_option(context, SPNG_FILTER_CHOICE, filters);
    spng_ihdr header{};
    header.width = static_cast<std::uint32_t>(bitmap.width());
    header.height = static_cast<std::uint32_t>(bitmap.height());
    header.bit_depth = 8;
    header.color_type = SPNG_COLOR_TYPE_TRUECOLOR;
    spng_set_ihdr(context, &header);
    spng_encode_image(context, pixels.data(), pixels.size(), SPNG_FMT_PNG, SPNG_ENCODE_FINALIZE);
    int error = 0;
    std::free(spng_get_png_buffer(context, &bytes, &error));
    spng_ctx_free(context);
    if (error != 0) state.SkipWithError(spng_strerror(error));
  }
  state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK_CAPTURE(spng, level_1_no_filter, 1, SPNG_FILTER_CHOICE_NONE)->Apply(scenes);
BENCHMARK_CAPTURE(spng, level_1_all_filters, 1, SPNG_FILTER_CHOICE_ALL)->Apply(scenes);

void qtPng(benchmark::State& state) {
  const QImage image = toImage(scene(sceneOf(state)));
  QByteArray file;
  for (auto _ : state) {
    file.clear();
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter(&buffer, "png").write(image);
  }
  state.counters["bytes"] = static_cast<double>(file.size());
}
BENCHMARK(qtPng)->Apply(scenes);

/// What the readers read: the scene as our own encoder writes it, or with libpng's usual settings.
enum class Writer { Own, Usual };

const QByteArray& fileOf(Scene kind, Writer writer) {
  static std::map<std::pair<Scene, Writer>, QByteArray> files;
  QByteArray& file = files[{kind, writer}];
  if (!file.isEmpty()) return file;
  if (writer == Writer::Own) {
    const auto own = encodePng(scene(kind), {});
    file = QByteArray(reinterpret_cast<const char*>(own->data()), static_cast<qsizetype>(own->size()));
  } else {
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter(&buffer, "png").write(toImage(scene(kind)));
  }
  return file;
}

std::span<const std::byte> bytesOf(const QByteArray& file) {
  return std::as_bytes(std::span(file.constData(), static_cast<std::size_t>(file.size())));
}

void readVellora(benchmark::State& state, Writer writer) {
  const QByteArray& file = fileOf(sceneOf(state), writer);
  for (auto _ : state) benchmark::DoNotOptimize(decodePng(bytesOf(file)));
}
BENCHMARK_CAPTURE(readVellora, own_file, Writer::Own)->Apply(scenes);
BENCHMARK_CAPTURE(readVellora, usual_file, Writer::Usual)->Apply(scenes);

void readLibpng(benchmark::State& state, Writer writer) {
  const QByteArray& file = fileOf(sceneOf(state), writer);
  for (auto _ : state) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    png_image_begin_read_from_memory(&image, file.constData(), static_cast<std::size_t>(file.size()));
    image.format = PNG_FORMAT_BGRA;
    const auto pixels = std::make_unique_for_overwrite<std::uint8_t[]>(PNG_IMAGE_SIZE(image));
    if (png_image_finish_read(&image, nullptr, pixels.get(), 0, nullptr) == 0) state.SkipWithError(image.message);
  }
}
BENCHMARK_CAPTURE(readLibpng, own_file, Writer::Own)->Apply(scenes);
BENCHMARK_CAPTURE(readLibpng, usual_file, Writer::Usual)->Apply(scenes);

void readSpng(benchmark::State& state, Writer writer) {
  const QByteArray& file = fileOf(sceneOf(state), writer);
  for (auto _ : state) {
    spng_ctx* context = spng_ctx_new(0);
    spng_set_png_buffer(context, file.constData(), static_cast<std::size_t>(file.size()));
    std::size_t bytes = 0;
    spng_decoded_image_size(context, SPNG_FMT_RGBA8, &bytes);
    const auto pixels = std::make_unique_for_overwrite<std::uint8_t[]>(bytes);
    const int error = spng_decode_image(context, pixels.get(), bytes, SPNG_FMT_RGBA8, 0);
    spng_ctx_free(context);
    if (error != 0) state.SkipWithError(spng_strerror(error));
  }
}
BENCHMARK_CAPTURE(readSpng, own_file, Writer::Own)->Apply(scenes);
BENCHMARK_CAPTURE(readSpng, usual_file, Writer::Usual)->Apply(scenes);

void readQt(benchmark::State& state, Writer writer) {
  const QByteArray& file = fileOf(sceneOf(state), writer);
  for (auto _ : state) {
    QImage image = QImage::fromData(file, "png");
    if (image.format() != QImage::Format_RGB32) image.convertTo(QImage::Format_RGB32);
    benchmark::DoNotOptimize(image);
  }
}
BENCHMARK_CAPTURE(readQt, own_file, Writer::Own)->Apply(scenes);
BENCHMARK_CAPTURE(readQt, usual_file, Writer::Usual)->Apply(scenes);

void thumbnail(benchmark::State& state) {
  const ThumbnailPiece piece{scene(sceneOf(state)), {{0, 0}, {3840, 2160}}};
  for (auto _ : state) benchmark::DoNotOptimize(renderThumbnail({&piece, 1}, piece.frame));
}
BENCHMARK(thumbnail)->Arg(0)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace vellora::bench
