#include "editor/compressor/CompressionWorkers.h"

#include <algorithm>
#include <utility>

namespace vellora {

MemoryGate::Share::Share(MemoryGate& gate, Turn turn, std::size_t bytes) : gate_(gate), bytes_(bytes) {
  const Turn whileWaiting = std::move(turn);
  gate_.take(bytes_);
}

void MemoryGate::take(std::size_t bytes) {
  std::unique_lock lock(mutex_);
  freed_.wait(lock, [&] { return taken_ == 0 || (bytes <= limit_ && taken_ <= limit_ - bytes); });
  taken_ += bytes;
}

void MemoryGate::giveBack(std::size_t bytes) {
  {
    const std::lock_guard lock(mutex_);
    taken_ -= bytes;
  }
  freed_.notify_all();
}

CompressionWorkers::~CompressionWorkers() {
  {
    const std::lock_guard lock(mutex_);
    isEnding_ = true;
    tasks_.clear();
  }
  added_.notify_all();
  for (std::thread& thread : threads_) thread.join();
}

void CompressionWorkers::add(Task task) {
  {
    const std::lock_guard lock(mutex_);
    tasks_.push_back(std::move(task));
    if (tasks_.size() > idle_ && threads_.size() < limit_) threads_.emplace_back([this] { work(); });
  }
  added_.notify_one();
}

void CompressionWorkers::work() {
  setThreadQuality(quality_);
  std::unique_lock lock(mutex_);
  while (true) {
    ++idle_;
    added_.wait(lock, [this] { return isEnding_ || !tasks_.empty(); });
    --idle_;
    if (isEnding_) return;
    Task task = std::move(tasks_.front());
    tasks_.pop_front();
    lock.unlock();
    task();
    task = nullptr;
    lock.lock();
  }
}

}  // namespace vellora
