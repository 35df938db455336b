#include "support/ScriptedIngest.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <stdexcept>

namespace vellora::test {
namespace {

constexpr std::size_t packet = 1536;
constexpr int patience = 10000;

/// The client has gone, or the test has ended.
struct ScriptEnded {};

int checked(int result, const char* what) {
  if (result < 0) throw std::runtime_error(what);
  return result;
}

std::uint32_t numberAt(const Octets& bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i) value = value << 8 | bytes[at + i];
  return value;
}

}  // namespace

IngestPeer::~IngestPeer() {
  if (socket_ >= 0) ::close(socket_);
}

void IngestPeer::close() {
  flush();
  shutdown(socket_, SHUT_WR);
  std::uint8_t block[1 << 16];
  while (waitFor(POLLIN, 1000) && ::read(socket_, block, sizeof block) > 0) continue;
  ::close(std::exchange(socket_, -1));
}

void IngestPeer::reset() {
  const linger none{1, 0};
  setsockopt(socket_, SOL_SOCKET, SO_LINGER, &none, sizeof none);
  ::close(std::exchange(socket_, -1));
}

void IngestPeer::complain(const std::string& what) {
  const std::lock_guard lock(ingest_.mutex_);
  ingest_.complaints_.push_back(what);
}

bool IngestPeer::waitFor(short events, int milliseconds) {
  if (socket_ < 0) throw ScriptEnded{};
  pollfd watched[] = {{socket_, events, 0}, {ingest_.stop_, POLLIN, 0}};
  const int count = poll(watched, 2, milliseconds);
  if (watched[1].revents != 0) throw ScriptEnded{};
  return count > 0;
}

void IngestPeer::readMore() {
  flush();
  if (!waitFor(POLLIN, patience)) {
    complain("nothing came for ten seconds");
    throw ScriptEnded{};
  }
  std::uint8_t block[1 << 16];
  const ssize_t count = ::read(socket_, block, sizeof block);
  if (count <= 0) throw ScriptEnded{};
  received_ += static_cast<std::uint64_t>(count);
  if (isShaken_) {
    reader_.feed(block, static_cast<std::size_t>(count));
  } else {
    handshake_.insert(handshake_.end(), block, block + count);
  }
}

void IngestPeer::readAtLeast(std::size_t count) {
  while (handshake_.size() < count) readMore();
}

void IngestPeer::readC0C1() {
  readAtLeast(1 + packet);
  const auto now = static_cast<std::uint32_t>(time(nullptr));
  if (handshake_[0] != 3) complain("version " + std::to_string(handshake_[0]));
  if (now + 1 - numberAt(handshake_, 1) > 60) complain("C1 of another time");
  if (numberAt(handshake_, 5) != 0) complain("C1 without its zero bytes");
  std::set<std::uint8_t> values(handshake_.begin() + 9, handshake_.begin() + 1 + packet);
  if (values.size() < 200) complain("C1 is not random");
  if (handshake_.size() != 1 + packet) complain("more than C0 and C1 before S1");
  s2_.assign(handshake_.begin() + 1, handshake_.begin() + 1 + packet);
  handshake_.erase(handshake_.begin(), handshake_.begin() + 1 + packet);
  s0s1_.assign(1, 3);
  for (std::size_t i = 0; i < packet; ++i) s0s1_.push_back(static_cast<std::uint8_t>(i * 167 + i / 256));
}

void IngestPeer::readC2() {
  readAtLeast(packet);
  if (!std::equal(handshake_.begin(), handshake_.begin() + 4, s0s1_.begin() + 1)) complain("C2 with another time");
  if (numberAt(handshake_, 4) > 60) complain("C2 took " + std::to_string(numberAt(handshake_, 4)) + " s");
  if (!std::equal(handshake_.begin() + 8, handshake_.begin() + packet, s0s1_.begin() + 9)) complain("C2 is no echo");
  handshake_.erase(handshake_.begin(), handshake_.begin() + packet);
  isShaken_ = true;
  reader_.feed(handshake_.data(), handshake_.size());
}

void IngestPeer::handshake() {
  readC0C1();
  Octets answer = s0s1_;
  answer.insert(answer.end(), s2_.begin(), s2_.end());
  raw(answer);
  readC2();
}

WireMessage IngestPeer::next() {
  while (taken_ == waiting_.size()) {
    std::vector<std::string> found;
    waiting_ = reader_.take(found);
    taken_ = 0;
    for (const std::string& complaint : found) complain(complaint);
    for (const WireMessage& each : waiting_) ingest_.keep(each);
    if (!found.empty()) ingest_.changed_.notify_all();
    if (waiting_.empty()) readMore();
  }
  return std::move(waiting_[taken_++]);
}

