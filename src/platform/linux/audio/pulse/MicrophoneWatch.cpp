#include "platform/linux/audio/pulse/MicrophoneWatch.h"

#include <utility>

namespace vellora {

MicrophoneWatch::MicrophoneWatch(std::function<void()> changed)
    : changed_(std::move(changed)), query_([this] { compare(); }), timer_(connection_) {
  const PulseConnection::Lock lock(connection_);
  connection_.onStateChanged([this] { stateChanged(); });
  connect();
}

MicrophoneWatch::~MicrophoneWatch() {
  const PulseConnection::Lock lock(connection_);
  connection_.close();
  timer_.stop();
}

void MicrophoneWatch::connect() {
  if (!connection_.connect()) timer_.start(reconnectDelay, [this] { connect(); });
}

void MicrophoneWatch::stateChanged() {
  if (connection_.isLost()) {
    timer_.start(reconnectDelay, [this] { connect(); });
    if (!std::exchange(known_, {}).empty()) changed_();
    return;
  }
  const auto mask = static_cast<pa_subscription_mask_t>(PA_SUBSCRIPTION_MASK_SOURCE | PA_SUBSCRIPTION_MASK_SERVER);
  pa_context_set_subscribe_callback(
      connection_.context(),
      [](pa_context*, pa_subscription_event_type_t, std::uint32_t, void* self) {
        auto* watch = static_cast<MicrophoneWatch*>(self);
        watch->timer_.start(settleTime, [watch] { watch->query_.start(watch->connection_); });
      },
      this);
  forget(pa_context_subscribe(connection_.context(), mask, nullptr, nullptr));
  query_.start(connection_);
}

void MicrophoneWatch::compare() {
  if (query_.microphones() == known_) return;
  known_ = query_.microphones();
  changed_();
}

}  // namespace vellora
