#include "media/frames/BgraKernels.h"

#if defined(__x86_64__)

#include <immintrin.h>

#include "media/frames/Bt709.h"

// BGRA is split into 16-bit pairs (B, R) and (G, A); a multiplication of pairs adds up both products, and A counts 0.
// For chroma the pairs of four pixels are added up first.

namespace vellora {
namespace {

using namespace bt709;

/// Two 16-bit factors as the multiplication of pairs takes them.
constexpr int pairOf(std::int16_t low, std::int16_t high) {
  return static_cast<int>(static_cast<std::uint32_t>(static_cast<std::uint16_t>(high)) << 16 |
                          static_cast<std::uint16_t>(low));
}

constexpr int yBR = pairOf(yFromB, yFromR), yG = pairOf(yFromG, 0);
constexpr int uBR = pairOf(uFromB, uFromR), uG = pairOf(uFromG, 0);
constexpr int vBR = pairOf(vFromB, vFromR), vG = pairOf(vFromG, 0);

/// Converts the last `step` blocks once more when `blocks` is no multiple, or all portably when there are fewer.
template <int step, class Convert>
inline void forEachStep(const BgraRowPair& rows, int blocks, const Convert& convert) {
  if (blocks < step) return convertBlocksPortably(rows, blocks);
  int i = 0;
  for (; i + step <= blocks; i += step) convert(rows.from(i));
  if (i < blocks) convert(rows.from(blocks - step));
}

namespace sse2 {

struct Pairs {
  __m128i br, ga;
};

inline Pairs load(const std::uint8_t* pixels) {
  const __m128i bgra = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels));
  return {_mm_and_si128(bgra, _mm_set1_epi16(0xff)), _mm_srli_epi16(bgra, 8)};
}

inline __m128i weigh(const Pairs& pairs, int brWeights, int gWeights) {
  return _mm_add_epi32(_mm_madd_epi16(pairs.br, _mm_set1_epi32(brWeights)),
                       _mm_madd_epi16(pairs.ga, _mm_set1_epi32(gWeights)));
}

inline __m128i luma(const Pairs& pairs) {
  return _mm_srai_epi32(_mm_add_epi32(weigh(pairs, yBR, yG), _mm_set1_epi32(yOffset)), fractionBits);
}

inline __m128i chroma(const Pairs& sums, int brWeights, int gWeights) {
  return _mm_srai_epi32(_mm_add_epi32(weigh(sums, brWeights, gWeights), _mm_set1_epi32(chromaOffset)), chromaBits);
}

/// Sums of horizontal neighbors.
inline __m128i addNeighbors(__m128i left, __m128i right) {
  const __m128 l = _mm_castsi128_ps(left), r = _mm_castsi128_ps(right);
  return _mm_add_epi16(_mm_castps_si128(_mm_shuffle_ps(l, r, 0x88)), _mm_castps_si128(_mm_shuffle_ps(l, r, 0xdd)));
}

/// 8 pixels of both rows, as 16-bit and 32-bit numbers.
struct Half {
  __m128i topY, bottomY, u, v;
};

inline Half convertHalf(const std::uint8_t* top, const std::uint8_t* bottom) {
  const Pairs left = load(top), right = load(top + 16), leftBelow = load(bottom), rightBelow = load(bottom + 16);
  Pairs sums{};
  sums.br = addNeighbors(_mm_add_epi16(left.br, leftBelow.br), _mm_add_epi16(right.br, rightBelow.br));
  sums.ga = addNeighbors(_mm_add_epi16(left.ga, leftBelow.ga), _mm_add_epi16(right.ga, rightBelow.ga));
  return {_mm_packs_epi32(luma(left), luma(right)), _mm_packs_epi32(luma(leftBelow), luma(rightBelow)),
          chroma(sums, uBR, uG), chroma(sums, vBR, vG)};
}

/// 16 pixels of both rows.
inline void convert(const BgraRowPair& rows) {
  const Half left = convertHalf(rows.top, rows.bottom), right = convertHalf(rows.top + 32, rows.bottom + 32);
  _mm_storeu_si128(reinterpret_cast<__m128i*>(rows.topY), _mm_packus_epi16(left.topY, right.topY));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(rows.bottomY), _mm_packus_epi16(left.bottomY, right.bottomY));
  const __m128i uv = _mm_packus_epi16(_mm_packs_epi32(left.u, right.u), _mm_packs_epi32(left.v, right.v));
  _mm_storel_epi64(reinterpret_cast<__m128i*>(rows.u), uv);
  _mm_storel_epi64(reinterpret_cast<__m128i*>(rows.v), _mm_unpackhi_epi64(uv, uv));
}

}  // namespace sse2

