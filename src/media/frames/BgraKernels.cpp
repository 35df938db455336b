#include "media/frames/BgraKernels.h"

#include "media/frames/Bt709.h"

namespace vellora {
namespace {

using namespace bt709;

std::uint8_t luma(const std::uint8_t* bgra) {
  return static_cast<std::uint8_t>((yFromB * bgra[0] + yFromG * bgra[1] + yFromR * bgra[2] + yOffset) >> fractionBits);
}

}  // namespace

void convertBlocksPortably(const BgraRowPair& rows, int blocks) {
  for (int i = 0; i < blocks; ++i) {
    const std::uint8_t* top = rows.top + 8 * i;
    const std::uint8_t* bottom = rows.bottom + 8 * i;
    rows.topY[2 * i] = luma(top);
    rows.topY[2 * i + 1] = luma(top + 4);
    rows.bottomY[2 * i] = luma(bottom);
    rows.bottomY[2 * i + 1] = luma(bottom + 4);
    const int b = top[0] + top[4] + bottom[0] + bottom[4];
    const int g = top[1] + top[5] + bottom[1] + bottom[5];
    const int r = top[2] + top[6] + bottom[2] + bottom[6];
    rows.u[i] = static_cast<std::uint8_t>((uFromB * b + uFromG * g + uFromR * r + chromaOffset) >> chromaBits);
    rows.v[i] = static_cast<std::uint8_t>((vFromB * b + vFromG * g + vFromR * r + chromaOffset) >> chromaBits);
  }
}

BgraKernel bestBgraKernel() {
#if defined(__x86_64__)
  static const BgraKernel best = __builtin_cpu_supports("avx2") ? convertBlocksWithAvx2 : convertBlocksWithSse2;
  return best;
#else
  return convertBlocksPortably;
#endif
}

}  // namespace vellora
