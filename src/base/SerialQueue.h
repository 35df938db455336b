#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include "base/ThreadQuality.h"

namespace vellora {

/// Runs tasks one after the other on a thread of its own. Each queue has one owner and a label in reverse-DNS form
/// ("dev.orlo.vellora.session-store"); the label's last part names the thread. The thread starts with the first task
/// and sleeps without waking while there is none. A task must not throw.
class SerialQueue {
 public:
  using Task = std::function<void()>;

  using Quality = ThreadQuality;

  explicit SerialQueue(std::string label, Quality quality = Quality::Normal);
  /// Runs what is queued to the end, then ends the thread.
  ~SerialQueue();
  SerialQueue(const SerialQueue&) = delete;
  SerialQueue& operator=(const SerialQueue&) = delete;

  const std::string& label() const { return label_; }

  /// Appends a task. Any thread.
  void async(Task task);

  /// Waits until everything queued before this call has run. Any thread but the queue's own.
  void drain();

 private:
  void run();

  const std::string label_;
  const Quality quality_;
  std::mutex mutex_;
  // Guarded by mutex_:
  std::condition_variable changed_;
  std::deque<Task> tasks_;
  std::thread thread_;
  bool running_ = false;
  bool ending_ = false;
};

}  // namespace vellora
