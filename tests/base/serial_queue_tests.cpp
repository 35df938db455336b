#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <numeric>
#include <thread>
#include <vector>

#include "base/SerialQueue.h"

namespace vellora {
namespace {

TEST(SerialQueue, RunsTasksOneByOneInTheOrderOfTheCalls) {
  SerialQueue queue("dev.orlo.vellora.test");
  std::vector<int> order;  // not locked: the queue has to be enough
  for (int i = 0; i < 5000; ++i) queue.async([&order, i] { order.push_back(i); });
  queue.drain();
  std::vector<int> expected(5000);
  std::iota(expected.begin(), expected.end(), 0);
  EXPECT_EQ(order, expected);
}

TEST(SerialQueue, TakesTasksFromSeveralThreadsWithoutLosingAny) {
  SerialQueue queue("dev.orlo.vellora.test");
  std::vector<std::vector<int>> seen(4);
  {
    std::vector<std::jthread> senders;
    for (std::size_t sender = 0; sender < seen.size(); ++sender) {
      senders.emplace_back([&queue, &seen, sender] {
        for (int i = 0; i < 1000; ++i) queue.async([&seen, sender, i] { seen[sender].push_back(i); });
      });
    }
  }
  queue.drain();
  for (const auto& numbers : seen) {
    ASSERT_EQ(numbers.size(), 1000U);
    EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
  }
}

TEST(SerialQueue, DrainWaitsForWhatRunsAndReturnsAtOnceWhenIdle) {
  SerialQueue queue("dev.orlo.vellora.test");
  queue.drain();
  std::promise<void> gate;
  std::atomic<bool> done = false;
  queue.async([&, wait = gate.get_future().share()] {
    wait.wait();
    done = true;
  });
  std::jthread opener([&gate] { gate.set_value(); });
  queue.drain();
  EXPECT_TRUE(done);
  queue.drain();
}

TEST(SerialQueue, EndsOnlyWhenEverythingQueuedHasRunWhateverThatQueues) {
  int ran = 0;
  {
    SerialQueue queue("dev.orlo.vellora.test");
    std::promise<void> gate;
    queue.async([wait = gate.get_future().share()] { wait.wait(); });
    for (int i = 0; i < 10; ++i) {
      queue.async([&queue, &ran] {
        ++ran;
        queue.async([&ran] { ++ran; });
      });
    }
    gate.set_value();
  }
  EXPECT_EQ(ran, 20);
}

TEST(SerialQueue, ReleasesWhatATaskHeldBeforeTheNextOne) {
  SerialQueue queue("dev.orlo.vellora.test");
  auto held = std::make_shared<int>(1);
  const std::weak_ptr<int> watched = held;
  queue.async([held = std::move(held)] {});
  bool released = false;
  queue.async([&] { released = watched.expired(); });
  queue.drain();
  EXPECT_TRUE(released);
}

}  // namespace
}  // namespace vellora
