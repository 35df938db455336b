#include "support/VirtualRunLoop.h"

#include <chrono>

namespace vellora::test {

/// The timer's number stays the same over its repetitions; its moment changes.
class VirtualRunLoop::Handle final : public Timer {
 public:
  Handle(std::weak_ptr<Timers> timers, std::uint64_t number) : timers_(std::move(timers)), number_(number) {}
  ~Handle() override {
    if (const auto timers = timers_.lock()) {
      std::erase_if(*timers, [this](const auto& item) { return item.first.second == number_; });
    }
  }

 private:
  std::weak_ptr<Timers> timers_;
  std::uint64_t number_;
};

void VirtualRunLoop::post(Task task) {
  const std::lock_guard lock(mutex_);
  tasks_.push_back(std::move(task));
  posted_.notify_all();
}

TimerHandle VirtualRunLoop::after(double seconds, Task task) {
  return add(seconds, 0, std::move(task));
}
TimerHandle VirtualRunLoop::every(double seconds, Task task) {
  return add(seconds, seconds, std::move(task));
}

TimerHandle VirtualRunLoop::add(double seconds, double interval, Task task) {
  const std::uint64_t number = next_++;
  timers_->emplace(Key{time_ + std::max(0.0, seconds), number}, Entry{interval, std::move(task)});
  return std::make_unique<Handle>(timers_, number);
}

void VirtualRunLoop::runPosted() {
  while (true) {
    Task task;
    {
      const std::lock_guard lock(mutex_);
      if (tasks_.empty()) return;
      task = std::move(tasks_.front());
      tasks_.pop_front();
    }
    task();
  }
}

bool VirtualRunLoop::runUntil(const std::function<bool()>& condition) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (true) {
    runPosted();
    if (condition()) return true;
    std::unique_lock lock(mutex_);
    if (!posted_.wait_until(lock, deadline, [this] { return !tasks_.empty(); })) return false;
  }
}

void VirtualRunLoop::advance(double seconds) {
  const double end = time_ + seconds;
  runPosted();
  while (!timers_->empty() && timers_->begin()->first.first <= end + 1e-9) {
    auto node = timers_->extract(timers_->begin());
    time_ = std::max(time_.load(), node.key().first);
    const Task task = node.mapped().task;
    if (node.mapped().interval > 0) {
      node.key().first += node.mapped().interval;
      timers_->insert(std::move(node));
    }
    task();
    runPosted();
  }
  time_ = end;
}

}  // namespace vellora::test
