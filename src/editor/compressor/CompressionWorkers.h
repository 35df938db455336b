#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace vellora {

/// A bound on the memory that several threads take together. What is larger than the bound alone waits until nobody
/// else has any.
class MemoryGate {
 public:
  explicit MemoryGate(std::size_t bytes) : limit_(bytes) {}

  /// Memory that is given back when this goes.
  class Share {
   public:
    Share(MemoryGate& gate, std::size_t bytes) : gate_(gate), bytes_(bytes) { gate_.take(bytes_); }
    ~Share() { gate_.giveBack(bytes_); }
    Share(const Share&) = delete;
    Share& operator=(const Share&) = delete;

   private:
    MemoryGate& gate_;
    const std::size_t bytes_;
  };

 private:
  void take(std::size_t bytes);
  void giveBack(std::size_t bytes);

  const std::size_t limit_;
  std::mutex mutex_;
  std::condition_variable freed_;
  std::size_t taken_ = 0;
};

/// Threads that take tasks in turn. They start with the first tasks and sleep while there are none.
class CompressionWorkers {
 public:
  using Task = std::function<void()>;

  explicit CompressionWorkers(int threads) : limit_(static_cast<std::size_t>(threads)) {}
  /// Drops what waits, and waits for what runs.
  ~CompressionWorkers();
  CompressionWorkers(const CompressionWorkers&) = delete;
  CompressionWorkers& operator=(const CompressionWorkers&) = delete;

  void add(Task task);
  std::size_t threads() const { return limit_; }

 private:
  void work();

  const std::size_t limit_;
  std::mutex mutex_;
  std::condition_variable added_;
  std::deque<Task> tasks_;
  std::vector<std::thread> threads_;
  std::size_t idle_ = 0;
  bool isEnding_ = false;
};

}  // namespace vellora
