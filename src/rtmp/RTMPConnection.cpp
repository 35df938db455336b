#include "rtmp/RTMPConnection.h"

#include <array>
#include <asio/co_spawn.hpp>
#include <asio/post.hpp>
#include <asio/use_awaitable.hpp>
#include <utility>

#include "rtmp/OnStrand.h"
#include "rtmp/RTMPSession.h"

namespace vellora {
namespace {

struct CodeText {
  RTMPConnection::Code code;
  std::string_view text;
};

constexpr std::array codeTexts{
    CodeText{RTMPConnection::Code::callBadVersion, "NetConnection.Call.BadVersion"},
    CodeText{RTMPConnection::Code::callFailed, "NetConnection.Call.Failed"},
    CodeText{RTMPConnection::Code::callProhibited, "NetConnection.Call.Prohibited"},
    CodeText{RTMPConnection::Code::connectAppshutdown, "NetConnection.Connect.AppShutdown"},
    CodeText{RTMPConnection::Code::connectClosed, "NetConnection.Connect.Closed"},
    CodeText{RTMPConnection::Code::connectFailed, "NetConnection.Connect.Failed"},
    CodeText{RTMPConnection::Code::connectIdleTimeOut, "NetConnection.Connect.IdleTimeOut"},
    CodeText{RTMPConnection::Code::connectInvalidApp, "NetConnection.Connect.InvalidApp"},
    CodeText{RTMPConnection::Code::connectNetworkChange, "NetConnection.Connect.NetworkChange"},
    CodeText{RTMPConnection::Code::connectRejected, "NetConnection.Connect.Rejected"},
    CodeText{RTMPConnection::Code::connectSuccess, "NetConnection.Connect.Success"},
};

}  // namespace

const std::vector<std::string>& RTMPConnection::supportedFourCcList() {
  static const std::vector<std::string> list{"hvc1", "Opus"};
  return list;
}

const AMFObject& RTMPConnection::supportedVideoFourCcInfoMap() {
  static const AMFObject map{{"hvc1", 3}};
  return map;
}

const AMFObject& RTMPConnection::supportedAudioFourCcInfoMap() {
  static const AMFObject map{{"Opus", 2}};
  return map;
}

std::string_view RTMPConnection::textOf(Code code) {
  for (const CodeText& entry : codeTexts)
    if (entry.code == code) return entry.text;
  return {};
}

std::string_view RTMPConnection::levelOf(Code code) {
  return code == Code::connectSuccess ? "status" : "error";
}

std::shared_ptr<RTMPConnection> RTMPConnection::create(asio::any_io_executor executor, Options options) {
  return std::shared_ptr<RTMPConnection>(
      new RTMPConnection(std::make_shared<Session>(std::move(executor), std::move(options))));
}

RTMPConnection::RTMPConnection(std::shared_ptr<Session> session) : session_(std::move(session)) {}

RTMPConnection::~RTMPConnection() {
  asio::post(session_->strand(), [session = session_] { session->abandon(); });
}

asio::awaitable<Result<RTMPResponse, RTMPFailure>> RTMPConnection::connect(std::string url,
                                                                           std::vector<AMFValue> arguments) {
  const std::shared_ptr<Session> session = session_;
  co_return co_await onStrand(session->strand(), session->connect(std::move(url), std::move(arguments)));
}

asio::awaitable<Result<RTMPResponse, RTMPFailure>> RTMPConnection::call(std::string commandName,
                                                                        std::vector<AMFValue> arguments) {
  const std::shared_ptr<Session> session = session_;
  co_return co_await onStrand(session->strand(), session->call(std::move(commandName), std::move(arguments)));
}

asio::awaitable<void> RTMPConnection::close() {
  const std::shared_ptr<Session> session = session_;
  co_await onStrand(session->strand(), session->close());
}

asio::awaitable<std::optional<RTMPStatus>> RTMPConnection::nextStatus() {
  const std::shared_ptr<Session> session = session_;
  co_return co_await onStrand(session->strand(), session->nextStatus());
}

bool RTMPConnection::connected() const {
  return session_->isConnected();
}

RTMPConnection::ReadyState RTMPConnection::readyState() const {
  return session_->readyState();
}

std::uint64_t RTMPConnection::sentBytes() const {
  return session_->sentBytes();
}

std::uint64_t RTMPConnection::receivedBytes() const {
  return session_->receivedBytes();
}

std::uint32_t RTMPConnection::acknowledged() const {
  return session_->acknowledged();
}

}  // namespace vellora
