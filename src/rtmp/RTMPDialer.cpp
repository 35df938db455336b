#include "rtmp/RTMPDialer.h"

#include <netinet/in.h>
#include <netinet/ip.h>
#include <netinet/tcp.h>

#include <algorithm>
#include <asio/detail/socket_option.hpp>
#include <asio/error.hpp>
#include <asio/redirect_error.hpp>
#include <asio/steady_timer.hpp>
#include <asio/this_coro.hpp>
#include <asio/use_awaitable.hpp>
#include <optional>
#include <utility>

namespace vellora {
namespace {

using asio::ip::tcp;

/// Differentiated services, in the upper six bits: interactive video (RFC 4594, AF41) and lower effort (RFC 8622).
constexpr int liveTrafficClass = 34 << 2;
constexpr int backgroundTrafficClass = 1 << 2;
/// Seconds.
constexpr int keepAliveIdle = 10;
constexpr int keepAliveInterval = 5;

template <int Level, int Name>
using IntegerOption = asio::detail::socket_option::integer<Level, Name>;

int trafficClass(RTMPQualityOfService quality) {
  switch (quality) {
    case RTMPQualityOfService::background:
      return backgroundTrafficClass;
    case RTMPQualityOfService::standard:
      return 0;
    case RTMPQualityOfService::live:
      return liveTrafficClass;
  }
  return 0;
}

/// What the kernel does not take is left at its default: none of it decides whether bytes arrive.
void prepare(tcp::socket& socket, bool isV6, RTMPQualityOfService quality) {
  asio::error_code ignored;
  socket.set_option(tcp::no_delay(true), ignored);
  socket.set_option(IntegerOption<IPPROTO_TCP, TCP_NOTSENT_LOWAT>(RTMPSocket::unsentInKernel), ignored);
  socket.set_option(asio::socket_base::keep_alive(true), ignored);
  socket.set_option(IntegerOption<IPPROTO_TCP, TCP_KEEPIDLE>(keepAliveIdle), ignored);
  socket.set_option(IntegerOption<IPPROTO_TCP, TCP_KEEPINTVL>(keepAliveInterval), ignored);
  socket.set_option(IntegerOption<IPPROTO_TCP, TCP_USER_TIMEOUT>(static_cast<int>(RTMPDialer::silenceLimit.count())),
                    ignored);
  if (isV6)
    socket.set_option(IntegerOption<IPPROTO_IPV6, IPV6_TCLASS>(trafficClass(quality)), ignored);
  else
    socket.set_option(IntegerOption<IPPROTO_IP, IP_TOS>(trafficClass(quality)), ignored);
}

/// With nobody listening, a port of this machine's own range for outgoing connections can be connected to itself.
bool isConnectedToItself(const tcp::socket& socket) {
  asio::error_code ignored;
  return socket.local_endpoint(ignored) == socket.remote_endpoint(ignored);
}

/// The higher, the more it tells about why a host cannot be reached.
int weight(const asio::error_code& error) {
  if (error == asio::error::connection_refused || error == asio::error::connection_reset) return 3;
  if (error == asio::error::timed_out) return 2;
  if (error == asio::error::host_unreachable || error == asio::error::network_unreachable) return 1;
  return 0;
}

}  // namespace

struct RTMPDialer::Race {
  struct Attempt {
    tcp::socket socket;
    std::optional<asio::error_code> outcome{};
  };

  explicit Race(const asio::any_io_executor& executor) : changed(executor) {}

  Attempt* winner() {
    const auto it = std::find_if(attempts.begin(), attempts.end(), [](const std::unique_ptr<Attempt>& attempt) {
      return attempt->outcome && !*attempt->outcome;
    });
    return it == attempts.end() ? nullptr : it->get();
  }
  std::size_t failures() const {
    return static_cast<std::size_t>(
        std::count_if(attempts.begin(), attempts.end(),
                      [](const std::unique_ptr<Attempt>& attempt) { return attempt->outcome.has_value(); }));
  }
  asio::error_code mostTelling() const {
    asio::error_code result = asio::error::host_unreachable;
    int best = -1;
    for (const std::unique_ptr<Attempt>& attempt : attempts) {
      if (!attempt->outcome || weight(*attempt->outcome) <= best) continue;
      result = *attempt->outcome;
      best = weight(result);
    }
    return result;
  }
  void end() {
    isOver = true;
    for (const std::unique_ptr<Attempt>& attempt : attempts) {
      asio::error_code ignored;
      attempt->socket.close(ignored);
    }
    changed.cancel();
  }

  asio::steady_timer changed;
  std::vector<std::unique_ptr<Attempt>> attempts;
  bool isOver = false;
};

RTMPDialer::RTMPDialer(asio::any_io_executor executor, RTMPQualityOfService qualityOfService)
    : executor_(std::move(executor)), qualityOfService_(qualityOfService), race_(std::make_shared<Race>(executor_)) {}

RTMPDialer::~RTMPDialer() {
  race_->end();
}

void RTMPDialer::cancel() {
  race_->end();
}

void RTMPDialer::start(const tcp::endpoint& endpoint) {
  race_->attempts.push_back(std::make_unique<Race::Attempt>(Race::Attempt{tcp::socket(executor_)}));
  Race::Attempt* const attempt = race_->attempts.back().get();
  asio::error_code error;
  attempt->socket.open(endpoint.protocol(), error);
  if (error) {
    attempt->outcome = error;
    return;
  }
  prepare(attempt->socket, endpoint.protocol() == tcp::v6(), qualityOfService_);
  attempt->socket.async_connect(endpoint, [race = race_, attempt](asio::error_code outcome) {
    if (!outcome && isConnectedToItself(attempt->socket)) outcome = asio::error::connection_refused;
    attempt->outcome = outcome;
    race->changed.cancel();
  });
}

asio::awaitable<Result<tcp::socket, asio::error_code>> RTMPDialer::dial(Endpoints endpoints) {
  const asio::cancellation_state cancellation = co_await asio::this_coro::cancellation_state;
  std::size_t next = 0;
  std::size_t failuresSeen = 0;
  bool isDue = true;
  while (!race_->isOver) {
    if (Race::Attempt* const winner = race_->winner()) {
      tcp::socket socket = std::move(winner->socket);
      race_->end();
      asio::error_code error;
      socket.non_blocking(true, error);
      if (error) co_return failure(error);
      co_return std::move(socket);
    }
    if (race_->failures() > failuresSeen) isDue = true;
    failuresSeen = race_->failures();
    if (isDue && next < endpoints.size()) {
      start(endpoints[next++]);
      race_->changed.expires_after(headStart);
      isDue = false;
      continue;
    }
    if (failuresSeen == endpoints.size()) break;
    if (next == endpoints.size()) race_->changed.expires_at(asio::steady_timer::time_point::max());
    asio::error_code woken;
    co_await race_->changed.async_wait(asio::redirect_error(asio::use_awaitable, woken));
    if (cancellation.cancelled() != asio::cancellation_type::none) race_->end();
    isDue = !woken;
  }
  const asio::error_code outcome =
      race_->isOver ? asio::error_code(asio::error::operation_aborted) : race_->mostTelling();
  race_->end();
  co_return failure(outcome);
}

}  // namespace vellora
