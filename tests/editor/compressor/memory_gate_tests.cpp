#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <random>
#include <thread>
#include <utility>
#include <vector>

#include "editor/compressor/CompressionWorkers.h"

namespace vellora::test {
namespace {

TEST(MemoryGate, NeverGivesMoreThanItHasExceptToOneAlone) {
  constexpr std::size_t limit = 1000;
  MemoryGate gate(limit);
  std::atomic<std::size_t> held = 0;
  std::atomic<bool> isExceeded = false;
  std::vector<std::thread> threads;
  for (unsigned int seed = 0; seed < 8; ++seed) {
    threads.emplace_back([&, seed] {
      std::mt19937 random(seed);  // NOLINT: the same sizes every time
      for (int i = 0; i < 400; ++i) {
        const std::size_t bytes = random() % (i % 20 == 0 ? 3 * limit : limit / 2);
        const MemoryGate::Share share(gate, bytes);
        const std::size_t now = held += bytes;
        if (now > limit && now != bytes) isExceeded = true;
        held -= bytes;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_FALSE(isExceeded);
  EXPECT_EQ(held, 0U);
}

TEST(MemoryGate, LargeOnesAreNotStarvedBySmallOnes) {
  MemoryGate gate(100);
  auto small = std::make_unique<MemoryGate::Share>(gate, 60);
  std::promise<void> hasAll;
  std::thread large([&] {
    const MemoryGate::Share share(gate, 5000);
    hasAll.set_value();
  });
  // Many small ones that come later let it pass as soon as the first has gone.
  std::vector<std::thread> later;
  for (int i = 0; i < 4; ++i) later.emplace_back([&] { const MemoryGate::Share share(gate, 30); });
  small.reset();
  EXPECT_EQ(hasAll.get_future().wait_for(std::chrono::seconds(10)), std::future_status::ready);
  large.join();
  for (std::thread& thread : later) thread.join();
}

TEST(MemoryGate, SharesThatMoveAreGivenBackOnce) {
  MemoryGate gate(10);
  for (int i = 0; i < 3; ++i) {
    MemoryGate::Share first(gate, 10);
    const MemoryGate::Share second(std::move(first));
  }
  const MemoryGate::Share all(gate, 10);
}

TEST(CompressionWorkers, RunEverythingOnNoMoreThreadsThanAllowed) {
  std::atomic<int> together = 0, most = 0, left = 200;
  std::promise<void> all;
  CompressionWorkers workers(3, ThreadQuality::Utility);
  for (int i = 0; i < 200; ++i) {
    workers.add([&] {
      const int now = ++together;
      int before = most;
      while (before < now && !most.compare_exchange_weak(before, now)) {
      }
      --together;
      if (--left == 0) all.set_value();
    });
  }
  all.get_future().wait();
  EXPECT_LE(most, 3);
}

}  // namespace
}  // namespace vellora::test
