#include "rtmp/RTMPResolver.h"

#include <netdb.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <asio/ip/address.hpp>
#include <asio/redirect_error.hpp>
#include <asio/this_coro.hpp>
#include <asio/use_awaitable.hpp>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <memory>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace vellora {
namespace {

using asio::ip::tcp;

/// What the thread and the one who waits have in common. The descriptor becomes readable with the answer.
struct LookUp {
  ~LookUp() {
    if (descriptor >= 0) close(descriptor);
  }

  std::string host;
  std::uint16_t port = 0;
  int descriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  int error = 0;
  RTMPResolver::Endpoints endpoints{};
  std::atomic<bool> isDone = false;
};

void lookUp(LookUp& work) {
  addrinfo hints{};
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  work.error = getaddrinfo(work.host.c_str(), nullptr, &hints, &found);
  for (const addrinfo* entry = work.error == 0 ? found : nullptr; entry; entry = entry->ai_next) {
    tcp::endpoint endpoint;
    if ((entry->ai_family != AF_INET && entry->ai_family != AF_INET6) || entry->ai_addrlen > endpoint.capacity())
      continue;
    endpoint.resize(entry->ai_addrlen);
    std::memcpy(endpoint.data(), entry->ai_addr, entry->ai_addrlen);
    endpoint.port(work.port);
    work.endpoints.push_back(endpoint);
  }
  if (found) freeaddrinfo(found);
  work.isDone.store(true, std::memory_order_release);
  const std::uint64_t one = 1;
  [[maybe_unused]] const ssize_t written = write(work.descriptor, &one, sizeof one);
}

RTMPSocketFailure notResolved(const std::string& host, int error) {
  RTMPSocketFailure result{RTMPSocketError::resolveFailed, {}};
  if (error == EAI_AGAIN)
    result.message = "the name server did not answer for " + host;
  else if (error == 0 || error == EAI_NONAME || error == EAI_NODATA)
    result.message = "there is no host called " + host;
  else
    result.message = "the address of " + host + " could not be found: " + gai_strerror(error);
  return result;
}

RTMPSocketFailure cancelled() {
  return {RTMPSocketError::cancelled, "looking up the host was cancelled"};
}

RTMPSocketFailure noResources(const std::string& host) {
  return {RTMPSocketError::other, "the address of " + host + " could not be looked up: too little memory"};
}

/// Null when the thread cannot be started.
std::shared_ptr<LookUp> startLookUp(const std::string& host, std::uint16_t port) {
  auto work = std::make_shared<LookUp>();
  work->host = host;
  work->port = port;
  if (work->descriptor < 0) return nullptr;
  try {
    std::thread([work] { lookUp(*work); }).detach();
  } catch (const std::system_error&) {
    return nullptr;
  }
  return work;
}

}  // namespace

RTMPResolver::Endpoints RTMPResolver::inTurns(const Endpoints& endpoints) {
  if (endpoints.empty()) return {};
  const bool firstIsV6 = endpoints.front().address().is_v6();
  Endpoints same, other, result;
  for (const tcp::endpoint& endpoint : endpoints)
    (endpoint.address().is_v6() == firstIsV6 ? same : other).push_back(endpoint);
  for (std::size_t i = 0; i < std::max(same.size(), other.size()); ++i) {
    if (i < same.size()) result.push_back(same[i]);
    if (i < other.size()) result.push_back(other[i]);
  }
  if (result.size() > maximumAddresses) result.resize(maximumAddresses);
  return result;
}

asio::awaitable<Result<RTMPResolver::Endpoints, RTMPSocketFailure>> RTMPResolver::resolve(std::string host,
                                                                                          std::uint16_t port) {
  asio::error_code error;
  const asio::ip::address number = asio::ip::make_address(host, error);
  if (!error) co_return Endpoints{tcp::endpoint(number, port)};

  const std::shared_ptr<LookUp> work = startLookUp(host, port);
  if (!work) co_return failure(noResources(host));
  const int own = dup(work->descriptor);
  if (own < 0) co_return failure(noResources(host));
  answered_.assign(own, error);
  if (error) {
    close(own);
    co_return failure(noResources(host));
  }
  co_await answered_.async_wait(asio::posix::stream_descriptor::wait_read,
                                asio::redirect_error(asio::use_awaitable, error));
  asio::error_code ignored;
  answered_.close(ignored);
  if (!work->isDone.load(std::memory_order_acquire)) co_return failure(cancelled());
  if (work->endpoints.empty()) co_return failure(notResolved(host, work->error));
  co_return inTurns(work->endpoints);
}

void RTMPResolver::cancel() {
  asio::error_code ignored;
  answered_.cancel(ignored);
}

}  // namespace vellora
