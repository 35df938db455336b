#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "media/ByteBuffer.h"

namespace vellora {

/// A run of pixels written as they are, then at most one match. A row of a PNG begins with a filter byte, which belongs
/// to no pixel; the first step of a row carries it.
struct DeflateStep {
  static constexpr std::uint8_t noFilter = 0xFF;

  std::uint32_t literals;  ///< pixels
  std::uint32_t length;    ///< bytes repeated, of any length above 2; 0 for no match
  std::uint16_t distance;  ///< bytes back, less one
  std::uint8_t filter;     ///< filter byte written first, or noFilter
};

/// Collects steps and writes them as one deflate block with codes made for it (RFC 1951, 3.2.7). `Pixel` is
/// std::uint32_t for pixels of three or four bytes, lowest byte first in the file, and std::uint8_t for palette
/// indices.
template <class Pixel>
class DeflateBlock {
 public:
  explicit DeflateBlock(int bytesPerPixel) : bytesPerPixel_(bytesPerPixel) {}

  void add(DeflateStep step, const Pixel* literals) {
    steps_.push_back(step);
    literals_.insert(literals_.end(), literals, literals + step.literals);
  }
  /// Large enough that its codes cost little, small enough that they fit the content.
  bool isFull() const { return steps_.size() >= 24 * 1024 || literals_.size() >= 64 * 1024; }
  bool isEmpty() const { return steps_.empty(); }

  /// The bits not yet making up a whole byte of the stream between two blocks.
  struct PendingBits {
    std::uint64_t bits = 0;
    unsigned count = 0;
  };

  /// Writes the block and empties it. False when memory is short.
  bool flush(ByteBuffer& out, PendingBits& pending);

 private:
  static constexpr std::size_t literalSymbols = 286, distanceSymbols = 30;

  void count();
  std::uint64_t contentBits() const;

  const int bytesPerPixel_;
  std::vector<DeflateStep> steps_;
  std::vector<Pixel> literals_;
  std::array<std::uint32_t, literalSymbols> literalCounts_{};
  std::array<std::uint32_t, distanceSymbols> distanceCounts_{};
  std::array<std::uint8_t, literalSymbols> literalLengths_{};
  std::array<std::uint8_t, distanceSymbols> distanceLengths_{};
};

/// Ends a run of blocks on a byte border, with an empty stored block (RFC 1951, 3.2.4) that is the stream's last when
/// `last` says so; what follows may come from another thread. False when memory is short.
bool endDeflateRun(ByteBuffer& out, std::uint64_t bits, unsigned count, bool last);

}  // namespace vellora
