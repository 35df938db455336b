#pragma once

#include <pulse/pulseaudio.h>

#include <functional>
#include <memory>

namespace vellora {

struct PulseDeleter {
  void operator()(pa_stream* stream) const;
  void operator()(pa_context* context) const;
  void operator()(pa_operation* operation) const;
};
using PulseStreamPointer = std::unique_ptr<pa_stream, PulseDeleter>;
using PulseContextPointer = std::unique_ptr<pa_context, PulseDeleter>;
/// A question to the server that is taken back when this goes.
using PulseOperationPointer = std::unique_ptr<pa_operation, PulseDeleter>;

/// Lets go of an operation whose end its callback tells.
inline void forget(pa_operation* operation) {
  if (operation != nullptr) pa_operation_unref(operation);
}

/// A connection to the sound server, on a thread of its own, where all callbacks come. Whoever calls the library or
/// shares data with the callbacks holds a Lock, or is on that thread.
class PulseConnection {
 public:
  /// How long a server may take to answer, in seconds.
  static constexpr double patience = 0.9;

  PulseConnection();
  /// Waits for the running callback at most.
  ~PulseConnection();
  PulseConnection(const PulseConnection&) = delete;
  PulseConnection& operator=(const PulseConnection&) = delete;

  class Lock {
   public:
    explicit Lock(const PulseConnection& connection) : loop_(connection.loop_) { pa_threaded_mainloop_lock(loop_); }
    ~Lock() { pa_threaded_mainloop_unlock(loop_); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

   private:
    pa_threaded_mainloop* loop_;
  };

  /// Called whenever the connection stands or is lost, in that thread. To be set before connect().
  void onStateChanged(std::function<void()> changed) { changed_ = std::move(changed); }
  /// Begins to connect, instead of the connection there was. False when there is no server. Locked.
  bool connect();
  /// Ends the connection: no callback of it comes any more, nor onStateChanged(). Locked.
  void close();
  bool isReady() const { return context_ && pa_context_get_state(context_.get()) == PA_CONTEXT_READY; }
  /// Not connected and not about to be.
  bool isLost() const { return !context_ || !PA_CONTEXT_IS_GOOD(pa_context_get_state(context_.get())); }
  pa_context* context() const { return context_.get(); }

  /// Waits until `condition` holds; false when the connection is lost or `patience` is over. Locked, and not on the
  /// connection's thread, whose callbacks call wake() after they have changed something.
  bool wait(const std::function<bool()>& condition);
  void wake() const { pa_threaded_mainloop_signal(loop_, 0); }

  /// Runs once on the connection's thread, which must not be inside another timer of this kind.
  class Timer {
   public:
    explicit Timer(PulseConnection& connection) : connection_(connection) {}
    ~Timer() { stop(); }
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    /// Replaces what was to run. Locked.
    void start(double seconds, std::function<void()> task);
    void stop();
    bool isRunning() const { return event_ != nullptr; }

   private:
    PulseConnection& connection_;
    pa_time_event* event_ = nullptr;
    std::function<void()> task_;
  };

 private:
  pa_mainloop_api* api() const { return pa_threaded_mainloop_get_api(loop_); }

  pa_threaded_mainloop* loop_;
  std::function<void()> changed_;
  PulseContextPointer context_;
};

}  // namespace vellora