WireMessage IngestPeer::expect(std::string_view name) {
  if (!isShaken_) handshake();
  for (;;) {
    WireMessage received = next();
    if (received.name() == name) return received;
    answer(received);
  }
}

void IngestPeer::serve() {
  if (!isShaken_) handshake();
  for (;;) answer(next());
}

void IngestPeer::readOnly() {
  for (;;) {
    if (isShaken_) {
      next();
    } else {
      readMore();
    }
  }
}

void IngestPeer::answer(const WireMessage& request) {
  const std::string name = request.name();
  const WireValue transaction = WireValue::of(request.transaction());
  const WireValue result = WireValue::of("_result");
  if (name == "connect") {
    message(wire::windowSize, bigEndian(2500000));
    Octets bandwidth = bigEndian(2500000);
    bandwidth.push_back(2);
    message(wire::peerBandwidth, bandwidth);
    announceChunkSize(4096);
    command({result, transaction,
             WireValue::object({{"fmsVer", WireValue::of("FMS/3,0,1,123")}, {"capabilities", WireValue::of(31)}}),
             WireValue::object({{"level", WireValue::of("status")},
                                {"code", WireValue::of("NetConnection.Connect.Success")},
                                {"description", WireValue::of("Connection succeeded.")},
                                {"objectEncoding", WireValue::of(0.0)}})});
  } else if (name == "createStream") {
    command({result, transaction, WireValue::null(), WireValue::of(++lastStream_)});
  } else if (name == "publish") {
    status("status", "NetStream.Publish.Start", request.streamId);
  }
}

void IngestPeer::raw(const Octets& bytes) {
  if (writes_ == Writes::held) {
    held_.insert(held_.end(), bytes.begin(), bytes.end());
  } else {
    put(bytes, writes_ == Writes::bytewise ? 1 : bytes.size());
  }
}

void IngestPeer::flush() {
  const Octets bytes = std::exchange(held_, {});
  put(bytes, bytes.size());
}

void IngestPeer::put(const Octets& bytes, std::size_t piece) {
  for (std::size_t done = 0; done < bytes.size();) {
    if (!waitFor(POLLOUT, patience)) throw ScriptEnded{};
    const ssize_t count = send(socket_, bytes.data() + done, std::min(piece, bytes.size() - done), MSG_NOSIGNAL);
    if (count < 0 && errno != EAGAIN) throw ScriptEnded{};
    if (count > 0) done += static_cast<std::size_t>(count), sent_ += static_cast<std::uint64_t>(count);
  }
}

bool IngestPeer::tryRaw(const Octets& bytes, int milliseconds) {
  for (std::size_t done = 0; done < bytes.size();) {
    if (!waitFor(POLLOUT, milliseconds)) return false;
    const ssize_t count = send(socket_, bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
    if (count < 0 && errno != EAGAIN) return false;
    if (count > 0) done += static_cast<std::size_t>(count), sent_ += static_cast<std::uint64_t>(count);
  }
  return true;
}

void IngestPeer::message(std::uint8_t type, const Octets& payload, std::uint32_t chunkStream, std::uint32_t streamId) {
  raw(chunksOf(chunkStream, type, streamId, 0, payload, chunkSize_));
}

void IngestPeer::command(const std::vector<WireValue>& values, std::uint32_t streamId) {
  message(wire::command, amf0(values), 3, streamId);
}

void IngestPeer::status(std::string_view level, std::string_view code, std::uint32_t streamId,
                        std::string_view description) {
  command({WireValue::of("onStatus"), WireValue::of(0.0), WireValue::null(),
           WireValue::object({{"level", WireValue::of(level)},
                              {"code", WireValue::of(code)},
                              {"description", WireValue::of(description)}})},
          streamId);
}

void IngestPeer::refuse(const WireMessage& request, std::string_view code, std::string_view description) {
  command({WireValue::of("_error"), WireValue::of(request.transaction()), WireValue::null(),
           WireValue::object({{"level", WireValue::of("error")},
                              {"code", WireValue::of(code)},
                              {"description", WireValue::of(description)}})});
}

void IngestPeer::announceChunkSize(std::uint32_t size) {
  message(wire::setChunkSize, bigEndian(size));
  chunkSize_ = size;
}

void IngestPeer::mark(const std::string& name) {
  flush();
  ingest_.mark(name);
}

void IngestPeer::waitForMark(const std::string& name) {
  flush();
  std::unique_lock lock(ingest_.mutex_);
  ingest_.changed_.wait(lock, [&] { return ingest_.marks_.contains(name) || ingest_.isStopping_; });
  if (ingest_.isStopping_) throw ScriptEnded{};
}

ScriptedIngest::ScriptedIngest(std::vector<Script> scripts, Options options)
    : scripts_(std::move(scripts)), options_(options) {
  stop_ = checked(eventfd(0, EFD_CLOEXEC), "eventfd");
  listener_ = checked(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0), "socket");
  if (options_.receiveBuffer > 0) {
    setsockopt(listener_, SOL_SOCKET, SO_RCVBUF, &options_.receiveBuffer, sizeof options_.receiveBuffer);
  }
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  checked(bind(listener_, reinterpret_cast<sockaddr*>(&address), size), "bind");
  checked(listen(listener_, 16), "listen");
  checked(getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size), "getsockname");
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { run(); });
}

