#include "media/HuffmanCode.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace vellora {
namespace {

constexpr std::size_t maximumSymbols = 288;
constexpr std::size_t maximumLength = 15;

struct Node {
  std::uint32_t weight;
  std::uint32_t symbol;
};

/// How many codes of each length an unlimited optimal code over the ascending weights has; lengths above `limit` are
/// counted at `limit`. Two queues: the leaves, and the inner nodes, which come out in ascending order by themselves.
std::array<int, maximumLength + 1> countLengths(std::span<const Node> leaves, int limit) {
  const std::size_t count = leaves.size();
  std::array<std::uint32_t, maximumSymbols> weight{};  // of inner nodes
  std::array<std::uint16_t, 2 * maximumSymbols> parent{};
  std::size_t leaf = 0, inner = 0;
  for (std::size_t made = 0; made + 1 < count; ++made) {
    std::uint32_t sum = 0;
    for (int child = 0; child < 2; ++child) {
      if (inner == made || (leaf < count && leaves[leaf].weight <= weight[inner])) {
        parent[leaf] = static_cast<std::uint16_t>(made);
        sum += leaves[leaf++].weight;
      } else {
        parent[maximumSymbols + inner] = static_cast<std::uint16_t>(made);
        sum += weight[inner++];
      }
    }
    weight[made] = sum;
  }
  std::array<std::uint16_t, maximumSymbols> depth{};
  const std::size_t root = count - 2;
  depth[root] = 0;
  for (std::size_t i = root; i-- > 0;) depth[i] = static_cast<std::uint16_t>(depth[parent[maximumSymbols + i]] + 1);
  std::array<int, maximumLength + 1> counts{};
  for (std::size_t i = 0; i < count; ++i) ++counts[static_cast<std::size_t>(std::min(depth[parent[i]] + 1, limit))];
  return counts;
}

/// Lengthens codes until the counts describe a prefix code again.
void repair(std::array<int, maximumLength + 1>& counts, int limit) {
  const auto last = static_cast<std::size_t>(limit);
  std::uint64_t used = 0;  // in units of 2^-limit
  for (std::size_t length = 1; length <= last; ++length) used += std::uint64_t(counts[length]) << (last - length);
  const std::uint64_t whole = std::uint64_t{1} << last;
  while (used > whole) {
    // One of the longest codes joins a shorter one under a common parent: frees exactly one unit.
    std::size_t length = last - 1;
    while (counts[length] == 0) --length;
    --counts[last];
    --counts[length];
    counts[length + 1] += 2;
    --used;
  }
}

}  // namespace

void findCodeLengths(std::span<const std::uint32_t> frequencies, std::span<std::uint8_t> lengths, int limit) {
  std::array<Node, maximumSymbols> nodes{};
  std::size_t count = 0;
  for (std::size_t symbol = 0; symbol < frequencies.size(); ++symbol) {
    lengths[symbol] = 0;
    if (frequencies[symbol] > 0) nodes[count++] = {frequencies[symbol], static_cast<std::uint32_t>(symbol)};
  }
  if (count == 0) return;
  if (count == 1) {
    lengths[nodes[0].symbol] = 1;
    return;
  }
  const std::span<Node> leaves(nodes.data(), count);
  std::sort(leaves.begin(), leaves.end(), [](const Node& a, const Node& b) {
    return a.weight != b.weight ? a.weight < b.weight : a.symbol < b.symbol;
  });
  auto counts = countLengths(leaves, limit);
  repair(counts, limit);
  std::size_t next = 0;
  for (auto length = static_cast<std::size_t>(limit); length > 0; --length) {
    for (int i = 0; i < counts[length]; ++i) lengths[leaves[next++].symbol] = static_cast<std::uint8_t>(length);
  }
}

void assignCodes(std::span<const std::uint8_t> lengths, std::span<std::uint16_t> codes) {
  std::array<std::uint32_t, maximumLength + 2> next{};
  for (const std::uint8_t length : lengths) ++next[length + 1U];
  next[1] = 0;
  for (std::size_t length = 1, code = 0; length <= maximumLength; ++length) {
    const std::uint32_t count = next[length + 1];
    next[length] = static_cast<std::uint32_t>(code);
    code = (code + count) << 1;
  }
  for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
    const std::uint8_t length = lengths[symbol];
    if (length == 0) continue;
    std::uint32_t code = next[length]++;
    std::uint32_t reversed = 0;
    for (int bit = 0; bit < length; ++bit, code >>= 1) reversed = reversed << 1 | (code & 1);
    codes[symbol] = static_cast<std::uint16_t>(reversed);
  }
}

}  // namespace vellora
