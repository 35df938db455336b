#include "base/SerialQueue.h"

#include <pthread.h>

#include <future>
#include <utility>

namespace vellora {

SerialQueue::SerialQueue(std::string label, Quality quality) : label_(std::move(label)), quality_(quality) {}

SerialQueue::~SerialQueue() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  changed_.notify_all();
  if (thread_.joinable()) thread_.join();
}

void SerialQueue::async(Task task) {
  const std::lock_guard lock(mutex_);
  tasks_.push_back(std::move(task));
  if (!running_) {
    running_ = true;
    thread_ = std::thread([this] { run(); });
  }
  changed_.notify_one();
}

void SerialQueue::drain() {
  {
    const std::lock_guard lock(mutex_);
    if (!running_) return;
  }
  std::promise<void> reached;
  async([&reached] { reached.set_value(); });
  reached.get_future().wait();
}

void SerialQueue::run() {
  const auto dot = label_.rfind('.');
  constexpr std::size_t threadNameLimit = 15;
  const std::string name = label_.substr(dot == std::string::npos ? 0 : dot + 1).substr(0, threadNameLimit);
  pthread_setname_np(pthread_self(), name.c_str());
  setThreadQuality(quality_);

  std::unique_lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [this] { return ending_ || !tasks_.empty(); });
    if (tasks_.empty()) return;
    Task task = std::move(tasks_.front());
    tasks_.pop_front();
    lock.unlock();
    task();
    task = nullptr;  // what the task holds is released here, outside the lock
    lock.lock();
  }
}

}  // namespace vellora
