#include "platform/linux/audio/pulse/MicrophoneQuery.h"

#include <algorithm>
#include <span>

namespace vellora {
namespace {

/// A jack without a plug, as far as the server knows.
bool isUnplugged(const pa_source_info& source) {
  const std::span ports(source.ports, source.n_ports);
  return !ports.empty() && std::all_of(ports.begin(), ports.end(), [](const pa_source_port_info* port) {
    return port->available == PA_PORT_AVAILABLE_NO;
  });
}

}  // namespace

void MicrophoneQuery::start(const PulseConnection& connection) {
  isDone_ = false;
  static constexpr auto take = [](pa_context*, const pa_source_info* source, int isLast, void* self) {
    auto* query = static_cast<MicrophoneQuery*>(self);
    if (isLast != 0) return query->finish();
    query->take(*source);
  };
  const auto takeServer = [](pa_context* context, const pa_server_info* server, void* self) {
    auto* query = static_cast<MicrophoneQuery*>(self);
    const bool hasDefault = server != nullptr && server->default_source_name != nullptr;
    query->defaultSource_ = hasDefault ? server->default_source_name : "";
    query->microphones_.clear();
    query->operation_.reset(pa_context_get_source_info_list(context, take, query));
  };
  operation_.reset(pa_context_get_server_info(connection.context(), takeServer, this));
}

void MicrophoneQuery::take(const pa_source_info& source) {
  if (source.monitor_of_sink != PA_INVALID_INDEX || isUnplugged(source)) return;
  const char* description = source.description == nullptr ? source.name : source.description;
  microphones_.push_back({QString::fromUtf8(source.name), QString::fromUtf8(description)});
}

void MicrophoneQuery::finish() {
  const QString first = QString::fromStdString(defaultSource_);
  std::sort(microphones_.begin(), microphones_.end(), [&](const CaptureDeviceInfo& a, const CaptureDeviceInfo& b) {
    const bool aIsFirst = a.uniqueID == first, bIsFirst = b.uniqueID == first;
    if (aIsFirst != bIsFirst) return aIsFirst;
    return a.displayName == b.displayName ? a.uniqueID < b.uniqueID : a.displayName < b.displayName;
  });
  isDone_ = true;
  done_();
}

}  // namespace vellora