// The same, twice as wide; packing and shuffling keep to the halves of a register, which are put in order at the end.
namespace avx2 {

#define VELLORA_AVX2 __attribute__((target("avx2"), always_inline)) inline

struct Pairs {
  __m256i br, ga;
};

VELLORA_AVX2 Pairs load(const std::uint8_t* pixels) {
  const __m256i bgra = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pixels));
  return {_mm256_and_si256(bgra, _mm256_set1_epi16(0xff)), _mm256_srli_epi16(bgra, 8)};
}

VELLORA_AVX2 __m256i weigh(const Pairs& pairs, int brWeights, int gWeights) {
  return _mm256_add_epi32(_mm256_madd_epi16(pairs.br, _mm256_set1_epi32(brWeights)),
                          _mm256_madd_epi16(pairs.ga, _mm256_set1_epi32(gWeights)));
}

VELLORA_AVX2 __m256i luma(const Pairs& pairs) {
  return _mm256_srai_epi32(_mm256_add_epi32(weigh(pairs, yBR, yG), _mm256_set1_epi32(yOffset)), fractionBits);
}

VELLORA_AVX2 __m256i chroma(const Pairs& sums, int brWeights, int gWeights) {
  return _mm256_srai_epi32(_mm256_add_epi32(weigh(sums, brWeights, gWeights), _mm256_set1_epi32(chromaOffset)),
                           chromaBits);
}

VELLORA_AVX2 __m256i addNeighbors(__m256i left, __m256i right) {
  const __m256 l = _mm256_castsi256_ps(left), r = _mm256_castsi256_ps(right);
  return _mm256_add_epi16(_mm256_castps_si256(_mm256_shuffle_ps(l, r, 0x88)),
                          _mm256_castps_si256(_mm256_shuffle_ps(l, r, 0xdd)));
}

/// 16 pixels of both rows, as 16-bit and 32-bit numbers.
struct Half {
  __m256i topY, bottomY, u, v;
};

VELLORA_AVX2 Half convertHalf(const std::uint8_t* top, const std::uint8_t* bottom) {
  const Pairs left = load(top), right = load(top + 32), leftBelow = load(bottom), rightBelow = load(bottom + 32);
  Pairs sums{};
  sums.br = addNeighbors(_mm256_add_epi16(left.br, leftBelow.br), _mm256_add_epi16(right.br, rightBelow.br));
  sums.ga = addNeighbors(_mm256_add_epi16(left.ga, leftBelow.ga), _mm256_add_epi16(right.ga, rightBelow.ga));
  return {_mm256_packs_epi32(luma(left), luma(right)), _mm256_packs_epi32(luma(leftBelow), luma(rightBelow)),
          chroma(sums, uBR, uG), chroma(sums, vBR, vG)};
}

VELLORA_AVX2 void storeLuma(std::uint8_t* to, __m256i left, __m256i right) {
  const __m256i order = _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7);
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(to),
                      _mm256_permutevar8x32_epi32(_mm256_packus_epi16(left, right), order));
}

/// 32 pixels of both rows.
VELLORA_AVX2 void convert(const BgraRowPair& rows) {
  const Half left = convertHalf(rows.top, rows.bottom), right = convertHalf(rows.top + 64, rows.bottom + 64);
  storeLuma(rows.topY, left.topY, right.topY);
  storeLuma(rows.bottomY, left.bottomY, right.bottomY);
  // Each half has every other pair of U, then of V.
  const __m256i packed = _mm256_packus_epi16(_mm256_packs_epi32(left.u, right.u), _mm256_packs_epi32(left.v, right.v));
  const __m256i mixed = _mm256_permute4x64_epi64(packed, 0xd8);
  const __m256i order = _mm256_setr_epi8(0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15,  //
                                         0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15);
  const __m256i uv = _mm256_shuffle_epi8(mixed, order);
  _mm_storeu_si128(reinterpret_cast<__m128i*>(rows.u), _mm256_castsi256_si128(uv));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(rows.v), _mm256_extracti128_si256(uv, 1));
}

}  // namespace avx2
}  // namespace

void convertBlocksWithSse2(const BgraRowPair& rows, int blocks) {
  forEachStep<8>(rows, blocks, sse2::convert);
}

__attribute__((target("avx2"))) void convertBlocksWithAvx2(const BgraRowPair& rows, int blocks) {
  constexpr int step = 16;
  if (blocks < step) return convertBlocksWithSse2(rows, blocks);
  int i = 0;
  for (; i + step <= blocks; i += step) avx2::convert(rows.from(i));
  if (i < blocks) avx2::convert(rows.from(blocks - step));
}

}  // namespace vellora

#endif
