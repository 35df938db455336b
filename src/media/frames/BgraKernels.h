#pragma once

#include <cstdint>

#include "media/frames/I420.h"

namespace vellora {

/// Two rows of BGRA and what becomes of them.
struct BgraRowPair {
  const std::uint8_t* top = nullptr;
  const std::uint8_t* bottom = nullptr;
  std::uint8_t* topY = nullptr;
  std::uint8_t* bottomY = nullptr;
  std::uint8_t* u = nullptr;
  std::uint8_t* v = nullptr;

  /// From a block of 2 × 2 pixels on.
  BgraRowPair from(int block) const {
    return {top + 8 * block, bottom + 8 * block, topY + 2 * block, bottomY + 2 * block, u + block, v + block};
  }
};

/// Converts `blocks` blocks of 2 × 2 pixels. All kernels give the same bytes.
using BgraKernel = void (*)(const BgraRowPair& rows, int blocks);

void convertBlocksPortably(const BgraRowPair& rows, int blocks);
#if defined(__x86_64__)
void convertBlocksWithSse2(const BgraRowPair& rows, int blocks);
/// Only where the processor has AVX2.
void convertBlocksWithAvx2(const BgraRowPair& rows, int blocks);
#endif

/// The fastest one this processor has.
BgraKernel bestBgraKernel();

/// convertBgra with a kernel of one's choice.
void convertBgra(const BgraView& from, const I420View& to, std::span<const PixelRect> areas, BgraKernel kernel);

}  // namespace vellora
