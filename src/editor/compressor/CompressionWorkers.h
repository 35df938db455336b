#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "base/ThreadQuality.h"

namespace vellora {

/// A bound on the memory that several threads take together. What is larger than the bound alone waits until nobody
/// else has any. Whoever asks first is first: large and small wait in one row.
class MemoryGate {
 public:
  explicit MemoryGate(std::size_t bytes) : limit_(bytes) {}

  /// The place at the head of the row. Held while finding out how much to ask for, it lets only one thread at a time
  /// have what that takes.
  class Turn {
   public:
    explicit Turn(MemoryGate& gate) : lock_(gate.turn_) {}

   private:
    std::unique_lock<std::mutex> lock_;
  };

  /// Memory that is given back when this goes.
  class Share {
   public:
    Share(MemoryGate& gate, std::size_t bytes) : Share(gate, Turn(gate), bytes) {}
    /// `turn` ends with the waiting.
    Share(MemoryGate& gate, Turn turn, std::size_t bytes);
    Share(Share&& other) noexcept : gate_(other.gate_), bytes_(std::exchange(other.bytes_, 0)) {}
    Share& operator=(Share&&) = delete;
    ~Share() {
      if (bytes_ != 0) gate_.giveBack(bytes_);
    }

   private:
    MemoryGate& gate_;
    std::size_t bytes_;
  };

 private:
  void take(std::size_t bytes);
  void giveBack(std::size_t bytes);

  const std::size_t limit_;
  std::mutex turn_;
  std::mutex mutex_;
  std::condition_variable freed_;
  std::size_t taken_ = 0;
};

/// Threads that take tasks in turn. They start with the first tasks and sleep while there are none.
class CompressionWorkers {
 public:
  using Task = std::function<void()>;

  CompressionWorkers(int threads, ThreadQuality quality)
      : limit_(static_cast<std::size_t>(threads)), quality_(quality) {}
  /// Drops what waits, and waits for what runs.
  ~CompressionWorkers();
  CompressionWorkers(const CompressionWorkers&) = delete;
  CompressionWorkers& operator=(const CompressionWorkers&) = delete;

  void add(Task task);

 private:
  void work();

  const std::size_t limit_;
  const ThreadQuality quality_;
  std::mutex mutex_;
  std::condition_variable added_;
  std::deque<Task> tasks_;
  std::vector<std::thread> threads_;
  std::size_t idle_ = 0;
  bool isEnding_ = false;
};

}  // namespace vellora
