#include "media/pictures/ResamplerKernels.h"

namespace vellora {
namespace {

/// Two pixels.
using Twin = float __attribute__((vector_size(32)));
/// So many are worked on at a time that every weight is fetched once for four of them.
constexpr int twinsTogether = 4;

#define VELLORA_KERNEL __attribute__((always_inline)) inline

/// The two pixels at `from`, which need not be aligned.
VELLORA_KERNEL void load(Twin& twin, const LinearPixel* from) {
  __builtin_memcpy(&twin, from, sizeof twin);
}

VELLORA_KERNEL void acrossTwoRows(const ResamplingFilter& filter, const LinearPixel* pairs, LinearPixel* first,
                                  LinearPixel* second) {
  const float* weights = filter.weights.data();
  for (const ResamplingFilter::Window& window : filter.windows) {
    const LinearPixel* const twins = pairs + 2 * static_cast<std::ptrdiff_t>(window.first);
    const int middleEnd = window.middleFirst + window.middleCount;
    Twin sum{}, low, twin;
    load(low, twins + 2 * window.middleFirst);
    Twin high = low;
    int i = 0;
    for (; i < window.middleFirst; ++i) {
      load(twin, twins + 2 * i);
      sum += twin * weights[i];
    }
    for (; i < middleEnd; ++i) {
      load(twin, twins + 2 * i);
      sum += twin * weights[i];
      low = low < twin ? low : twin;
      high = high > twin ? high : twin;
    }
    for (; i < window.count; ++i) {
      load(twin, twins + 2 * i);
      sum += twin * weights[i];
    }
    sum = sum < high ? sum : high;
    sum = sum > low ? sum : low;
    *first++ = LinearPixel{sum[0], sum[1], sum[2], sum[3]};
    *second++ = LinearPixel{sum[4], sum[5], sum[6], sum[7]};
    weights += window.count;
  }
}

template <int together>
VELLORA_KERNEL void downTwins(const ResamplingFilter::Window& window, const float* weights,
                              const LinearPixel* const* rows, std::size_t at, LinearPixel* result) {
  Twin sum[together]{}, low[together], high[together];
  for (int k = 0; k < together; ++k) {
    load(low[k], rows[window.middleFirst] + at + 2 * k);
    high[k] = low[k];
  }
  const auto add = [&](int row) __attribute__((always_inline)) {
    const float weight = weights[row];
    for (int k = 0; k < together; ++k) {
      Twin twin;
      load(twin, rows[row] + at + 2 * k);
      sum[k] += twin * weight;
    }
  };
  int row = 0;
  for (; row < window.middleFirst; ++row) add(row);
  for (; row < window.middleFirst + window.middleCount; ++row) {
    add(row);
    for (int k = 0; k < together; ++k) {
      Twin twin;
      load(twin, rows[row] + at + 2 * k);
      low[k] = low[k] < twin ? low[k] : twin;
      high[k] = high[k] > twin ? high[k] : twin;
    }
  }
  for (; row < window.count; ++row) add(row);
  for (int k = 0; k < together; ++k) {
    sum[k] = sum[k] < high[k] ? sum[k] : high[k];
    sum[k] = sum[k] > low[k] ? sum[k] : low[k];
    __builtin_memcpy(static_cast<void*>(result + at + 2 * k), &sum[k], sizeof sum[k]);
  }
}

VELLORA_KERNEL void down(const ResamplingFilter::Window& window, const float* weights, const LinearPixel* const* rows,
                         std::size_t pixels, LinearPixel* result) {
  std::size_t at = 0;
  for (; at + 2 * twinsTogether <= pixels; at += 2 * twinsTogether) {
    downTwins<twinsTogether>(window, weights, rows, at, result);
  }
  for (; at < pixels; at += 2) downTwins<1>(window, weights, rows, at, result);
}

void acrossTwoRowsAnywhere(const ResamplingFilter& filter, const LinearPixel* pairs, LinearPixel* first,
                           LinearPixel* second) {
  acrossTwoRows(filter, pairs, first, second);
}

void downAnywhere(const ResamplingFilter::Window& window, const float* weights, const LinearPixel* const* rows,
                  std::size_t pixels, LinearPixel* result) {
  down(window, weights, rows, pixels, result);
}

#ifdef __x86_64__

__attribute__((target("avx2,fma"))) void acrossTwoRowsWithAvx2(const ResamplingFilter& filter, const LinearPixel* pairs,
                                                               LinearPixel* first, LinearPixel* second) {
  acrossTwoRows(filter, pairs, first, second);
}

__attribute__((target("avx2,fma"))) void downWithAvx2(const ResamplingFilter::Window& window, const float* weights,
                                                      const LinearPixel* const* rows, std::size_t pixels,
                                                      LinearPixel* result) {
  down(window, weights, rows, pixels, result);
}

#endif

}  // namespace

const ResamplerKernels& ResamplerKernels::ofThisMachine() {
  static constexpr ResamplerKernels anywhere{acrossTwoRowsAnywhere, downAnywhere};
#ifdef __x86_64__
  static constexpr ResamplerKernels withAvx2{acrossTwoRowsWithAvx2, downWithAvx2};
  static const bool hasAvx2 = __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("fma") != 0;
  if (hasAvx2) return withAvx2;
#endif
  return anywhere;
}

}  // namespace vellora