ScriptedIngest::~ScriptedIngest() {
  {
    const std::lock_guard lock(mutex_);
    isStopping_ = true;
  }
  changed_.notify_all();
  eventfd_write(stop_, 1);
  thread_.join();
  close(listener_);
  close(stop_);
}

void ScriptedIngest::run() {
  for (std::size_t index = 0;; ++index) {
    pollfd watched[] = {{listener_, POLLIN, 0}, {stop_, POLLIN, 0}};
    poll(watched, 2, -1);
    if (watched[1].revents != 0) return;
    const int socket = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (socket < 0) return;
    const int atOnce = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &atOnce, sizeof atOnce);
    {
      const std::lock_guard lock(mutex_);
      ++connections_;
    }
    changed_.notify_all();
    try {
      IngestPeer peer(*this, socket);
      scripts_[std::min(index, scripts_.size() - 1)](peer);
      if (peer.isOpen()) peer.close();
    } catch (const ScriptEnded&) {
    }
    {
      const std::lock_guard lock(mutex_);
      ++ended_;
    }
    changed_.notify_all();
  }
}

void ScriptedIngest::keep(const WireMessage& message) {
  {
    const std::lock_guard lock(mutex_);
    messages_.push_back(message);
    const bool isMedia = message.type == wire::audio || message.type == wire::video;
    if (isMedia && !options_.keepMedia) messages_.back().payload = {};
  }
  changed_.notify_all();
}

std::string ScriptedIngest::url(std::string_view path) const {
  return "rtmp://127.0.0.1:" + std::to_string(port_) + "/" + std::string(path);
}

std::vector<std::string> ScriptedIngest::complaints() const {
  const std::lock_guard lock(mutex_);
  return complaints_;
}

std::vector<WireMessage> ScriptedIngest::messages() const {
  const std::lock_guard lock(mutex_);
  return messages_;
}

std::vector<WireMessage> ScriptedIngest::messages(std::uint8_t type) const {
  std::vector<WireMessage> result = messages();
  std::erase_if(result, [&](const WireMessage& each) { return each.type != type; });
  return result;
}

std::vector<std::string> ScriptedIngest::names() const {
  std::vector<std::string> result;
  for (const WireMessage& each : messages()) {
    if (!each.name().empty()) result.push_back(each.name());
  }
  return result;
}

int ScriptedIngest::connections() const {
  const std::lock_guard lock(mutex_);
  return connections_;
}

int ScriptedIngest::ended() const {
  const std::lock_guard lock(mutex_);
  return ended_;
}

bool ScriptedIngest::waitUntil(const std::function<bool()>& condition) const {
  const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  std::unique_lock lock(mutex_);
  for (;;) {
    lock.unlock();
    const bool holds = condition();
    lock.lock();
    if (holds) return true;
    if (std::chrono::steady_clock::now() > limit) return false;
    changed_.wait_for(lock, std::chrono::milliseconds(20));
  }
}

bool ScriptedIngest::waitForMessages(std::uint8_t type, std::size_t count) const {
  return waitUntil([&] { return messages(type).size() >= count; });
}

void ScriptedIngest::mark(const std::string& name) {
  {
    const std::lock_guard lock(mutex_);
    marks_.insert(name);
  }
  changed_.notify_all();
}

bool ScriptedIngest::waitForMark(const std::string& name) const {
  return waitUntil([&] {
    const std::lock_guard lock(mutex_);
    return marks_.contains(name);
  });
}

}  // namespace vellora::test
