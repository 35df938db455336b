// Turns BGRA into planar 4:2:0 at the size of a screen, beside the libraries that do the same: libyuv (BT.601; bytes
// of less precision) and libswscale (BT.709).

#include <benchmark/benchmark.h>
#include <libyuv/convert.h>

extern "C" {
#include <libswscale/swscale.h>
}

#include <array>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

#include "media/frames/BgraKernels.h"
#include "media/frames/I420.h"

namespace {

using namespace vellora;

struct Screen {
  Screen(int columns, int rows)
      : width(columns),
        height(rows),
        pixels(static_cast<std::size_t>(width) * height * 4),
        luma(static_cast<std::size_t>(width) * height),
        u(luma.size() / 4),
        v(luma.size() / 4) {
    std::mt19937 random(1);
    for (std::uint8_t& byte : pixels) byte = static_cast<std::uint8_t>(random());
  }
  BgraView bgra() const { return {pixels.data(), std::ptrdiff_t{4} * width, width, height}; }
  I420View i420() { return {{luma.data(), u.data(), v.data()}, {width, width / 2, width / 2}, width, height}; }
  void count(benchmark::State& state) const {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pixels.size()));
  }

  int width, height;
  std::vector<std::uint8_t> pixels, luma, u, v;
};

Screen screenOf(const benchmark::State& state) {
  return {static_cast<int>(state.range(0)), static_cast<int>(state.range(1))};
}

template <BgraKernel (*kernel)()>
void vellora709(benchmark::State& state) {
  Screen screen = screenOf(state);
  const PixelRect all{0, 0, screen.width, screen.height};
  for (auto _ : state) convertBgra(screen.bgra(), screen.i420(), std::span(&all, 1), kernel());
  screen.count(state);
}

/// A line of text was typed.
void velloraChange(benchmark::State& state) {
  Screen screen = screenOf(state);
  const PixelRect line{301, 501, 800, 24};
  for (auto _ : state) convertBgra(screen.bgra(), screen.i420(), std::span(&line, 1));
}

void libyuv601(benchmark::State& state) {
  Screen screen = screenOf(state);
  for (auto _ : state) {
    libyuv::ARGBToI420(screen.pixels.data(), screen.width * 4, screen.luma.data(), screen.width, screen.u.data(),
                       screen.width / 2, screen.v.data(), screen.width / 2, screen.width, screen.height);
  }
  screen.count(state);
}

void swscale709(benchmark::State& state) {
  Screen screen = screenOf(state);
  SwsContext* scaler = sws_getContext(screen.width, screen.height, AV_PIX_FMT_BGRA, screen.width, screen.height,
                                      AV_PIX_FMT_YUV420P, SWS_POINT, nullptr, nullptr, nullptr);
  const int* matrix = sws_getCoefficients(SWS_CS_ITU709);
  sws_setColorspaceDetails(scaler, matrix, 1, matrix, 0, 0, 1 << 16, 1 << 16);
  const std::array<const std::uint8_t*, 1> from{screen.pixels.data()};
  const std::array<int, 1> fromBytes{screen.width * 4};
  const std::array<std::uint8_t*, 3> to{screen.luma.data(), screen.u.data(), screen.v.data()};
  const std::array<int, 3> toBytes{screen.width, screen.width / 2, screen.width / 2};
  for (auto _ : state) sws_scale(scaler, from.data(), fromBytes.data(), 0, screen.height, to.data(), toBytes.data());
  sws_freeContext(scaler);
  screen.count(state);
}

/// What memory allows: the same bytes read and written.
void copied(benchmark::State& state) {
  Screen screen = screenOf(state);
  for (auto _ : state) {
    std::memcpy(screen.pixels.data() + screen.pixels.size() / 2, screen.pixels.data(), screen.pixels.size() / 2);
    std::memcpy(screen.luma.data(), screen.pixels.data(), screen.luma.size());
    benchmark::ClobberMemory();
  }
  screen.count(state);
}

BgraKernel portable() {
  return convertBlocksPortably;
}

void sizes(benchmark::internal::Benchmark* bench) {
  bench->Args({1920, 1080})->Args({3840, 2160})->Unit(benchmark::kMicrosecond);
}

BENCHMARK(vellora709<bestBgraKernel>)->Apply(sizes);
#if defined(__x86_64__)
BgraKernel sse2() {
  return convertBlocksWithSse2;
}
BENCHMARK(vellora709<sse2>)->Apply(sizes);
#endif
BENCHMARK(vellora709<portable>)->Apply(sizes);
BENCHMARK(libyuv601)->Apply(sizes);
BENCHMARK(swscale709)->Apply(sizes);
BENCHMARK(copied)->Apply(sizes);
BENCHMARK(velloraChange)->Args({1920, 1080})->Unit(benchmark::kMicrosecond);

}  // namespace
