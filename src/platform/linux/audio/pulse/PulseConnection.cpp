#include "platform/linux/audio/pulse/PulseConnection.h"

#include <sys/time.h>

#include <cmath>
#include <utility>

namespace vellora {

void PulseDeleter::operator()(pa_stream* stream) const {
  pa_stream_set_state_callback(stream, nullptr, nullptr);
  pa_stream_set_read_callback(stream, nullptr, nullptr);
  if (PA_STREAM_IS_GOOD(pa_stream_get_state(stream))) pa_stream_disconnect(stream);
  pa_stream_unref(stream);
}

void PulseDeleter::operator()(pa_context* context) const {
  pa_context_set_state_callback(context, nullptr, nullptr);
  pa_context_set_subscribe_callback(context, nullptr, nullptr);
  pa_context_disconnect(context);
  pa_context_unref(context);
}

void PulseDeleter::operator()(pa_operation* operation) const {
  pa_operation_cancel(operation);
  pa_operation_unref(operation);
}

PulseConnection::PulseConnection() : loop_(pa_threaded_mainloop_new()) {
  pa_threaded_mainloop_set_name(loop_, "sound");
  pa_threaded_mainloop_start(loop_);
}

PulseConnection::~PulseConnection() {
  {
    const Lock lock(*this);
    close();
  }
  pa_threaded_mainloop_stop(loop_);
  pa_threaded_mainloop_free(loop_);
}

bool PulseConnection::connect() {
  context_.reset();
  pa_proplist* properties = pa_proplist_new();
  pa_proplist_sets(properties, PA_PROP_APPLICATION_NAME, "Vellora");
  pa_proplist_sets(properties, PA_PROP_APPLICATION_ICON_NAME, "dev.orlo.Vellora");
  context_.reset(pa_context_new_with_proplist(api(), nullptr, properties));
  pa_proplist_free(properties);
  if (!context_) return false;
  pa_context_set_state_callback(
      context_.get(),
      [](pa_context*, void* self) {
        auto* connection = static_cast<PulseConnection*>(self);
        connection->wake();
        if (connection->changed_ && (connection->isReady() || connection->isLost())) connection->changed_();
      },
      this);
  return pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) >= 0;
}

void PulseConnection::close() {
  changed_ = nullptr;
  context_.reset();
}

bool PulseConnection::wait(const std::function<bool()>& condition) {
  bool isOver = false;
  Timer timer(*this);
  timer.start(patience, [&] {
    isOver = true;
    wake();
  });
  while (!condition()) {
    if (isOver || isLost()) return false;
    pa_threaded_mainloop_wait(loop_);
  }
  return true;
}

void PulseConnection::Timer::start(double seconds, std::function<void()> task) {
  stop();
  task_ = std::move(task);
  timeval due{};
  gettimeofday(&due, nullptr);
  pa_timeval_add(&due, static_cast<pa_usec_t>(std::llround(seconds * 1e6)));
  const auto fire = [](pa_mainloop_api*, pa_time_event*, const timeval*, void* self) {
    auto* timer = static_cast<Timer*>(self);
    timer->stop();
    std::exchange(timer->task_, nullptr)();
  };
  event_ = connection_.api()->time_new(connection_.api(), &due, fire, this);
}

void PulseConnection::Timer::stop() {
  if (event_ != nullptr) connection_.api()->time_free(std::exchange(event_, nullptr));
}

}  // namespace vellora
