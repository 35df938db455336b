#pragma once

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>

#include "base/RunLoop.h"

namespace vellora::test {

/// A RunLoop whose time stands still until the test moves it. Timers fire in the order of their moments, then of their
/// making.
class VirtualRunLoop final : public RunLoop {
 public:
  void post(Task task) override;
  TimerHandle after(double seconds, Task task) override;
  TimerHandle every(double seconds, Task task) override;
  Date now() const override { return {start_.secondsSinceReference + time_}; }
  double hostTime() const override { return time_; }

  /// Sets the wall clock without moving time.
  void setNow(Date date) { start_ = {date.secondsSinceReference - time_}; }

  /// Runs everything posted so far, and what that posts.
  void runPosted();

  /// Runs posted tasks until `condition` holds; waits for other threads to post. False after ten real seconds.
  bool runUntil(const std::function<bool()>& condition);

  /// Moves time on, firing the timers that fall due and running what is posted meanwhile.
  void advance(double seconds);

  std::size_t pendingTimers() const { return timers_->size(); }

 private:
  struct Entry {
    double interval;  // 0: once
    Task task;
  };
  using Key = std::pair<double, std::uint64_t>;
  using Timers = std::map<Key, Entry>;
  class Handle;

  TimerHandle add(double seconds, double interval, Task task);

  std::atomic<double> time_ = 0;  // moved by the test, read by any thread
  Date start_{800000000.0};
  std::uint64_t next_ = 0;
  std::shared_ptr<Timers> timers_ = std::make_shared<Timers>();
  std::mutex mutex_;
  // Guarded by mutex_:
  std::condition_variable posted_;
  std::deque<Task> tasks_;
};

}  // namespace vellora::test
